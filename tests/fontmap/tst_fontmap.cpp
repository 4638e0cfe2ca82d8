// The map and the views as a person meets them: the grid at every size, the ways to change the
// size, clicks, the mouse passing over, and which glyph is really drawn in a cell.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSlider>
#include <QTest>

namespace {

const QSize Wide1024(1024, 1600); // high enough to pull the split bar down
const QSize Wide800(800, 600);

} // namespace

class TestFontMap : public QObject
{
    Q_OBJECT

private slots:
    void gridAtEverySize_data();
    void gridAtEverySize();
    void sizeBox_data();
    void sizeBox();
    void sizeBoxLosesFocus();
    void thumbShowsItsNumberOnly();
    void sizeCommands_data();
    void sizeCommands();
    void storedSizeTooLarge_data();
    void storedSizeTooLarge();
    void screenGetsNarrower();
    void clickInsertsTheCharacter();
    void otherButtonsInsertNothing();
    void hoverFeedsTheViews_data();
    void hoverFeedsTheViews();
    void viewsSwitchOneByOne_data();
    void viewsSwitchOneByOne();
    void allViewsAtOnce();
    void viewsOfferOneCommand_data();
    void viewsOfferOneCommand();
    void viewsOfferByKey();
    void zoomSize_data();
    void zoomSize();
    void zoomThumb();
    void highlightFollowsTheMouse();
    void gridLines();
    void showsTheFontsOwnGlyphs_data();
    void showsTheFontsOwnGlyphs();
    void zoomShowsTheGlyph();
    void boardShowsSymbolsAsTheMap_data();
    void boardShowsSymbolsAsTheMap();
};

void TestFontMap::gridAtEverySize_data()
{
    QTest::addColumn<QList<int>>("sizes"); // one after the other; the last one is looked at
    QTest::newRow("smallest") << QList<int>{1};
    QTest::newRow("largest") << QList<int>{9};
    QTest::newRow("there and back") << QList<int>{3, 7, 3};
    QTest::newRow("through the whole range") << QList<int>{1, 9, 1};
    QTest::newRow("one by one") << QList<int>{1, 2, 3, 4, 5, 4, 5};
}

void TestFontMap::gridAtEverySize()
{
    QFETCH(QList<int>, sizes);
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    for (const int size : sizes)
        window->sldSetFMapSize->setValue(size);
    const int steps = sizes.last() - 1;
    QCOMPARE(window->SizeIndex, sizes.last());
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString::number(sizes.last()));

    const CharCells *cells = window->CharButton;
    const double pitch = 405 + 15 * steps;
    for (int cell = 0; cell < CellCount; ++cell) {
        const int column = cell % 28;
        const int row = cell / 28;
        QCOMPARE(cells->place(cell), (TwipRect{.Left = pitch * column,
                                               .Top = 375 + pitch * row,
                                               .Width = pitch + 15,
                                               .Height = pitch + 15}));
        // Neighbours share one line of pixels.
        if (column > 0)
            QCOMPARE(cells->pixels(cell).left(), cells->pixels(cell - 1).right());
        if (row > 0)
            QCOMPARE(cells->pixels(cell).top(), cells->pixels(cell - 28).bottom());
    }
    QCOMPARE(cells->pixels(0).size(), QSize(28 + steps, 28 + steps));
    QCOMPARE(window->Client->size(), QSize(772 + 28 * steps, 546 + 8 * steps));
    const QRect inside(QPoint(), window->FMapContainer->size());
    QVERIFY(inside.contains(cells->pixels(0)) && inside.contains(cells->pixels(CellCount - 1)));
    QVERIFY(window->Client->rect().contains(window->FMapContainer->geometry()));
}

