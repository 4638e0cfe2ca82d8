// What the desktop does to the running window: assistive tools that ask what is there, the colours
// changed while it runs, lock keys, a request to close and a change of the display while a dialog
// is open.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "platform/FontCatalog.h"
#include "platform/KeyboardLocks.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QTest>
#include <functional>
#include <set>

namespace {

using Interface = QAccessibleInterface;

const Interface *speaker(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString nameOf(QObject *object)
{
    return speaker(object)->text(QAccessible::Name);
}

/// Every control below the parent, hidden ones too, but not the insides of the toolkit's own.
void walk(QWidget *parent, const std::function<void(QWidget *)> &see)
{
    for (QWidget *child : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() || child->objectName().startsWith("qt_"))
            continue;
        see(child);
        if (!child->inherits("QAbstractScrollArea") && !child->inherits("QComboBox") &&
            !child->inherits("QLineEdit"))
            walk(child, see);
    }
}

QPalette darkDesktop()
{
    QPalette dark(QColor(60, 60, 60), QColor(45, 45, 45));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(230, 230, 230));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    return dark;
}

/// The mean lightness of the pixels of a control that differ from its corner: of its drawing.
int inkOf(QWidget *control)
{
    const QImage image = control->grab().toImage();
    const QRgb ground = image.pixel(2, 2);
    int sum = 0;
    int count = 0;
    for (int y = 2; y < image.height() - 2; ++y)
        for (int x = 2; x < image.width() - 2; ++x)
            if (qAbs(qGray(image.pixel(x, y)) - qGray(ground)) > 60) {
                sum += qGray(image.pixel(x, y));
                ++count;
            }
    return count ? sum / count : -1;
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
    void initTestCase();
    void cleanup() { QApplication::setPalette(QPalette()); }

    void everythingHasAName();
    void mapIsATable();
    void cellsSpeak_data();
    void cellsSpeak();
    void cellIsPressed();
    void colorsChangeWhileRunning();
    void locksAreShown();
    void closeWhileADialogIsOpen();
    void displayChangesUnderADialog_data();
    void displayChangesUnderADialog();

private:
    QByteArray Settings;
};

void TestDesktop::initTestCase()
{
    Desktop desktop;
    desktop.start();
    QVERIFY(desktop.close());
    Settings = desktop.settingsBytes();
}

void TestDesktop::everythingHasAName()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    hover(window, cellOf('A')); // the labels of the views show texts
    std::set<QString> focusable;
    int seen = 0;
    walk(window->Client, [&](QWidget *control) {
        const Interface *told = speaker(control);
        const QString control2 = control->objectName() + ' ' + control->metaObject()->className();
        QVERIFY2(told && told->isValid(), qPrintable(control2));
        QVERIFY2(told->role() != QAccessible::NoRole, qPrintable(control2));
        if (told->role() == QAccessible::Separator)
            return;
        ++seen;
        // The name of a loaded map, where there is none.
        if (control == window->lblCFMName || control == window->ProgressFore)
            return;
        QVERIFY2(!told->text(QAccessible::Name).trimmed().isEmpty(), qPrintable(control2));
        if (control->focusPolicy() != Qt::NoFocus)
            QVERIFY2(focusable.insert(told->text(QAccessible::Name)).second, qPrintable(control2));
    });
    QVERIFY(seen > 80);
    // The labels that stand before a control are told with it.
    for (const char *name : {"FontLabel", "FontSizeLabel", "ZoomSizeLabel", "MapSizeLabel"}) {
        const auto *label = qobject_cast<QLabel *>(window->Control(name));
        QVERIFY2(label->buddy(), name);
        QCOMPARE(label->buddy()->parentWidget(), label->parentWidget());
        const auto labels = speaker(label->buddy())->relations(QAccessible::Label);
        QVERIFY2(labels.size() == 1 && labels[0].first->object() == label, name);
    }
    QVERIFY(focusable.size() >= 5);
    QCOMPARE(nameOf(window->tlbCFMapFmt->button("FMap+")), QString("Increase FontMap Size"));
    QCOMPARE(nameOf(window->FontFormatTB->button("Bold")), QString("Toggle Bold Style"));
    QCOMPARE(speaker(window->ViewsTB)->role(), QAccessible::ToolBar);
    QCOMPARE(speaker(window->ViewsTB->button("Zoom"))->role(), QAccessible::CheckBox);
    QVERIFY(speaker(window->ViewsTB->button("Zoom"))->state().checked);
}

