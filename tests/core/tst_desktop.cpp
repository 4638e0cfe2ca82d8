// What the desktop does to the running window (assistive tools that ask what is there, the colours
// changed while it runs, changes under a dialog), and menus that take over states as they open.
#include "tests/support/MainWindow.h"

#include "core/Message.h"

namespace {

constexpr auto speaker = QAccessible::queryAccessibleInterface;

void rightClick(const Zendova *window, const QWidget *control)
{
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      control->mapTo(window, control->rect().center()));
}

} // namespace

class TestDesktop : public WindowTest
{
    Q_OBJECT

private slots:
    void cleanup() override
    {
        QApplication::setPalette(QPalette());
        WindowTest::cleanup();
    }

    void colorsChangeWhileRunning()
    {
        const QColor face(60, 60, 60), ink(230, 230, 230), shade(45, 45, 45), paper(30, 30, 30);
        const QPalette light(QColor(240, 240, 240), QColor(240, 240, 240));
        const QPalette dark(ink, face, face, shade, shade, ink, paper);
        QApplication::setPalette(light);
        begin(); // a window that has met no other palette
        const auto pixel = [](const QImage &image) { return image.pixelColor(2, 2); };
        const auto sample = [this](std::size_t label) {
            return window->SampleText[label]->palette().color(QPalette::WindowText);
        };
        FontMap &map = *window->FMapContainer;
        for (const QPalette &palette : {dark, light}) {
            QApplication::setPalette(palette);
            QCoreApplication::processEvents();
            const QColor base = palette.color(QPalette::Base);
            QCOMPARE(pixel(pictureOf(map.CharButton, 0)), base);
            QCOMPARE(pixel(window->ViewsContainer->TextZoom->grab().toImage()), base);
            QCOMPARE(sample(0), base);
            QCOMPARE(sample(1), palette.color(QPalette::Text));
            // Paper stays paper, with the ink that was chosen.
            QCOMPARE(pixel(pictureOf(board())), QColor(Qt::white));
            QCOMPARE(board()->ForeColor(), QColor(Qt::black));
        }
        // Colours of the map's own are no colours of the desktop's.
        const QColor yellow(250, 240, 10);
        const QColor blue(0, 0, 200);
        map.Fore.Color = FromColor(yellow);
        map.Back.Color = FromColor(blue);
        map.ApplyFontMapColors(true, map.Fore.Color, true, map.Back.Color);
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        QCOMPARE(pixel(pictureOf(map.CharButton, 0)), blue);
        QCOMPARE(sample(1), yellow);
        // Messages wear them too, as long as that is wished.
        for (const bool scheme : {true, false}) {
            QCOMPARE(window->DisplayCS->isChecked(), scheme);
            desktop->Dialogs.dialog("Zendova Title", [=](QDialog *dialog) {
                const QPalette palette = dialog->findChild<QLabel *>("MessageArea")->palette();
                QCOMPARE(palette.color(QPalette::WindowText) == yellow, scheme);
                const QImage picture = dialog->grab().toImage();
                QCOMPARE(picture.pixelColor(20, 115) == blue, scheme);
                QVERIFY(picture.pixelColor(200, 140) != blue); // the button
                dialog->reject();
            });
            ZndvMsg("\r\rText", "OK", "Zendova Title", false, 1);
            window->DisplayCS->trigger();
        }
    }

    void mapIsATable()
    {
        FontMap &panel = *window->FMapContainer;
        QAccessibleInterface *map = speaker(panel.CharButton);
        QCOMPARE(map->role(), QAccessible::List);
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
        QVERIFY(accented->state().selectable);
        panel.CharButton->setCaption(cellOf(233), {});
        panel.CharInfo.at(cellOf(233)) = {};
        QCOMPARE(accented->text(QAccessible::Name), QString("Empty"));
        const QSignalSpy picked(&panel, &FontMap::CharacterPicked);
        QAccessibleActionInterface *actions = letter->actionInterface();
        actions->doAction(actions->actionNames().value(0));
        QCOMPARE(picked.value(0).value(0).toString(), QString("A"));
        // A tool may still hold it.
        const QAccessible::Id gone = QAccessible::uniqueId(map->child(5));
        desktop->Window.reset();
        const QAccessibleInterface *left = QAccessible::accessibleInterface(gone);
        QVERIFY(!left || !left->isValid());
    }

    void locksAreShown()
    {
        const auto keyboard = std::make_shared<std::optional<LockState>>();
        window->StatBar->locks().readFrom([keyboard] { return *keyboard; });
        for (const auto &[state, shown, told] :
             {std::tuple(std::optional<LockState>(), "000", "unknown"),
              {LockState{.Num = true}, "100", "on"},
              {LockState{.Caps = true, .Scroll = true}, "011", "off"},
              {{}, "000", "unknown"}}) {
            *keyboard = state;
            QEvent activation(QEvent::WindowActivate);
            QApplication::sendEvent(window, &activation);
            QString on;
            for (const char *name : {"NUM", "CAPS", "SCRL"})
                on += window->findChild<QLabel *>(name)->isEnabled() ? '1' : '0';
            QCOMPARE(on, QString(shown));
            QCOMPARE(speaker(window->findChild<QLabel *>("NUM"))->text(QAccessible::Description),
                     QString(told));
        }
    }

    void changesUnderADialog()
    {
        window->FMapContainer->sldSetFMapSize->setValue(18);
        QTest::keyClicks(board(), "abc");
        desktop->Dialogs.dialog("Pick A Color for TextBoard Font", [&](QDialog *dialog) {
            QVERIFY(!window->close()); // and asks nothing
            desktop->Screen->pretend(SysInfo::Screen{{1280, 1024}, {}, 120});
            QCOMPARE(window->FMapContainer->SizeIndex, 11);
            desktop->Screen->pretend(SysInfo::Screen{{1024, 768}, {}, 96});
            QCOMPARE(window->FMapContainer->SizeIndex, 9);
            QVERIFY(dialog->isVisible());
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        window->ShowColorPicker();
        expect(Says::Exit, "Yes");
        QVERIFY(desktop->close());
    }

    void contextMenus()
    {
        const auto openMenu = [] {
            return qobject_cast<QMenu *>(QApplication::activePopupWidget());
        };
        QTest::keyClicks(board(), "ba");
        keys("Shift+Left");
        rightClick(window, board()->viewport());
        QMenu *menu = openMenu();
        QCOMPARE(menu, window->findChild<QMenu *>("ItemEdit"));
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(board()->Text(), QString("b"));
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {5, 5},
                                  board()->mapToGlobal(QPoint()));
        QApplication::sendEvent(board(), &menuKey);
        QCOMPARE(openMenu(), menu);
        QVERIFY(!menuItem(window, "EditCut")->isEnabled());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(board()->hasFocus());
        press("Find");
        rightClick(window, window->FindFrame->FindString);
        menu = openMenu();
        QVERIFY(menu && menu->actions().at(0)->text().endsWith("\tCtrl+Z")); // the box's own
        for (const QAction *item : menu->actions())
            for (const char *key : {"Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A"})
                QVERIFY2(!item->text().endsWith(key), key);
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(window->FindFrame->FindString->hasFocus());
    }
};

ZENDOVA_WINDOW_TEST(TestDesktop)
#include "tst_desktop.moc"