void TestFontMap::sizeBox_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("size");
    const auto row = [](const char *name, const QString &typed, Qt::Key key, int size) {
        QTest::newRow(name) << typed << static_cast<int>(key) << size;
    };
    row("a size", "7", Qt::Key_Return, 7);
    row("number pad's Enter", "2", Qt::Key_Enter, 2);
    row("too large", "99", Qt::Key_Return, 9);
    row("far too large", "99999999999", Qt::Key_Return, 9);
    row("nought", "0", Qt::Key_Return, 1);
    row("negative", "-3", Qt::Key_Return, 1);
    row("no number", "abc", Qt::Key_Return, 1);
    row("with a fraction", "6.7", Qt::Key_Return, 7);
    row("half to the even", "4.5", Qt::Key_Return, 4);
    row("blanks", "   ", Qt::Key_Return, 1);
    row("blanks round it", " 7 ", Qt::Key_Return, 7);
    row("nothing", "", Qt::Key_Return, 1);
    row("Esc", "7", Qt::Key_Escape, 4);
}

void TestFontMap::sizeBox()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(int, size);
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(4);
    QVERIFY(fillNumberBox(window->sldSetFMapSize, typed, static_cast<Qt::Key>(key)));
    QCOMPARE(window->SizeIndex, size);
    QCOMPARE(window->sldSetFMapSize->value(), size);
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString::number(size));
    QCOMPARE(window->CharButton->pixels(0).width(), 27 + size);
    QVERIFY(window->TextBoard->hasFocus());
}

void TestFontMap::sizeBoxLosesFocus()
{
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(4);
    QVERIFY(fillNumberBox(window->sldSetFMapSize, "7", Qt::Key(0)));
    QTest::mouseClick(window->TextBoard->viewport(), Qt::LeftButton);
    QVERIFY(!window->sldSetFMapSize->edit()->isVisible());
    QCOMPARE(window->SizeIndex, 4);
}

void TestFontMap::thumbShowsItsNumberOnly()
{
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(4);
    QSlider *slider = window->sldSetFMapSize->slider();
    slider->setSliderDown(true);
    slider->setSliderPosition(8);
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString("8"));
    QCOMPARE(window->CharButton->pixels(0).width(), 31);
    slider->setSliderDown(false);
    QCOMPARE(window->CharButton->pixels(0).width(), 35);
    QVERIFY(window->TextBoard->hasFocus());
}

void TestFontMap::sizeCommands_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("pulledDown");
    QTest::addColumn<bool>("realigned");
    QTest::addColumn<QString>("on"); // of larger, smaller, slider, realign, split bar
    const auto row = [](const char *name, const QSize &screen, int size, bool down, bool back,
                        const char *on) {
        QTest::newRow(name) << screen << size << down << back << on;
    };
    row("800 wide", Wide800, 1, false, false, "");
    row("smallest", Wide1024, 1, false, false, "larger slider split");
    row("between", Wide1024, 4, false, false, "larger smaller slider split");
    row("largest", Wide1024, 9, false, false, "smaller slider split");
    row("pulled down", Wide1024, 4, true, false, "realign split");
    row("largest, pulled down", Wide1024, 9, true, false, "realign split");
    row("smallest, pulled down", Wide1024, 1, true, false, "realign split");
    row("realigned", Wide1024, 4, true, true, "larger smaller slider split");
    row("largest, realigned", Wide1024, 9, true, true, "smaller slider split");
    row("smallest, realigned", Wide1024, 1, true, true, "larger slider split");
}