void TestDesktop::mapIsATable()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    Interface *map = QAccessible::queryAccessibleInterface(window->CharButton);
    QCOMPARE(map->role(), QAccessible::Table);
    QAccessibleTableInterface *table = map->tableInterface();
    QVERIFY(table);
    QCOMPARE(table->rowCount(), 8);
    QCOMPARE(table->columnCount(), 28);
    QCOMPARE(map->childCount(), 224);
    QVERIFY(!table->cellAt(8, 0) && !table->cellAt(0, 28) && !table->cellAt(-1, 0));
    QVERIFY(!map->child(224));
    for (const int index : {0, 27, 28, 100, 223}) {
        Interface *cell = table->cellAt(index / 28, index % 28);
        QCOMPARE(cell, map->child(index));
        QCOMPARE(map->indexOfChild(cell), index);
        QCOMPARE(cell->parent(), map);
        QCOMPARE(cell->tableCellInterface()->rowIndex(), index / 28);
        QCOMPARE(cell->tableCellInterface()->columnIndex(), index % 28);
        QCOMPARE(map->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
        QCOMPARE(cell->rect().size(), window->CharButton->pixels(index).size());
    }
    hover(window, cellOf('A'));
    QCOMPARE(map->focusChild(), map->child(cellOf('A')));
    QVERIFY(map->child(cellOf('A'))->state().active);
    QVERIFY(!map->child(cellOf('B'))->state().active);
    // A tool may still hold what is gone.
    const QAccessible::Id id = QAccessible::uniqueId(map->child(5));
    QVERIFY(desktop.close());
    desktop.Window.reset();
    const Interface *left = QAccessible::accessibleInterface(id);
    QVERIFY(!left || !left->isValid());
}

void TestDesktop::cellsSpeak_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("blank") << 32 << "32, Space Bar";
    QTest::newRow("letter") << 65 << "65, A, A";
    QTest::newRow("no key types it") << 233 << QString("233, \u00E9, Alt+0233");
    QTest::newRow("last") << 255 << QString("255, \u00FF, Alt+0255");
}

void TestDesktop::cellsSpeak()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    const Interface *cell = speaker(window->CharButton)->child(cellOf(code));
    QCOMPARE(cell->text(QAccessible::Name), text);
    hover(window, cellOf(code));
    QCOMPARE(nameOf(window->TextZoom), QString("Zoom View Area"));
    QCOMPARE(speaker(window->TextZoom)->text(QAccessible::Description), CharacterOf(code));
    // Of a map that leaves the cell empty.
    window->CharButton->setCaption(cellOf(code), {});
    window->CharInfo.at(static_cast<std::size_t>(cellOf(code))) = {};
    QCOMPARE(cell->text(QAccessible::Name), QString("Empty"));
}

void TestDesktop::cellIsPressed()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    Interface *cell = QAccessible::queryAccessibleInterface(window->CharButton)->child(cellOf('Q'));
    QAccessibleActionInterface *actions = cell->actionInterface();
    QVERIFY(actions);
    actions->doAction(actions->actionNames().value(0));
    QCOMPARE(window->TextBoard->Text(), QString("Q"));
}

void TestDesktop::colorsChangeWhileRunning()
{
    QApplication::setPalette(QPalette(QColor(240, 240, 240), QColor(240, 240, 240)));
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    QTest::keyClicks(window->TextBoard, "text");
    window->ShowFindBar(1);
    QTest::keyClicks(window->Control("FindString"), "t"); // lets its buttons work
    QWidget *const drawn[] = {window->ViewsTB->button("Zoom"), window->FontLabel,
                              window->Control("ASCLabel"),     window->PercFilled,
                              window->Control("FindStrLabel"), window->Control("FindNextButton")};
    for (QWidget *control : drawn)
        QVERIFY2(inkOf(control) < 128, qPrintable(control->objectName()));
    const auto ground = [window](int cell) {
        return pictureOf(window->CharButton, cell).pixelColor(2, 2);
    };
    const QColor paper = window->TextBoard->viewport()->grab().toImage().pixelColor(5, 50);
    QCOMPARE(paper, QColor(Qt::white));

    const QPalette dark = darkDesktop();
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    for (QWidget *control : drawn)
        QVERIFY2(inkOf(control) > 128, qPrintable(control->objectName()));
    // The map's colours are the desktop's window text on its window background.
    QCOMPARE(ground(0), dark.color(QPalette::Base));
    QCOMPARE(window->TextZoom->grab().toImage().pixelColor(2, 2), dark.color(QPalette::Base));
    QCOMPARE(window->SampleText[0]->palette().color(QPalette::WindowText),
             dark.color(QPalette::Base));
    QCOMPARE(window->SampleText[1]->palette().color(QPalette::WindowText),
             dark.color(QPalette::Text));
    QCOMPARE(window->Client->grab().toImage().pixelColor(1, 100), dark.color(QPalette::Window));
    QCOMPARE(window->ProgressBack->palette().color(QPalette::WindowText),
             dark.color(QPalette::WindowText));
    // Paper stays paper, with the ink that was chosen.
    QCOMPARE(window->TextBoard->viewport()->grab().toImage().pixelColor(5, 50), paper);
    QCOMPARE(window->TextBoard->ForeColor(), QColor(Qt::black));

    // Colours of the map's own are no colours of the desktop's.
    window->ForeColor = RGBValue(10, 20, 30);
    window->BackColor = RGBValue(200, 210, 220);
    window->ApplyFontMapColors(true, window->ForeColor, true, window->BackColor);
    QApplication::setPalette(QPalette(QColor(240, 240, 240), QColor(240, 240, 240)));
    QCoreApplication::processEvents();
    QCOMPARE(ground(0), QColor(200, 210, 220));
    QCOMPARE(window->SampleText[1]->palette().color(QPalette::WindowText), QColor(10, 20, 30));
    for (QWidget *control : drawn)
        QVERIFY2(inkOf(control) < 128, qPrintable(control->objectName()));
}

