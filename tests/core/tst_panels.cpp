// The panels of the window, each started alone: what they show of what they are given, and what
// they tell of a person's hand.
#include "tests/support/MainWindow.h"

#include "fontmap/MapSize.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QSlider>
#include <QWindow>

namespace {

constexpr TwipScale Fifteen; // 15 twips a pixel

QAccessibleInterface *speaker(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

/// A map in a window of its own, on a screen that has room for 18 sizes.
struct Map
{
    Map()
    {
        Desk.pretend(SysInfo::Screen{{1280, 1024}, {}, 96});
        Panel.ComputeMaxMapSize();
        Panel.sldSetFMapSize->setValue(4);
        Panel.FillDefaultMap();
        Panel.resize(1000, 400);
        Window.show();
        QApplication::setActiveWindow(&Window);
    }
    void use(int code, Qt::MouseButton button)
    {
        QTest::mouseClick(Panel.CharButton, button, {}, at(code));
    }
    QPoint at(int code) const { return Panel.CharButton->pixels(cellOf(code)).center(); }

    SysInfo Desk;
    CharCells Zoom{1};
    QWidget Window; // as the panel goes out of sight while it grows
    FontMap Panel{Fifteen, Zoom, &Window};
};

} // namespace

class TestPanels : public QObject
{
    Q_OBJECT

private slots:
    void sizesOfAScreen()
    {
        using MapSize::Sizing;
        for (const auto &[width, twips, largest, allowed] : {std::tuple(800, 15, 1, Sizing::Off),
                                                             {801, 15, 1, Sizing::On},
                                                             {809, 15, 1, Sizing::On},
                                                             {810, 15, 2, Sizing::On},
                                                             {1920, 15, 41, Sizing::On},
                                                             {1024, 12, 2, Sizing::Off},
                                                             {1025, 12, 2, Sizing::AsItIs},
                                                             {1280, 12, 11, Sizing::AsItIs}}) {
            QCOMPARE(MapSize::Largest(width, twips), largest);
            QCOMPARE(MapSize::SizingFor(width, twips), allowed);
        }
    }

    void mapTellsOfItsCells()
    {
        Map map;
        const QSignalSpy picked(&map.Panel, &FontMap::CharacterPicked);
        const QSignalSpy menus(&map.Panel, &FontMap::MenuWanted);
        const QSignalSpy entered(&map.Panel, &FontMap::CellEntered);
        const QSignalSpy colors(&map.Panel, &FontMap::ColorsChanged);
        map.use(0xE9, Qt::LeftButton);
        map.use('A', Qt::MiddleButton);
        QCOMPARE(menus.count(), 0);
        map.use('A', Qt::RightButton);
        QCOMPARE(menus.count(), 1);
        QCOMPARE(menus[0][0].toPoint(), map.Panel.CharButton->mapToGlobal(map.at('A')));
        QCOMPARE(picked.count(), 1);
        QCOMPARE(picked[0][0].toString(), QString("é"));
        QTest::mouseMove(map.Panel.CharButton, map.at(' '));
        QTest::mouseMove(map.Panel.CharButton, map.at(255));
        QTRY_VERIFY(!entered.isEmpty());
        QTRY_COMPARE(entered.last()[0].toInt(), cellOf(255));
        QCOMPARE(map.Panel.LastCell, cellOf(255));
        map.Panel.Fore.Color = RGBValue(1, 2, 3);
        map.Panel.Back.Color = RGBValue(4, 5, 6);
        map.Panel.ApplyFontMapColors(false, 0, false, 0);
        QCOMPARE(colors.count(), 0);
        map.Panel.ApplyFontMapColors(true, map.Panel.Fore.Color, false, 0);
        QCOMPARE(colors.count(), 1);
        QCOMPARE(map.Panel.CharButton->ForeColor(223), RGBValue(1, 2, 3));
        QVERIFY(map.Panel.CharButton->BackColor(223) != RGBValue(4, 5, 6));
        QCOMPARE(map.Zoom.BackColor(0), RGBValue(4, 5, 6));
    }