void TestFontMap::sizeCommands()
{
    QFETCH(QSize, screen);
    QFETCH(int, size);
    QFETCH(bool, pulledDown);
    QFETCH(bool, realigned);
    QFETCH(QString, on);
    Desktop desktop(screen);
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(size);
    QCOMPARE(window->SizeIndex, size);
    const int top = window->FMapContainer->y();
    if (pulledDown) {
        const QPoint grip(50, 1);
        QTest::mousePress(window->SplitBar, Qt::LeftButton, {}, grip);
        QTest::mouseMove(window->SplitBar, grip + QPoint(0, 100));
        QTest::mouseRelease(window->SplitBar, Qt::LeftButton, {}, grip);
        QVERIFY(window->FMapContainer->y() > top + 90);
    }
    if (realigned) {
        QTest::mouseClick(window->tlbCFMapFmt->button("RAFMap"), Qt::LeftButton);
        QCOMPARE(window->FMapContainer->y(), top);
    }
    const auto isOn = [&on](const char *command) { return on.split(' ').contains(command); };
    QCOMPARE(window->tlbCFMapFmt->button("FMap+")->isEnabled(), isOn("larger"));
    QCOMPARE(window->FMLarger->isEnabled(), isOn("larger"));
    QCOMPARE(window->tlbCFMapFmt->button("FMap-")->isEnabled(), isOn("smaller"));
    QCOMPARE(window->FMSmaller->isEnabled(), isOn("smaller"));
    QCOMPARE(window->tlbCFMapFmt->button("RAFMap")->isEnabled(), isOn("realign"));
    QCOMPARE(window->FMRealign->isEnabled(), isOn("realign"));
    QCOMPARE(window->SplitBar->isVisible(), isOn("split"));
    QCOMPARE(window->sldSetFMapSize->slider()->isEnabled(), isOn("slider"));

    // What is off does nothing, what is on goes one step.
    QTest::mouseClick(window->sldSetFMapSize->number(), Qt::LeftButton);
    QCOMPARE(window->sldSetFMapSize->edit()->isVisible(), isOn("slider"));
    QTest::mouseClick(window->tlbCFMapFmt->button("FMap+"), Qt::LeftButton);
    QCOMPARE(window->SizeIndex, isOn("larger") ? size + 1 : size);
    window->sldSetFMapSize->setValue(size);
    window->FMSmaller->trigger();
    QCOMPARE(window->SizeIndex, isOn("smaller") ? size - 1 : size);
}

void TestFontMap::storedSizeTooLarge_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<int>("size"); // of 18 before
    QTest::newRow("1024 wide") << Wide1024 << 9;
    QTest::newRow("800 wide") << Wide800 << 1;
}

void TestFontMap::storedSizeTooLarge()
{
    QFETCH(QSize, screen);
    QFETCH(int, size);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(18);
    QVERIFY(desktop.close());
    desktop.Screen->pretend(SysInfo::Screen{screen, {}, 96});
    desktop.Dialogs.message("Zendova FontMap Size Error",
                            "The last used FontMap size cannot be accommodated", "Ok");
    window = desktop.startAsItIs();
    QVERIFY(desktop.Dialogs.allCame());
    QCOMPARE(window->SizeIndex, size);
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString::number(size));
    QCOMPARE(window->CharButton->pixels(0).width(), 27 + size);
    QCOMPARE(window->Client->size(), QSize(772 + 28 * (size - 1), 546 + 8 * (size - 1)));
    QVERIFY(window->Client->rect().contains(window->FMapContainer->geometry()));
    QVERIFY(desktop.close());
    desktop.startAsItIs(); // the size that fits was stored: no second message
    QVERIFY(desktop.Dialogs.allCame());
}

void TestFontMap::screenGetsNarrower()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(18);
    desktop.Screen->pretend(SysInfo::Screen{Wide1024, {}, 96});
    QCOMPARE(window->SizeIndex, 9);
    QCOMPARE(window->CharButton->pixels(0).width(), 36);
    QCOMPARE(window->Client->size(), QSize(772 + 28 * 8, 546 + 8 * 8));
    for (const QWidget *area : {static_cast<QWidget *>(window->TextBoard), window->StatBar,
                                window->FMapContainer, window->SplitBar})
        QVERIFY2(window->Client->rect().contains(area->geometry()), qPrintable(area->objectName()));
}

void TestFontMap::clickInsertsTheCharacter()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    window->FontNameCombo->setFocus();
    QTest::keyClick(window->TextBoard, Qt::Key_Left);
    clickCell(window, cellOf('Z'));
    QVERIFY(window->TextBoard->hasFocus());
    QTest::keyClicks(window->TextBoard, "!"); // goes on behind the new character
    clickCell(window, cellOf(0x80));
    clickCell(window, cellOf(255));
    clickCell(window, cellOf(173));
    QCOMPARE(window->TextBoard->Text(), QString("aZ!\u20AC\u00FF\u00ADb"));
    window->TextBoard->selectAll();
    clickCell(window, cellOf(' '));
    QCOMPARE(window->TextBoard->Text(), QString(" "));
    // A click in quick succession is one more character, not a double click.
    const QPoint x = window->CharButton->pixels(cellOf('x')).center();
    QTest::mouseClick(window->CharButton, Qt::LeftButton, {}, x);
    QTest::mouseDClick(window->CharButton, Qt::LeftButton, {}, x);
    QCOMPARE(window->TextBoard->Text(), QString(" xx"));
}

