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
        const bool button = window->tlbCFMapFmt->button(key)->isEnabled();
        if (button != item->isEnabled())
            on += QString("half ") + command;
        else if (button)
            on += command;
    };
    look("larger", "FMap+", window->FMLarger);
    look("smaller", "FMap-", window->FMSmaller);
    look("realign", "RAFMap", window->FMRealign);
    if (window->sldSetFMapSize->slider()->isEnabled())
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
    const CharCells *cells = window->CharButton;
    for (const int size : {1, 9, 3, 4, 1}) {
        window->sldSetFMapSize->setValue(size);
        const int steps = size - 1;
        QCOMPARE(window->SizeIndex, size);
        QCOMPARE(window->sldSetFMapSize->number()->text(), QString::number(size));
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
    NumberSlider *map = window->sldSetFMapSize;
    NumberSlider *zoom = window->ZoomSizeSlider;
    for (const Row &row : rows) {
        map->setValue(4);
        QVERIFY2(fillNumberBox(map, row.Typed, row.Key), row.Typed);
        QCOMPARE(map->number()->text(), QString::number(row.MapSize));
        QCOMPARE(window->CharButton->pixels(0).width(), 27 + row.MapSize);
        QVERIFY(window->TextBoard->hasFocus());
        zoom->setValue(40);
        QVERIFY2(fillNumberBox(zoom, row.Typed, row.Key), row.Typed);
        QCOMPARE(zoom->number()->text(), QString::number(row.ZoomSize));
        QCOMPARE(window->TextZoom->cellFont().pointSize(), row.ZoomSize);
        QVERIFY(window->TextBoard->hasFocus());
    }
}

void TestFontMap::thumbs()
{
    Desktop desktop(Wide1024);
    Zendova *window = desktop.start();
    window->sldSetFMapSize->setValue(4);
    QSlider *map = window->sldSetFMapSize->slider();
    map->setSliderDown(true);
    map->setSliderPosition(8); // only the number follows, until the thumb is let go
    QCOMPARE(window->sldSetFMapSize->number()->text(), QString("8"));
    QCOMPARE(window->CharButton->pixels(0).width(), 31);
    map->setSliderDown(false);
    QCOMPARE(window->CharButton->pixels(0).width(), 35);
    QVERIFY(window->TextBoard->hasFocus());
    QSlider *zoom = window->ZoomSizeSlider->slider();
    zoom->setFocus();
    zoom->setSliderDown(true);
    zoom->setSliderPosition(30); // the zoom follows at once
    QCOMPARE(window->TextZoom->cellFont().pointSize(), 30);
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
        window->sldSetFMapSize->setValue(size);
        QCOMPARE(sizingOf(window), aligned);
        pullSplitBar(window, 100);
        QCOMPARE(window->FMapContainer->y(), top + 100);
        QCOMPARE(sizingOf(window), QString("realign split"));
        QVERIFY(!fillNumberBox(window->sldSetFMapSize, "5"));
        QTest::mouseClick(window->tlbCFMapFmt->button("RAFMap"), Qt::LeftButton);
        QCOMPARE(window->FMapContainer->y(), top);
        QCOMPARE(sizingOf(window), aligned);
    }
    chooseFromMenu(window, "FormatFM", "FMSmaller");
    QCOMPARE(window->SizeIndex, 8);
    QTest::mouseClick(window->tlbCFMapFmt->button("FMap+"), Qt::LeftButton);
    QCOMPARE(window->SizeIndex, 9);
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
    const QPoint x = window->CharButton->pixels(cellOf('x')).center();
    QTest::mouseClick(window->CharButton, Qt::LeftButton, {}, x);
    QTest::mouseDClick(window->CharButton, Qt::LeftButton, {}, x);
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
        const QStringList shown{window->TextZoom->Caption(0), window->AscCode->text(),
                                window->HexCode->text(),      window->OctCode->text(),
                                window->BinCode->text(),      window->KS->text()};
        QCOMPARE(shown, row);
    }
}