    void mapTellsOfItsSize()
    {
        Map map;
        FontMap &panel = map.Panel;
        const QSignalSpy resized(&panel, &FontMap::Resized);
        const QSignalSpy changed(&panel, &FontMap::SizeChanged);
        const QSignalSpy focus(&panel, &FontMap::FocusFree);
        QSlider *thumb = panel.sldSetFMapSize->slider();
        thumb->setSliderDown(true);
        thumb->setSliderPosition(8); // only the number follows, until the thumb is let go
        QCOMPARE(panel.sldSetFMapSize->number()->text(), QString("8"));
        QVERIFY(resized.isEmpty() && changed.isEmpty());
        thumb->setSliderDown(false);
        QCOMPARE(panel.CharButton->pixels(0).width(), 35);
        QCOMPARE(resized.count(), 1);
        QCOMPARE(resized[0], (QVariantList{28.0 * 525 - 23 * 15, 390.0 + 8 * 525 - 4 * 15}));
        QCOMPARE(changed.count(), 1);
        QVERIFY(fillNumberBox(panel.sldSetFMapSize, "18"));
        QCOMPARE(focus.count(), 1);
        map.Desk.pretend(SysInfo::Screen{{1024, 768}, {}, 96});
        panel.FitScreen();
        QCOMPARE(panel.CharButton->pixels(0).width(), 36);
    }

