// What the desktop does to the running window: assistive tools that ask what is there, the colours
// changed while it runs, lock keys, a request to close and a change of the display while a dialog
// is open.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/FontCatalog.h"
#include "platform/KeyboardLocks.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <set>

namespace {

QAccessibleInterface *speaker(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString nameOf(QObject *object)
{
    return speaker(object)->text(QAccessible::Name);
}

/// Every control below the parent, hidden ones too, but not the insides of the toolkit's own.
QWidgetList controlsBelow(QWidget *parent)
{
    QWidgetList found;
    for (QWidget *child : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() || child->objectName().startsWith("qt_"))
            continue;
        found += child;
        if (!child->inherits("QAbstractScrollArea") && !child->inherits("QComboBox") &&
            !child->inherits("QLineEdit"))
            found += controlsBelow(child);
    }
    return found;
}

QList<bool> locksShown(const Zendova *window)
{
    QList<bool> on;
    for (const char *name : {"NUM", "CAPS", "SCRL"})
        on += window->StatBar->findChild<QLabel *>(name)->isEnabled();
    return on;
}

} // namespace

class TestDesktop : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void everythingHasAName();
    void mapIsATable();
    void colorsChangeWhileRunning();
    void locksAreShown();
    void changesUnderADialog();
};

void TestDesktop::everythingHasAName()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    hover(window, cellOf('A')); // the labels of the views show texts
    std::set<QString> focusable;
    for (QWidget *control : controlsBelow(window->Client)) {
        const QByteArray which =
            control->objectName().toUtf8() + control->metaObject()->className();
        const QAccessibleInterface *told = speaker(control);
        QVERIFY2(told && told->isValid() && told->role() != QAccessible::NoRole, which);
        // The name of a loaded map is empty where there is none.
        if (told->role() == QAccessible::Separator ||
            control == window->FMapContainer->lblCFMName ||
            control == window->TBPContainer->ProgressFore)
            continue;
        QVERIFY2(!nameOf(control).trimmed().isEmpty(), which);
        if (control->focusPolicy() != Qt::NoFocus)
            QVERIFY2(focusable.insert(nameOf(control)).second, which);
    }
    QVERIFY(focusable.size() >= 5);
    // The labels that stand before a control are told with it.
    for (const char *name : {"FontLabel", "FontSizeLabel", "ZoomSizeLabel", "MapSizeLabel"}) {
        const auto *label = window->findChild<QLabel *>(name);
        QVERIFY2(label->buddy(), name);
        const auto labels = speaker(label->buddy())->relations(QAccessible::Label);
        QVERIFY2(labels.size() == 1 && labels[0].first->object() == label, name);
    }
    QCOMPARE(nameOf(window->FontFormatTB->button("Bold")), QString("Toggle Bold Style"));
    QCOMPARE(speaker(window->ViewsContainer->ViewsTB)->role(), QAccessible::ToolBar);
}

void TestDesktop::mapIsATable()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QAccessibleInterface *map = speaker(window->FMapContainer->CharButton);
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

    const auto reading = [&](int code) {
        return map->child(cellOf(code))->text(QAccessible::Name);
    };
    QCOMPARE(reading('A'), QString("65, A, A"));
    QCOMPARE(reading(233), QString("233, é, Alt+0233"));
    hover(window, cellOf(233));
    QCOMPARE(map->focusChild(), map->child(cellOf(233)));
    QVERIFY(map->child(cellOf(233))->state().active && !map->child(cellOf('B'))->state().active);
    QCOMPARE(speaker(window->ViewsContainer->TextZoom)->text(QAccessible::Description),
             QString("é"));
    // Of a map that leaves the cell empty.
    window->FMapContainer->CharButton->setCaption(cellOf(233), {});
    window->FMapContainer->CharInfo.at(cellOf(233)) = {};
    QCOMPARE(reading(233), QString("Empty"));

    QAccessibleActionInterface *actions = map->child(cellOf('Q'))->actionInterface();
    actions->doAction(actions->actionNames().value(0));
    QCOMPARE(window->TextBoard->Text(), QString("Q"));
    // A tool may still hold what is gone.
    const QAccessible::Id id = QAccessible::uniqueId(map->child(5));
    desktop.Window.reset();
    const QAccessibleInterface *left = QAccessible::accessibleInterface(id);
    QVERIFY(!left || !left->isValid());
}