void TestFontMap::viewsSwitch()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const auto shown = [window] {
        return QStringList{window->ZoomSizeSlider->number()->text(), window->BinCode->text(),
                           window->KS->text(), window->TextZoom->Caption(0)};
    };
    const auto allMarked = [window] {
        lookAtMenu(window, "ItemView");
        return window->ViewAll->isChecked();
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
        QTest::mouseClick(window->ViewsTB->button(button), Qt::LeftButton);
        hover(window, cellOf('A'));
        QCOMPARE(shown(), off);
        QTest::mouseClick(window->ZoomSizeSlider->number(), Qt::LeftButton);
        QCOMPARE(window->ZoomSizeSlider->edit()->isVisible(), off[0] == "72");
        QVERIFY(!allMarked());
        chooseFromMenu(window, "ItemView", command);
        QVERIFY(window->ViewsTB->button(button)->isChecked());
        QCOMPARE(shown(), on);
    }
    QVERIFY(allMarked());
    window->ViewAll->trigger();
    QCOMPARE(shown(), QStringList({"Off", "Off", "Off", ""}));
    window->ViewAll->trigger();
    QCOMPARE(shown(), QStringList({"72", "On", "On", ""}));
}

void TestFontMap::viewsOfferTheirCommand()
{
    Desktop desktop;
    Zendova *window = desktop.start();
    const std::pair<const char *, QAction *> rows[] = {
        {"TextZoom", window->ViewZoom}, {"ZoomSizeNumber", window->ViewZoom},
        {"CVACover", window->ViewCode}, {"BinCode", window->ViewCode},
        {"KVACover", window->ViewKS},   {"KS", window->ViewKS},
    };
    for (const auto &[control, command] : rows) {
        const QPoint corner = window->Control(control)->mapTo(window, QPoint(2, 2));
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, corner);
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY2(menu, control);
        QCOMPARE(menu->actions(), QList<QAction *>{command});
        QTest::keyClick(menu, Qt::Key_Escape);
    }
    const QPoint button = window->ViewsTB->mapTo(window, QPoint(10, 10));
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, button);
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
}

void TestFontMap::highlightAndGrid()
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
    leaveTheMap(window);
    QCOMPARE(ground(one), text);
    window->FMHiLite->trigger();
    QVERIFY(!window->tlbCFMapFmt->button("FMapH")->isChecked());
    QCOMPARE(ground(one), plain);

    const auto lined = [&](int cell) {
        return pictureOf(window->CharButton, cell).pixelColor(0, 0) != ground(cell);
    };
    QVERIFY(lined(0) && lined(CellCount - 1));
    QTest::mouseClick(window->tlbCFMapFmt->button("FMapG"), Qt::LeftButton);
    QVERIFY(!lined(0) && !lined(CellCount - 1) && !window->FMBorders->isChecked());
    window->FMBorders->trigger();
    QVERIFY(lined(0) && lined(CellCount - 1));
    QVERIFY(window->tlbCFMapFmt->button("FMapG")->isChecked());
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
    const QPoint origin = originOfFullRow(pictureOf(window->CharButton, cellOf(FullRowCode)));
    const QPoint middle = window->CharButton->pixels(0).center();
    QVERIFY(qAbs(origin.x() + 16 - middle.x()) <= 1); // an em is 32 pixels
    for (const auto &[font, number, empty, missing] : rows) {
        QVERIFY(chooseFont(window, font));
        for (int code = FirstCode; code <= 255; ++code) {
            GlyphPicture expected{.code = code, .font = number};
            if (missing.contains(CharacterOf(code)))
                expected = {.font = number, .missing = true};
            else if (empty.contains(CharacterOf(code)))
                expected = {};
            QCOMPARE(readGlyph(pictureOf(window->CharButton, cellOf(code)), origin), expected);
        }
    }
}

int main(int argc, char *argv[])
{
    return runWindowTest<TestFontMap>(argc, argv);
}

#include "tst_fontmap.moc"
