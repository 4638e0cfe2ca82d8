// The map and the views in the window as a person meets them: the grid at every size, the ways to
// change it, clicks, the mouse passing over, and which glyph is really drawn in a cell.
#include "tests/support/MainWindow.h"

#include <QSlider>
#include <QWindow>

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
    const FontMap &map = *window->FMapContainer;
    for (const auto &[command, key, item] : {std::tuple("larger", "FMap+", map.FMLarger),
                                             {"smaller", "FMap-", map.FMSmaller},
                                             {"realign", "RAFMap", map.FMRealign}}) {
        const bool button = map.tlbCFMapFmt->button(key)->isEnabled();
        if (button != item->isEnabled())
            on += QString("half ") + command;
        else if (button)
            on += command;
    }
    if (map.sldSetFMapSize->slider()->isEnabled())
        on += "slider";
    if (window->SplitBar->isVisible())
        on += "split";
    return on.join(' ');
}

} // namespace

class TestFontMap : public WindowTest
{
    Q_OBJECT

private slots:
    void init() override
    {
        begin({1024, 1600}); // high enough to pull the split bar down
        map = window->FMapContainer;
        views = window->ViewsContainer;
    }
    void gridAtEverySize();
    void numberBoxes();
    void sizeCommands();
    void clickInsertsTheCharacter();
    void hoverFeedsTheViews();
    void viewsSwitch();
    void highlightAndGrid();
    void showsTheFontsOwnGlyphs();

private:
    FontMap *map = nullptr;
    Views *views = nullptr;
};

void TestFontMap::gridAtEverySize()
{
    const CharCells *cells = map->CharButton;
    for (const int size : {1, 9, 3, 4, 1}) {
        map->sldSetFMapSize->setValue(size);
        const int steps = size - 1;
        QCOMPARE(map->SizeIndex, size);
        QCOMPARE(map->sldSetFMapSize->number()->text(), QString::number(size));
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
        QVERIFY(map->rect().contains(cells->pixels(CellCount - 1)));
        QVERIFY(window->Client->rect().contains(map->geometry()));
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
        {"9", 9, 9, Qt::Key_Enter},   {"200", 9, 72}, {"-3", 1, 8}, {"abc", 1, 8}, {"7.6", 8, 8},
        {"7", 4, 40, Qt::Key_Escape},
    };
    NumberSlider *size = map->sldSetFMapSize;
    NumberSlider *zoom = views->ZoomSizeSlider;
    for (const Row &row : rows) {
        size->setValue(4);
        QVERIFY2(fillNumberBox(size, row.Typed, row.Key), row.Typed);
        QCOMPARE(size->number()->text(), QString::number(row.MapSize));
        QCOMPARE(map->CharButton->pixels(0).width(), 27 + row.MapSize);
        QVERIFY(window->TextBoard->hasFocus());
        zoom->setValue(40);
        QVERIFY2(fillNumberBox(zoom, row.Typed, row.Key), row.Typed);
        QCOMPARE(zoom->number()->text(), QString::number(row.ZoomSize));
        QCOMPARE(views->TextZoom->cellFont().pointSize(), row.ZoomSize);
        QVERIFY(window->TextBoard->hasFocus());
    }
}

void TestFontMap::sizeCommands()
{
    const int top = map->y();
    const std::pair<int, QString> rows[] = {
        {1, "larger slider split"},
        {4, "larger smaller slider split"},
        {9, "smaller slider split"},
    };
    for (const auto &[size, aligned] : rows) {
        map->sldSetFMapSize->setValue(size);
        QCOMPARE(sizingOf(window), aligned);
        pullSplitBar(window, 100);
        QCOMPARE(map->y(), top + 100);
        QCOMPARE(sizingOf(window), QString("realign split"));
        QVERIFY(!fillNumberBox(map->sldSetFMapSize, "5"));
        press("RAFMap");
        QCOMPARE(map->y(), top);
        QCOMPARE(sizingOf(window), aligned);
    }
    chooseFromMenu(window, "FormatFM", "FMSmaller");
    QCOMPARE(map->SizeIndex, 8);
    press("FMap+");
    QCOMPARE(map->SizeIndex, 9);
}

