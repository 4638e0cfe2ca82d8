// The map and the views as a person meets them: which sizes a screen allows, the grid at every
// size, the ways to change it, clicks, the mouse passing over, and which glyph is really drawn in a
// cell.
#include "tests/support/MainWindow.h"
#include "tests/support/Person.h"

#include "fontmap/MapSize.h"
#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSlider>
#include <QTest>

namespace {

const QSize Wide1024(1024, 1600); // high enough to pull the split bar down

void leaveTheMap(Zendova *window)
{
    QTest::mouseMove(window->windowHandle(), window->TextBoard->geometry().center());
    QCoreApplication::processEvents();
}

/// The sizing commands that are on, in their buttons and menu items alike.
QString sizingOf(const Zendova *window)
{
    QStringList on;
    const auto look = [&](const char *command, const char *key, const QAction *item) {
        const bool button = window->FMapContainer->tlbCFMapFmt->button(key)->isEnabled();
        if (button != item->isEnabled())
            on += QString("half ") + command;
        else if (button)
            on += command;
    };
    look("larger", "FMap+", window->FMapContainer->FMLarger);
    look("smaller", "FMap-", window->FMapContainer->FMSmaller);
    look("realign", "RAFMap", window->FMapContainer->FMRealign);
    if (window->FMapContainer->sldSetFMapSize->slider()->isEnabled())
        on += "slider";
    if (window->SplitBar->isVisible())
        on += "split";
    return on.join(' ');
}

} // namespace

class TestFontMap : public QObject
{
    Q_OBJECT

private slots:
    void sizesOfAScreen();
    void gridAtEverySize();
    void numberBoxes();
    void thumbs();
    void sizeCommands();
    void clickInsertsTheCharacter();
    void hoverFeedsTheViews();
    void viewsSwitch();
    void viewsOfferTheirCommand();
    void highlightAndGrid();
    void showsTheFontsOwnGlyphs();
};

void TestFontMap::sizesOfAScreen()
{
    using MapSize::Sizing;
    const std::tuple<int, double, int, Sizing> rows[] = {
        {800, 15, 1, Sizing::Off},     {801, 15, 1, Sizing::On},       {809, 15, 1, Sizing::On},
        {810, 15, 2, Sizing::On},      {1920, 15, 41, Sizing::On},     {1024, 12, 2, Sizing::Off},
        {1025, 12, 2, Sizing::AsItIs}, {1280, 12, 11, Sizing::AsItIs},
    };
    for (const auto &[width, twips, largest, allowed] : rows) {
        QCOMPARE(MapSize::Largest(width, twips), largest);
        QCOMPARE(MapSize::SizingFor(width, twips), allowed);
    }
}

void TestFontMap::gridAtEverySize()
{
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    const CharCells *cells = window->FMapContainer->CharButton;
    for (const int size : {1, 9, 3, 4, 1}) {
        window->FMapContainer->sldSetFMapSize->setValue(size);
        const int steps = size - 1;
        QCOMPARE(window->FMapContainer->SizeIndex, size);
        QCOMPARE(window->FMapContainer->sldSetFMapSize->number()->text(), QString::number(size));
        const double pitch = 405 + 15 * steps;
        for (int cell = 0; cell < CellCount; ++cell) {
            // Neighbours share one line of pixels.
            QCOMPARE(cells->place(cell), (TwipRect{.Left = pitch * (cell % 28),
                                                   .Top = 375 + pitch * (cell / 28),
                                                   .Width = pitch + 15,
                                                   .Height = pitch + 15}));
        }
        QCOMPARE(cells->pixels(0).size(), QSize(28 + steps, 28 + steps));
        QCOMPARE(window->Client->size(), QSize(772 + 28 * steps, 546 + 8 * steps));
        QVERIFY(window->FMapContainer->rect().contains(cells->pixels(CellCount - 1)));
        QVERIFY(window->Client->rect().contains(window->FMapContainer->geometry()));
    }
}