void TestFontMap::otherButtonsInsertNothing()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    clickCell(window, cellOf('A'), Qt::MiddleButton);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
    clickCell(window, cellOf('A'), Qt::RightButton);
    QCOMPARE(QApplication::activePopupWidget(), window->FormatFM);
    QTest::keyClick(window->FormatFM, Qt::Key_Escape);
    QVERIFY(!window->FormatFM->isVisible());
    QCOMPARE(window->TextBoard->Text(), QString());
}

void TestFontMap::hoverFeedsTheViews_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("zoomed");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char *name, int code, const QString &zoomed,
                        const QStringList &texts) {
        QTest::newRow(name) << code << zoomed << texts;
    };
    row("top left", 32, " ", {"32", "20", "40", "100000", "Space Bar"});
    row("a letter", 'A', "A", {"65", "41", "101", "1000001", "A"});
    row("mark-up character", '<', "<", {"60", "3C", "74", "111100", "<"});
    row("no key types it", 233, QString("\u00E9"), {"233", "E9", "351", "11101001", "Alt+0233"});
    row("undefined code", 0x81, QString("\u0081"), {"129", "81", "201", "10000001", "Alt+0129"});
    row("bottom right", 255, QString("\u00FF"), {"255", "FF", "377", "11111111", "Alt+0255"});
}

void TestFontMap::hoverFeedsTheViews()
{
    QFETCH(int, code);
    QFETCH(QString, zoomed);
    QFETCH(QStringList, texts);
    Desktop desktop;
    Zendova *window = desktop.start();
    hover(window, cellOf(code));
    QCOMPARE(window->TextZoom->Caption(0), zoomed);
    const auto shown = [window] {
        return QStringList{window->AscCode->text(), window->HexCode->text(),
                           window->OctCode->text(), window->BinCode->text(), window->KS->text()};
    };
    QCOMPARE(shown(), texts);
    // Beside the grid the last cell is still told of.
    QTest::mouseMove(window->windowHandle(), window->TextBoard->geometry().center());
    QCoreApplication::processEvents();
    QCOMPARE(shown(), texts);
}

void TestFontMap::viewsSwitchOneByOne_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("off"); // zoom size, decimal code, keystroke after a hover of A
    QTest::addColumn<QStringList>("on");  // the same, just switched on again
    QTest::newRow("zoom") << "ViewZoom"
                          << "Zoom" << QStringList{"Off", "65", "A"}
                          << QStringList{"72", "65", "A"};
    QTest::newRow("code") << "ViewCode"
                          << "Code" << QStringList{"72", "Off", "A"}
                          << QStringList{"72", "On", "A"};
    QTest::newRow("keystroke") << "ViewKS"
                               << "KS" << QStringList{"72", "65", "Off"}
                               << QStringList{"72", "65", "On"};
}

void TestFontMap::viewsSwitchOneByOne()
{
    QFETCH(QString, command);
    QFETCH(QString, button);
    QFETCH(QStringList, off);
    QFETCH(QStringList, on);
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto shown = [window] {
        return QStringList{window->ZoomSizeSlider->number()->text(), window->AscCode->text(),
                           window->KS->text()};
    };
    hover(window, cellOf('A'));
    QTest::mouseClick(window->ViewsTB->button(button), Qt::LeftButton);
    QAction *item = menuItem(window, qPrintable(command));
    QVERIFY(!item->isChecked());
    hover(window, cellOf('B'));
    hover(window, cellOf('A'));
    QCOMPARE(shown(), off);
    const bool zoomOff = command == "ViewZoom";
    QCOMPARE(window->TextZoom->Caption(0), zoomOff ? QString() : QString("A"));
    QTest::mouseClick(window->ZoomSizeSlider->number(), Qt::LeftButton);
    QCOMPARE(window->ZoomSizeSlider->edit()->isVisible(), !zoomOff);
    QCOMPARE(window->ZoomSizeSlider->slider()->isEnabled(), !zoomOff);
    item->trigger();
    QVERIFY(window->ViewsTB->button(button)->isChecked());
    QCOMPARE(shown(), on);
    QCOMPARE(window->LastCell, cellOf('A'));
}