void TestFontMap::clickInsertsTheCharacter()
{
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
    const QPoint x = map->CharButton->pixels(cellOf('x')).center();
    QTest::mouseClick(map->CharButton, Qt::LeftButton, {}, x);
    QTest::mouseDClick(map->CharButton, Qt::LeftButton, {}, x);
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
    hover(window, cellOf('<'));
    leaveTheMap(window); // and the last cell is still told of
    QCOMPARE(QStringList({views->TextZoom->Caption(0), views->AscCode->text(),
                          views->BinCode->text(), views->KS->text()}),
             QStringList({"<", "60", "111100", "<"}));
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      views->KS->mapTo(window, QPoint(2, 2)));
    QWidget *menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QCOMPARE(menu->actions(), QList<QAction *>{views->ViewKS});
    QTest::keyClick(menu, Qt::Key_Escape);
}

void TestFontMap::viewsSwitch()
{
    const auto shown = [this] {
        return QStringList{views->ZoomSizeSlider->number()->text(), views->BinCode->text(),
                           views->KS->text(), views->TextZoom->Caption(0)};
    };
    const auto allMarked = [this] {
        lookAtMenu(window, "ItemView");
        return views->ViewAll->isChecked();
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
    for (const auto &[key, command, off, on] : rows) {
        press(key);
        hover(window, cellOf('A'));
        QCOMPARE(shown(), off);
        QTest::mouseClick(views->ZoomSizeSlider->number(), Qt::LeftButton);
        QCOMPARE(views->ZoomSizeSlider->edit()->isVisible(), off[0] == "72");
        QVERIFY(!allMarked());
        chooseFromMenu(window, "ItemView", command);
        QVERIFY(button(key)->isChecked());
        QCOMPARE(shown(), on);
    }
    QVERIFY(allMarked());
    views->ViewAll->trigger();
    QCOMPARE(shown(), QStringList({"Off", "Off", "Off", ""}));
    views->ViewAll->trigger();
    QCOMPARE(shown(), QStringList({"72", "On", "On", ""}));
}

void TestFontMap::highlightAndGrid()
{
    const auto ground = [this](int cell) {
        return pictureOf(map->CharButton, cell).pixelColor(2, 2);
    };
    const QColor plain = ground(0);
    const QColor text = ToColor(views->TextZoom->ForeColor(0), window->palette());
    const int one = cellOf('A');
    const int other = cellOf('a');
    hover(window, one);
    QCOMPARE(ground(one), plain);
    press("FMapH");
    QVERIFY(map->FMHiLite->isChecked());
    QCOMPARE(ground(one), plain); // until the mouse moves
    hover(window, other);
    QCOMPARE(ground(other), text);
    QCOMPARE(map->CharButton->ForeColor(other), views->TextZoom->BackColor(0));
    hover(window, one);
    QCOMPARE(ground(other), plain);
    leaveTheMap(window);
    QCOMPARE(ground(one), text);
    map->FMHiLite->trigger();
    QVERIFY(!button("FMapH")->isChecked());
    QCOMPARE(ground(one), plain);

    const auto lined = [&](int cell) {
        return pictureOf(map->CharButton, cell).pixelColor(0, 0) != ground(cell);
    };
    QVERIFY(lined(0) && lined(CellCount - 1));
    press("FMapG");
    QVERIFY(!lined(0) && !lined(CellCount - 1) && !map->FMBorders->isChecked());
    map->FMBorders->trigger();
    QVERIFY(lined(0) && lined(CellCount - 1));
    QVERIFY(button("FMapG")->isChecked());
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
    makeGlyphsReadable(window);
    // Of the text font, whose measures all test fonts share.
    const QPoint origin = originOfFullRow(pictureOf(map->CharButton, cellOf(FullRowCode)));
    const QPoint middle = map->CharButton->pixels(0).center();
    QVERIFY(qAbs(origin.x() + 16 - middle.x()) <= 1); // an em is 32 pixels
    for (const auto &[font, number, empty, missing] : rows) {
        QVERIFY(chooseFont(window, font));
        for (int code = FirstCode; code <= 255; ++code) {
            GlyphPicture expected{.code = code, .font = number};
            if (missing.contains(CharacterOf(code)))
                expected = {.font = number, .missing = true};
            else if (empty.contains(CharacterOf(code)))
                expected = {};
            QCOMPARE(readGlyph(pictureOf(map->CharButton, cellOf(code)), origin), expected);
        }
    }
}

ZENDOVA_WINDOW_TEST(TestFontMap)

#include "tst_fontmap.moc"