void TestFontMap::numberBoxes()
{
    struct Row
    {
        const char *Typed;
        int MapSize;
        int ZoomSize;
        Qt::Key Key = Qt::Key_Return;
    };
    const Row rows[] = {
        {"9", 9, 9, Qt::Key_Enter},
        {"200", 9, 72},
        {"-3", 1, 8},
        {"abc", 1, 8},
        {"", 1, 8},
        {"7.6", 8, 8},
        {" 30 ", 9, 30},
        {"7", 4, 40, Qt::Key_Escape},
    };
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    NumberSlider *map = window->FMapContainer->sldSetFMapSize;
    NumberSlider *zoom = window->ViewsContainer->ZoomSizeSlider;
    for (const Row &row : rows) {
        map->setValue(4);
        QVERIFY2(fillNumberBox(map, row.Typed, row.Key), row.Typed);
        QCOMPARE(map->number()->text(), QString::number(row.MapSize));
        QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(), 27 + row.MapSize);
        QVERIFY(window->TextBoard->hasFocus());
        zoom->setValue(40);
        QVERIFY2(fillNumberBox(zoom, row.Typed, row.Key), row.Typed);
        QCOMPARE(zoom->number()->text(), QString::number(row.ZoomSize));
        QCOMPARE(window->ViewsContainer->TextZoom->cellFont().pointSize(), row.ZoomSize);
        QVERIFY(window->TextBoard->hasFocus());
    }
}

void TestFontMap::thumbs()
{
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    window->FMapContainer->sldSetFMapSize->setValue(4);
    QSlider *map = window->FMapContainer->sldSetFMapSize->slider();
    map->setSliderDown(true);
    map->setSliderPosition(8); // only the number follows, until the thumb is let go
    QCOMPARE(window->FMapContainer->sldSetFMapSize->number()->text(), QString("8"));
    QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(), 31);
    map->setSliderDown(false);
    QCOMPARE(window->FMapContainer->CharButton->pixels(0).width(), 35);
    QVERIFY(window->TextBoard->hasFocus());
    QSlider *zoom = window->ViewsContainer->ZoomSizeSlider->slider();
    zoom->setFocus();
    zoom->setSliderDown(true);
    zoom->setSliderPosition(30); // the zoom follows at once
    QCOMPARE(window->ViewsContainer->TextZoom->cellFont().pointSize(), 30);
    QVERIFY(window->TextBoard->hasFocus());
}

void TestFontMap::sizeCommands()
{
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    const int top = window->FMapContainer->y();
    const std::pair<int, QString> rows[] = {
        {1, "larger slider split"},
        {4, "larger smaller slider split"},
        {9, "smaller slider split"},
    };
    for (const auto &[size, aligned] : rows) {
        window->FMapContainer->sldSetFMapSize->setValue(size);
        QCOMPARE(sizingOf(window), aligned);
        pullSplitBar(window, 100);
        QCOMPARE(window->FMapContainer->y(), top + 100);
        QCOMPARE(sizingOf(window), QString("realign split"));
        QVERIFY(!fillNumberBox(window->FMapContainer->sldSetFMapSize, "5"));
        QTest::mouseClick(window->FMapContainer->tlbCFMapFmt->button("RAFMap"), Qt::LeftButton);
        QCOMPARE(window->FMapContainer->y(), top);
        QCOMPARE(sizingOf(window), aligned);
    }
    chooseFromMenu(window, "FormatFM", "FMSmaller");
    QCOMPARE(window->FMapContainer->SizeIndex, 8);
    QTest::mouseClick(window->FMapContainer->tlbCFMapFmt->button("FMap+"), Qt::LeftButton);
    QCOMPARE(window->FMapContainer->SizeIndex, 9);
}