void TestDesktop::locksAreShown()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    // The platform of the tests has no keyboard: nothing is known, nothing is lit.
    QVERIFY(!window->Locks->state());
    QCOMPARE(locksShown(window), QList<bool>({false, false, false}));
    std::optional<LockState> keyboard;
    window->Locks->readFrom([&keyboard] { return keyboard; });
    const auto comesBack = [window] {
        QEvent activation(QEvent::WindowActivate);
        QApplication::sendEvent(window, &activation);
    };
    keyboard = LockState{.Num = true};
    comesBack();
    QCOMPARE(locksShown(window), QList<bool>({true, false, false}));
    QCOMPARE(speaker(window->StatBar->findChild<QLabel *>("NUM"))->text(QAccessible::Description),
             QString("on"));
    keyboard = LockState{.Caps = true, .Scroll = true};
    QCOMPARE(locksShown(window), QList<bool>({true, false, false}));
    window->Locks->refresh(); // as at the press of a lock key
    QCOMPARE(locksShown(window), QList<bool>({false, true, true}));
    keyboard.reset();
    comesBack();
    QCOMPARE(locksShown(window), QList<bool>({false, false, false}));
}

void TestDesktop::closeWhileADialogIsOpen()
{
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    QTest::keyClicks(window->TextBoard, "abc");
    bool closed = true;
    desktop.Dialogs.dialog("Pick A Color for TextBoard Font", [&](QDialog *dialog) {
        closed = window->close();
        QVERIFY(dialog->isVisible());
        dialog->reject();
    });
    window->ShowColorPicker();
    QVERIFY(!closed);
    QVERIFY(window->isVisible());
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
    window->TextBoard->setText({});
    QVERIFY(desktop.close());
    QVERIFY(desktop.Dialogs.allCame());
}

void TestDesktop::displayChangesUnderADialog_data()
{
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<double>("dotsPerInch");
    QTest::addColumn<int>("mapSize"); // of 18 before
    QTest::newRow("narrower") << QSize(1024, 768) << 96.0 << 9;
    QTest::newRow("wider") << QSize(1920, 1200) << 96.0 << 18;
    QTest::newRow("denser") << QSize(1280, 1024) << 120.0 << 11;
}

void TestDesktop::displayChangesUnderADialog()
{
    QFETCH(QSize, pixels);
    QFETCH(double, dotsPerInch);
    QFETCH(int, mapSize);
    Desktop desktop({1280, 1024}, 96, Settings);
    Zendova *window = desktop.startAsItIs();
    window->sldSetFMapSize->setValue(18);
    QTest::keyClicks(window->TextBoard, "abc");
    desktop.Dialogs.dialog("Pick A Color for TextBoard Font", [&](QDialog *dialog) {
        desktop.Screen->pretend(SysInfo::Screen{pixels, {}, dotsPerInch});
        QVERIFY(window->DisplayEventSeen);
        QVERIFY(dialog->isVisible());
        QVERIFY(!window->close());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    window->ShowColorPicker();
    QCOMPARE(window->SizeIndex, mapSize);
    QCOMPARE(window->TextBoard->Text(), QString("abc"));
    QVERIFY(window->isVisible());
    desktop.Dialogs.message("Zendova Exit Warning", "Discard text", "Yes");
    QVERIFY(desktop.close());
    QVERIFY(desktop.Dialogs.allCame());
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestDesktop test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_desktop.moc"