void TestFontMap::allViewsAtOnce()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    auto *menu = window->findChild<QMenu *>("ItemView");
    const auto allMarked = [window, menu] {
        menu->popup({});
        menu->close();
        return window->ViewAll->isChecked();
    };
    QVERIFY(allMarked());
    window->ViewAll->trigger();
    QCOMPARE(window->BinCode->text(), QString("Off"));
    QCOMPARE(window->KS->text(), QString("Off"));
    QCOMPARE(window->ZoomSizeSlider->number()->text(), QString("Off"));
    hover(window, cellOf('A'));
    QCOMPARE(window->LastCell, cellOf('A'));
    QCOMPARE(window->TextZoom->Caption(0), QString());
    window->ViewCode->trigger();
    QVERIFY(!allMarked());
    window->ViewAll->trigger();
    QVERIFY(allMarked());
    QCOMPARE(window->KS->text(), QString("On"));
}

void TestFontMap::viewsOfferOneCommand_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("command"); // empty for no menu
    for (const char *name :
         {"TextZoom", "ZoomSizeLabel", "ZoomSizeNumber", "ZoomSizeSlider", "ViewsContainer"})
        QTest::newRow(name) << name << "ViewZoom";
    for (const char *name : {"CVACover", "ASCLabel", "AscCode", "HexLabel", "HexCode", "OctLabel",
                             "OctCode", "BinLabel", "BinCode"})
        QTest::newRow(name) << name << "ViewCode";
    for (const char *name : {"KVACover", "KSLabel", "KS"})
        QTest::newRow(name) << name << "ViewKS";
    QTest::newRow("ViewsTB") << "ViewsTB"
                             << "";
}

void TestFontMap::viewsOfferOneCommand()
{
    QFETCH(QString, control);
    QFETCH(QString, command);
    Desktop desktop;
    Zendova *window = desktop.start();
    const QWidget *view = window->Control(control);
    // The edge of a cover is no label's.
    const bool cover = control.endsWith("Cover");
    const QPoint at = cover
                          ? QPoint(2, 2)
                          : (control == "ViewsContainer" ? QPoint(60, 157) : view->rect().center());
    for (const bool on : {true, false}) {
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, view->mapTo(window, at));
        QWidget *menu = QApplication::activePopupWidget();
        QCOMPARE(menu != nullptr, !command.isEmpty());
        if (!menu)
            return;
        QAction *item = menuItem(window, qPrintable(command));
        QCOMPARE(menu->actions(), QList<QAction *>{item});
        QCOMPARE(item->isChecked(), on);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(item->isChecked(), !on);
        QVERIFY(!QApplication::activePopupWidget());
    }
    QCOMPARE(window->findChild<QMenu *>("ItemView")->actions().size(), 5);
}

void TestFontMap::viewsOfferByKey()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QSlider *slider = window->ZoomSizeSlider->slider();
    slider->setFocus();
    // What the window system makes of the menu key.
    const QPoint middle = slider->rect().center();
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, middle, slider->mapToGlobal(middle));
    QApplication::sendEvent(slider, &menuKey);
    QWidget *menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QCOMPARE(menu->actions(), QList<QAction *>{window->ViewZoom});
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(slider->hasFocus());
}