void TestFontMap::clickInsertsTheCharacter()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    QTest::keyClicks(window->TextBoard, "ab");
    QTest::keyClick(window->TextBoard, Qt::Key_Left);
    window->FontNameCombo->setFocus();
    clickCell(window, cellOf('Z'));
    QVERIFY(window->TextBoard->hasFocus());
    QTest::keyClicks(window->TextBoard, "!"); // goes on behind the new character
    for (const int code : {0x80, 255, 173})
        clickCell(window, cellOf(code));
    QCOMPARE(window->TextBoard->Text(), QString("aZ!\u20AC\u00FF\u00ADb"));
    window->TextBoard->selectAll();
    clickCell(window, cellOf(' '));
    // A click in quick succession is one more character, not a double click.
    const QPoint x = window->FMapContainer->CharButton->pixels(cellOf('x')).center();
    QTest::mouseClick(window->FMapContainer->CharButton, Qt::LeftButton, {}, x);
    QTest::mouseDClick(window->FMapContainer->CharButton, Qt::LeftButton, {}, x);
    QCOMPARE(window->TextBoard->Text(), QString(" xx"));

    clickCell(window, cellOf('A'), Qt::MiddleButton);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
    clickCell(window, cellOf('A'), Qt::RightButton);
    QCOMPARE(QApplication::activePopupWidget(), window->FormatFM);
    QTest::keyClick(window->FormatFM, Qt::Key_Escape);
    QCOMPARE(window->TextBoard->Text(), QString(" xx"));
}

void TestFontMap::hoverFeedsTheViews()
{
    const QStringList rows[] = {
        {" ", "32", "20", "40", "100000", "Space Bar"},
        {"<", "60", "3C", "74", "111100", "<"},
        {"~", "126", "7E", "176", "1111110", "~"},
        {"\u007F", "127", "7F", "177", "1111111", "Alt+0127"},
        {"\u0081", "129", "81", "201", "10000001", "Alt+0129"},
        {"\u00FF", "255", "FF", "377", "11111111", "Alt+0255"},
    };
    Desktop desktop;
    Zendova *window = desktop.start();
    for (const QStringList &row : rows) {
        hover(window, cellOf(row[1].toInt()));
        leaveTheMap(window); // and the last cell is still told of
        const QStringList shown{
            window->ViewsContainer->TextZoom->Caption(0), window->ViewsContainer->AscCode->text(),
            window->ViewsContainer->HexCode->text(),      window->ViewsContainer->OctCode->text(),
            window->ViewsContainer->BinCode->text(),      window->ViewsContainer->KS->text()};
        QCOMPARE(shown, row);
    }
}

void TestFontMap::viewsSwitch()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto shown = [window] {
        return QStringList{window->ViewsContainer->ZoomSizeSlider->number()->text(),
                           window->ViewsContainer->BinCode->text(),
                           window->ViewsContainer->KS->text(),
                           window->ViewsContainer->TextZoom->Caption(0)};
    };
    const auto allMarked = [window] {
        lookAtMenu(window, "ItemView");
        return window->ViewsContainer->ViewAll->isChecked();
    };
    struct Row
    {
        const char *Button;
        const char *Command;
        QStringList Off; // after the mouse passed over "A"
        QStringList On;  // just switched on again
    };
    const Row rows[] = {
        {"Zoom", "ViewZoom", {"Off", "1000001", "A", ""}, {"72", "1000001", "A", ""}},
        {"Code", "ViewCode", {"72", "Off", "A", "A"}, {"72", "On", "A", "A"}},
        {"KS", "ViewKS", {"72", "1000001", "Off", "A"}, {"72", "1000001", "On", "A"}},
    };
    for (const auto &[button, command, off, on] : rows) {
        QTest::mouseClick(window->ViewsContainer->ViewsTB->button(button), Qt::LeftButton);
        hover(window, cellOf('A'));
        QCOMPARE(shown(), off);
        QTest::mouseClick(window->ViewsContainer->ZoomSizeSlider->number(), Qt::LeftButton);
        QCOMPARE(window->ViewsContainer->ZoomSizeSlider->edit()->isVisible(), off[0] == "72");
        QVERIFY(!allMarked());
        chooseFromMenu(window, "ItemView", command);
        QVERIFY(window->ViewsContainer->ViewsTB->button(button)->isChecked());
        QCOMPARE(shown(), on);
    }
    QVERIFY(allMarked());
    window->ViewsContainer->ViewAll->trigger();
    QCOMPARE(shown(), QStringList({"Off", "Off", "Off", ""}));
    window->ViewsContainer->ViewAll->trigger();
    QCOMPARE(shown(), QStringList({"72", "On", "On", ""}));
}