void TestDesktop::colorsChangeWhileRunning()
{
    const QPalette light(QColor(240, 240, 240), QColor(240, 240, 240));
    QPalette dark(QColor(60, 60, 60), QColor(45, 45, 45));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(230, 230, 230));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));

    QApplication::setPalette(light);
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto pixel = [](const QImage &image) { return image.pixelColor(2, 2); };
    const auto sample = [window](std::size_t label) {
        return window->SampleText[label]->palette().color(QPalette::WindowText);
    };
    for (const QPalette &palette : {dark, light}) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        QCOMPARE(pixel(pictureOf(window->FMapContainer->CharButton, 0)),
                 palette.color(QPalette::Base));
        QCOMPARE(pixel(window->ViewsContainer->TextZoom->grab().toImage()),
                 palette.color(QPalette::Base));
        QCOMPARE(sample(0), palette.color(QPalette::Base));
        QCOMPARE(sample(1), palette.color(QPalette::Text));
        // Paper stays paper, with the ink that was chosen.
        QCOMPARE(pixel(pictureOf(window->TextBoard)), QColor(Qt::white));
        QCOMPARE(window->TextBoard->ForeColor(), QColor(Qt::black));
    }
    // Colours of the map's own are no colours of the desktop's.
    window->FMapContainer->Fore.Color = RGBValue(10, 20, 30);
    window->FMapContainer->Back.Color = RGBValue(200, 210, 220);
    window->FMapContainer->ApplyFontMapColors(true, window->FMapContainer->Fore.Color, true,
                                              window->FMapContainer->Back.Color);
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    QCOMPARE(pixel(pictureOf(window->FMapContainer->CharButton, 0)), QColor(200, 210, 220));
    QCOMPARE(sample(1), QColor(10, 20, 30));
}

void TestDesktop::locksAreShown()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    // The platform of the tests has no keyboard: nothing is known, nothing is lit.
    QCOMPARE(locksShown(window), QList({false, false, false}));
    std::optional<LockState> keyboard = LockState{.Num = true};
    window->StatBar->locks().readFrom([&keyboard] { return keyboard; });
    const auto comesBack = [window] {
        QEvent activation(QEvent::WindowActivate);
        QApplication::sendEvent(window, &activation);
    };
    comesBack();
    QCOMPARE(locksShown(window), QList({true, false, false}));
    QCOMPARE(speaker(window->StatBar->findChild<QLabel *>("NUM"))->text(QAccessible::Description),
             QString("on"));
    keyboard = LockState{.Caps = true, .Scroll = true};
    window->StatBar->locks().refresh(); // as at the press of a lock key
    QCOMPARE(locksShown(window), QList({false, true, true}));
    keyboard.reset();
    comesBack();
    QCOMPARE(locksShown(window), QList({false, false, false}));
}

void TestDesktop::changesUnderADialog()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->FMapContainer->sldSetFMapSize->setValue(18);
    QTest::keyClicks(window->TextBoard, "abc");
    desktop.Dialogs.dialog("Pick A Color for TextBoard Font", [&](QDialog *dialog) {
        QVERIFY(!window->close()); // and asks nothing
        desktop.Screen->pretend(SysInfo::Screen{{1280, 1024}, {}, 120});
        QCOMPARE(window->FMapContainer->SizeIndex, 11);
        desktop.Screen->pretend(SysInfo::Screen{{1024, 768}, {}, 96});
        QCOMPARE(window->FMapContainer->SizeIndex, 9);
        QVERIFY(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    window->ShowColorPicker();
    QVERIFY(window->isVisible());
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
    desktop.Dialogs.message("Zendova Exit Warning", "Discard text", "Yes");
    QVERIFY(desktop.close());
    QVERIFY(desktop.Dialogs.allCame());
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestDesktop>(argc, argv);
}

#include "tst_desktop.moc"