void TestFontMap::zoomSize_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("size");
    const auto row = [](const char *name, const QString &typed, Qt::Key key, int size) {
        QTest::newRow(name) << typed << static_cast<int>(key) << size;
    };
    row("a size", "30", Qt::Key_Return, 30);
    row("too large", "200", Qt::Key_Return, 72);
    row("too small", "7", Qt::Key_Return, 8);
    row("far too large", "99999999999", Qt::Key_Return, 72);
    row("negative", "-5", Qt::Key_Return, 8);
    row("with a fraction", "12.7", Qt::Key_Return, 13);
    row("blanks", "   ", Qt::Key_Return, 8);
    row("blanks round it", " 20 ", Qt::Key_Return, 20);
    row("no number", "abc", Qt::Key_Return, 8);
    row("nothing", "", Qt::Key_Return, 8);
    row("Esc", "20", Qt::Key_Escape, 40);
}

void TestFontMap::zoomSize()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(int, size);
    Desktop desktop;
    Zendova *window = desktop.start();
    window->ZoomSizeSlider->setValue(40);
    QVERIFY(fillNumberBox(window->ZoomSizeSlider, typed, static_cast<Qt::Key>(key)));
    QCOMPARE(window->ZoomSizeSlider->number()->text(), QString::number(size));
    QCOMPARE(window->ZoomSizeSlider->value(), size);
    QCOMPARE(window->TextZoom->cellFont().pointSize(), size);
    QVERIFY(window->TextBoard->hasFocus());
}

void TestFontMap::zoomThumb()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QSlider *slider = window->ZoomSizeSlider->slider();
    slider->setFocus();
    slider->setSliderDown(true);
    for (const int size : {30, 8, 51}) {
        slider->setSliderPosition(size);
        QCOMPARE(window->TextZoom->cellFont().pointSize(), size);
        QCOMPARE(window->ZoomSizeSlider->number()->text(), QString::number(size));
        QVERIFY(window->TextBoard->hasFocus());
    }
}

void TestFontMap::highlightFollowsTheMouse()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto ground = [window](int cell) {
        return pictureOf(window->CharButton, cell).pixelColor(2, 2);
    };
    const QColor plain = ground(0);
    const QColor text = ToColor(window->TextZoom->ForeColor(0), window->palette());
    const int one = cellOf('A');
    const int other = cellOf('a');
    hover(window, one);
    QCOMPARE(ground(one), plain);
    QTest::mouseClick(window->tlbCFMapFmt->button("FMapH"), Qt::LeftButton);
    QVERIFY(window->FMHiLite->isChecked());
    QCOMPARE(ground(one), plain); // until the mouse moves
    hover(window, other);
    QCOMPARE(ground(other), text);
    QCOMPARE(window->CharButton->ForeColor(other), window->TextZoom->BackColor(0));
    hover(window, one);
    QCOMPARE(ground(other), plain);
    QCOMPARE(ground(one), text);
    QTest::mouseMove(window->windowHandle(), window->TextBoard->geometry().center());
    QCoreApplication::processEvents();
    QCOMPARE(ground(one), text);
    window->FMHiLite->trigger();
    QVERIFY(!window->tlbCFMapFmt->button("FMapH")->isChecked());
    QCOMPARE(ground(one), plain);
}

void TestFontMap::gridLines()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto lined = [window](int cell) {
        const QImage picture = pictureOf(window->CharButton, cell);
        return picture.pixel(0, 0) != picture.pixel(2, 2);
    };
    QVERIFY(lined(0) && lined(100) && lined(CellCount - 1));
    QTest::mouseClick(window->tlbCFMapFmt->button("FMapG"), Qt::LeftButton);
    QVERIFY(!window->FMBorders->isChecked());
    QVERIFY(!lined(0) && !lined(100) && !lined(CellCount - 1));
    window->FMBorders->trigger();
    QVERIFY(window->tlbCFMapFmt->button("FMapG")->isChecked());
    QVERIFY(lined(0) && lined(100) && lined(CellCount - 1));
}