void TestFontMap::viewsOfferTheirCommand()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const Views &views = *window->ViewsContainer;
    const std::pair<QWidget *, QAction *> rows[] = {
        {views.TextZoom, views.ViewZoom},
        {views.ZoomSizeSlider->number(), views.ViewZoom},
        {views.findChild<QWidget *>("CVACover"), views.ViewCode},
        {views.BinCode, views.ViewCode},
        {views.findChild<QWidget *>("KVACover"), views.ViewKS},
        {views.KS, views.ViewKS},
    };
    for (const auto &[control, command] : rows) {
        const QPoint corner = control->mapTo(window, QPoint(2, 2));
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, corner);
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY2(menu, qPrintable(control->objectName()));
        QCOMPARE(menu->actions(), QList<QAction *>{command});
        QTest::keyClick(menu, Qt::Key_Escape);
    }
    const QPoint button = window->ViewsContainer->ViewsTB->mapTo(window, QPoint(10, 10));
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, button);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
}

void TestFontMap::highlightAndGrid()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto ground = [window](int cell) {
        return pictureOf(window->FMapContainer->CharButton, cell).pixelColor(2, 2);
    };
    const QColor plain = ground(0);
    const QColor text = ToColor(window->ViewsContainer->TextZoom->ForeColor(0), window->palette());
    const int one = cellOf('A');
    const int other = cellOf('a');
    hover(window, one);
    QCOMPARE(ground(one), plain);
    QTest::mouseClick(window->FMapContainer->tlbCFMapFmt->button("FMapH"), Qt::LeftButton);
    QVERIFY(window->FMapContainer->FMHiLite->isChecked());
    QCOMPARE(ground(one), plain); // until the mouse moves
    hover(window, other);
    QCOMPARE(ground(other), text);
    QCOMPARE(window->FMapContainer->CharButton->ForeColor(other),
             window->ViewsContainer->TextZoom->BackColor(0));
    hover(window, one);
    QCOMPARE(ground(other), plain);
    leaveTheMap(window);
    QCOMPARE(ground(one), text);
    window->FMapContainer->FMHiLite->trigger();
    QVERIFY(!window->FMapContainer->tlbCFMapFmt->button("FMapH")->isChecked());
    QCOMPARE(ground(one), plain);

    const auto lined = [&](int cell) {
        return pictureOf(window->FMapContainer->CharButton, cell).pixelColor(0, 0) != ground(cell);
    };
    QVERIFY(lined(0) && lined(CellCount - 1));
    QTest::mouseClick(window->FMapContainer->tlbCFMapFmt->button("FMapG"), Qt::LeftButton);
    QVERIFY(!lined(0) && !lined(CellCount - 1) && !window->FMapContainer->FMBorders->isChecked());
    window->FMapContainer->FMBorders->trigger();
    QVERIFY(lined(0) && lined(CellCount - 1));
    QVERIFY(window->FMapContainer->tlbCFMapFmt->button("FMapG")->isChecked());
}

void TestFontMap::showsTheFontsOwnGlyphs()
{
    struct Row
    {
        const char *Font;
        int Number; // of the font, in make_fonts.py
        QString Empty;
        QString Missing;
    };
    const Row rows[] = {{"Zt Gaps", 2, " ", "B\u00C8"}, {"Zt Symbol", 3, "", ""}};
    Desktop desktop;
    Zendova *window = desktop.start();
    makeGlyphsReadable(window);
    // Of the text font, whose measures all test fonts share.
    const QPoint origin =
        originOfFullRow(pictureOf(window->FMapContainer->CharButton, cellOf(FullRowCode)));
    const QPoint middle = window->FMapContainer->CharButton->pixels(0).center();
    QVERIFY(qAbs(origin.x() + 16 - middle.x()) <= 1); // an em is 32 pixels
    for (const auto &[font, number, empty, missing] : rows) {
        QVERIFY(chooseFont(window, font));
        for (int code = FirstCode; code <= 255; ++code) {
            GlyphPicture expected{.code = code, .font = number};
            if (missing.contains(CharacterOf(code)))
                expected = {.font = number, .missing = true};
            else if (empty.contains(CharacterOf(code)))
                expected = {};
            QCOMPARE(readGlyph(pictureOf(window->FMapContainer->CharButton, cellOf(code)), origin),
                     expected);
        }
    }
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestFontMap>(argc, argv);
}

#include "tst_fontmap.moc"