    void mapIsATable()
    {
        QAccessible::Id gone = 0;
        {
            Map panels;
            FontMap &panel = panels.Panel;
            QAccessibleInterface *map = speaker(panel.CharButton);
            QCOMPARE(map->role(), QAccessible::Table);
            QAccessibleTableInterface *table = map->tableInterface();
            QCOMPARE(QSize(table->columnCount(), table->rowCount()), QSize(28, 8));
            QCOMPARE(map->childCount(), 224);
            QVERIFY(!table->cellAt(8, 0) && !table->cellAt(0, 28) && !table->cellAt(-1, 0));
            QVERIFY(!map->child(224));
            for (const int index : {0, 27, 28, 223}) {
                QAccessibleInterface *cell = table->cellAt(index / 28, index % 28);
                QCOMPARE(cell, map->child(index));
                QCOMPARE(map->indexOfChild(cell), index);
                QCOMPARE(cell->tableCellInterface()->rowIndex(), index / 28);
                QCOMPARE(cell->tableCellInterface()->columnIndex(), index % 28);
                QCOMPARE(map->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
            }
            QAccessibleInterface *letter = map->child(cellOf('A'));
            QAccessibleInterface *accented = map->child(cellOf(233));
            QCOMPARE(letter->text(QAccessible::Name), QString("65, A, A"));
            QCOMPARE(accented->text(QAccessible::Name), QString("233, é, Alt+0233"));
            panel.CharButton_MouseMove(cellOf(233));
            QCOMPARE(map->focusChild(), accented);
            QVERIFY(accented->state().active && !letter->state().active);
            // Of a map that leaves the cell empty.
            panel.CharButton->setCaption(cellOf(233), {});
            panel.CharInfo.at(cellOf(233)) = {};
            QCOMPARE(accented->text(QAccessible::Name), QString("Empty"));
            const QSignalSpy picked(&panel, &FontMap::CharacterPicked);
            QAccessibleActionInterface *actions = letter->actionInterface();
            actions->doAction(actions->actionNames().value(0));
            QCOMPARE(picked.value(0).value(0).toString(), QString("A"));
            gone = QAccessible::uniqueId(map->child(5));
        }
        // A tool may still hold it.
        const QAccessibleInterface *left = QAccessible::accessibleInterface(gone);
        QVERIFY(!left || !left->isValid());
    }

    void viewsShowWhatIsOn()
    {
        Views views(Fifteen, nullptr);
        const auto shown = [&views] {
            return QStringList{views.TextZoom->Caption(0), views.AscCode->text(),
                               views.HexCode->text(),      views.OctCode->text(),
                               views.BinCode->text(),      views.KS->text()};
        };
        for (QAction *item : {views.ViewZoom, views.ViewCode, views.ViewKS, views.ViewAll})
            item->setCheckable(true); // as the menu makes them
        views.ViewAll->trigger();
        for (const QStringList &row : {QStringList{" ", "32", "20", "40", "100000", "Space Bar"},
                                       {"~", "126", "7E", "176", "1111110", "~"},
                                       {"\u007F", "127", "7F", "177", "1111111", "Alt+0127"},
                                       {"\u0081", "129", "81", "201", "10000001", "Alt+0129"},
                                       {"\u00FF", "255", "FF", "377", "11111111", "Alt+0255"}}) {
            views.ShowCharacter(row[0], DefaultCharTexts(row[1].toInt()));
            QCOMPARE(shown(), row);
        }
        QCOMPARE(speaker(views.TextZoom)->text(QAccessible::Description), QString("\u00FF"));
        views.ViewAll->trigger();
        views.ShowCharacter("a", DefaultCharTexts('a'));
        QCOMPARE(shown(), QStringList({"", "Off", "Off", "Off", "Off", "Off"}));
    }

    void viewsTellWhatIsWanted()
    {
        Views views(Fifteen, nullptr);
        views.resize(134, 253);
        views.show();
        QVERIFY(QTest::qWaitForWindowExposed(&views));
        const QSignalSpy sides(&views, &Views::SideWanted);
        for (const auto &[key, side] : {std::pair("VCRight", "R"), {"VCLeft", "L"}}) {
            QTest::mouseClick(views.ViewsTB->button(key), Qt::LeftButton);
            QCOMPARE(sides.last()[0].toString(), QString(side));
            views.ShowSide(side);
            QVERIFY(views.ViewsTB->button(key)->isChecked());
            QVERIFY(!views.ViewsTB->button(*side == 'R' ? "VCLeft" : "VCRight")->isChecked());
        }

        const QSignalSpy menus(&views, &Views::MenuWanted);
        for (const auto &[control, command] :
             {std::pair<QWidget *, QAction *>(views.TextZoom, views.ViewZoom),
              {views.ZoomSizeSlider->number(), views.ViewZoom},
              {views.findChild<QWidget *>("CVACover"), views.ViewCode},
              {views.BinCode, views.ViewCode},
              {views.findChild<QWidget *>("KVACover"), views.ViewKS},
              {views.KS, views.ViewKS}}) {
            const QPoint corner = control->mapTo(&views, QPoint(2, 2));
            QTest::mouseClick(views.windowHandle(), Qt::RightButton, {}, corner);
            QVERIFY(!menus.isEmpty());
            QCOMPARE(menus.last()[0].value<QAction *>(), command);
            QCOMPARE(menus.last()[1].toPoint(), views.mapToGlobal(corner));
        }
        const QPoint button = views.ViewsTB->mapTo(&views, QPoint(10, 10));
        QTest::mouseClick(views.windowHandle(), Qt::RightButton, {}, button);
        QCOMPARE(menus.count(), 6);

        const QSignalSpy focus(&views, &Views::FocusFree);
        views.ZoomViewSet(true);
        views.ZoomSizeSlider->slider()->setSliderDown(true);
        views.ZoomSizeSlider->slider()->setSliderPosition(30); // the zoom follows at once
        QCOMPARE(views.TextZoom->cellFont().pointSize(), 30);
        QCOMPARE(focus.count(), 1);
    }

    void locksAreShown()
    {
        LockPanels panels(nullptr);
        std::optional<LockState> keyboard;
        panels.locks().readFrom([&keyboard] { return keyboard; });
        for (const auto &[state, shown, told] :
             {std::tuple(std::optional<LockState>(), "000", "unknown"),
              {LockState{.Num = true}, "100", "on"},
              {LockState{.Caps = true, .Scroll = true}, "011", "off"},
              {{}, "000", "unknown"}}) {
            keyboard = state;
            panels.locks().refresh();
            QString on;
            for (const char *name : {"NUM", "CAPS", "SCRL"})
                on += panels.findChild<QLabel *>(name)->isEnabled() ? '1' : '0';
            QCOMPARE(on, QString(shown));
            QCOMPARE(speaker(panels.findChild<QLabel *>("NUM"))->text(QAccessible::Description),
                     QString(told));
        }
    }
};

ZENDOVA_WINDOW_TEST(TestPanels)

#include "tst_panels.moc"