void TestFontMap::showsTheFontsOwnGlyphs_data()
{
    QTest::addColumn<QString>("font");
    QTest::addColumn<int>("number");         // of the font, in make_fonts.py
    QTest::addColumn<int>("lastOwn");        // the last code that the font has
    QTest::addColumn<QList<int>>("missing"); // below that
    QTest::addColumn<bool>("blankIsEmpty");
    const QList<int> all;
    QTest::newRow("text font") << "Zt Latin" << 1 << 255 << all << true; // 173 is in it
    QTest::newRow("font with gaps") << "Zt Gaps" << 2 << 255 << QList<int>{'B', 200} << true;
    QTest::newRow("symbol font") << "Zt Symbol" << 3 << 255 << all << false;
    QTest::newRow("ASCII only") << "Zt Test 24" << 5 << 126 << all << true;
    QTest::newRow("outlines of the other kind") << "Zt Outline" << 6 << 126 << all << true;
    QTest::newRow("bold only") << "Zt Bold Only" << 4 << 126 << all << true;
    QTest::newRow("italic only") << "Zt Italic Only" << 13 << 126 << all << true;
}

void TestFontMap::showsTheFontsOwnGlyphs()
{
    QFETCH(QString, font);
    QFETCH(int, number);
    QFETCH(int, lastOwn);
    QFETCH(QList<int>, missing);
    QFETCH(bool, blankIsEmpty);
    Desktop desktop;
    Zendova *window = desktop.start();
    makeGlyphsReadable(window);
    // Of the text font, whose measures all test fonts share.
    const QPoint origin = originOfFullRow(pictureOf(window->CharButton, cellOf(FullRowCode)));
    const QPoint middle = window->CharButton->pixels(0).center();
    QVERIFY(qAbs(origin.x() + 16 - middle.x()) <= 1); // an em is 32 pixels
    QVERIFY(chooseFont(window, font));
    for (int code = FirstCode; code <= 255; ++code) {
        GlyphPicture expected{.code = code, .font = number};
        // A font without the blank that keeps words together shows its other blank.
        if (blankIsEmpty && (code == ' ' || (code == 160 && code > lastOwn)))
            expected = {};
        else if (code > lastOwn || missing.contains(code))
            expected = {.font = number, .missing = true};
        const GlyphPicture shown = readGlyph(pictureOf(window->CharButton, cellOf(code)), origin);
        QVERIFY2(shown == expected, qPrintable(QString("code %1").arg(code)));
    }
}

void TestFontMap::zoomShowsTheGlyph()
{
    constexpr int pixels = 21; // of a glyph's cell at 72 points
    Desktop desktop;
    Zendova *window = desktop.start();
    hover(window, cellOf(FullRowCode));
    const QPoint origin =
        originOfFullRow(pictureOf(window->TextZoom, 0).copy(4, 4, 126, 126), pixels);
    hover(window, cellOf(173));
    const auto shown = [&] {
        return readGlyph(pictureOf(window->TextZoom, 0).copy(4, 4, 126, 126), origin, pixels);
    };
    QCOMPARE(shown(), (GlyphPicture{.code = 173, .font = 1}));
    QVERIFY(chooseFont(window, "Zt Gaps"));
    hover(window, cellOf(200));
    QCOMPARE(shown(), (GlyphPicture{.font = 2, .missing = true}));
    QVERIFY(chooseFont(window, "Zt Symbol"));
    hover(window, cellOf(0x9D));
    QCOMPARE(shown(), (GlyphPicture{.code = 0x9D, .font = 3}));
}

void TestFontMap::boardShowsSymbolsAsTheMap_data()
{
    QTest::addColumn<int>("code");
    for (const int code : {0x20, 0x41, 0x80, 0x81, 0x9D, 0x9F, 0xA0, 0xAD, 0xE9, 0xFF})
        QTest::addRow("%X", code) << code;
}

void TestFontMap::boardShowsSymbolsAsTheMap()
{
    QFETCH(int, code);
    Desktop desktop;
    Zendova *window = desktop.start();
    makeGlyphsReadable(window);
    QVERIFY(chooseFont(window, "Zt Symbol"));
    clickCell(window, cellOf(code));
    const QString typed = window->TextBoard->Text();
    QCOMPARE(typed, CharacterOf(code));
    QCOMPARE(firstGlyph(window, typed), (GlyphPicture{.code = code, .font = 3}));
}

int main(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    TestFontMap test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontmap.moc"
