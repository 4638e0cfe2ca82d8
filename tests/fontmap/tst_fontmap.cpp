// The map and the views in the window as a person meets them: the grid at every size, the ways to
// change it, the wheel, clicks, the mouse passing over, and which glyph is really drawn in a cell.
#include "tests/support/MainWindow.h"

#include "fontmap/MapSize.h"

namespace {

void leaveTheMap(Zendova *window)
{
    QTest::mouseMove(window->windowHandle(), window->TextBoard->geometry().center());
    QCoreApplication::processEvents();
}

/// Only what comes from the desktop is handed on to the parents by the toolkit: here by hand.
void turn(QWidget *over, int delta, Qt::KeyboardModifiers held = Qt::ControlModifier)
{
    const QPoint middle = over->rect().center();
    for (QWidget *at = over; at; at = at->parentWidget()) {
        QWheelEvent event(over->mapTo(at, middle), over->mapToGlobal(middle), {}, {0, delta},
                          Qt::NoButton, held, Qt::NoScrollPhase, false);
        event.ignore();
        QCoreApplication::sendEvent(at, &event);
        if (event.isAccepted() || at->isWindow())
            return;
    }
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

    void gridAtEverySize()
    {
        const CharCells *cells = map->CharButton;
        for (const int size : {1, 9, 3, 4, 1}) {
            map->sldSetFMapSize->setValue(size);
            const int steps = size - 1;
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

    void numberBoxes()
    {
        const std::tuple<const char *, Qt::Key, int, int> rows[] = {{"9", Qt::Key_Enter, 9, 9},
                                                                    {"200", Qt::Key_Return, 9, 72},
                                                                    {"abc", Qt::Key_Return, 1, 8},
                                                                    {"7", Qt::Key_Escape, 4, 40}};
        for (const auto &[typed, key, mapSize, zoomSize] : rows) {
            map->sldSetFMapSize->setValue(4);
            QVERIFY2(fillNumberBox(map->sldSetFMapSize, typed, key), typed);
            QCOMPARE(map->sldSetFMapSize->number()->text(), QString::number(mapSize));
            QCOMPARE(map->CharButton->pixels(0).width(), 27 + mapSize);
            QVERIFY(board()->hasFocus());
            views->ZoomSizeSlider->setValue(40);
            QVERIFY2(fillNumberBox(views->ZoomSizeSlider, typed, key), typed);
            QCOMPARE(views->ZoomSizeSlider->number()->text(), QString::number(zoomSize));
            QCOMPARE(views->TextZoom->cellFont().pointSize(), zoomSize);
            QVERIFY(board()->hasFocus());
        }
    }

    void sizeCommands()
    {
        const int top = map->y();
        for (const auto &[size, aligned] :
             {std::pair(1, "larger slider"), {4, "larger smaller slider"}, {9, "smaller slider"}}) {
            map->sldSetFMapSize->setValue(size);
            checkSizing(aligned);
            pullSplitBar(window, 100);
            QCOMPARE(map->y(), top + 100);
            checkSizing("realign");
            QVERIFY(!fillNumberBox(map->sldSetFMapSize, "5"));
            turn(map->CharButton, 120);
            press("RAFMap");
            QCOMPARE(map->y(), top);
            checkSizing(aligned);
            QCOMPARE(map->SizeIndex, size);
        }
        chooseFromMenu(window, "FormatFM", "FMSmaller");
        QCOMPARE(map->SizeIndex, 8);
        press("FMap+");
        QCOMPARE(map->SizeIndex, 9);
        // Of a thumb that is moved only the number follows, until it is let go.
        QSlider *thumb = map->sldSetFMapSize->slider();
        thumb->setSliderDown(true);
        thumb->setSliderPosition(3);
        QCOMPARE(map->SizeIndex, 9);
        thumb->setSliderDown(false);
        QCOMPARE(map->SizeIndex, 3);
    }

    void wheel()
    {
        const auto sizes = [this] {
            return QList{int(board()->FontSize()), map->CharButton->pixels(0).width() - 27,
                         views->TextZoom->cellFont().pointSize()};
        };
        QWidget *const places[] = {board()->viewport(), map->CharButton, views->TextZoom};
        map->sldSetFMapSize->setValue(5);
        views->ZoomSizeSlider->setValue(40); // it begins at its largest
        QList<int> expected = sizes();
        for (qsizetype place = 0; place < 3; ++place) {
            turn(places[place], 120, Qt::NoModifier);
            QCOMPARE(sizes(), expected);
            turn(places[place], 240);
            turn(places[place], -120);
            expected[place] += 1;
            QCOMPARE(sizes(), expected);
        }
        turn(views->ViewsTB, 120); // beside the zoom
        views->ZoomViewSet(false);
        turn(views->TextZoom, 120);
        QCOMPARE(sizes(), expected);
        const int before = expected[0];
        const std::pair<int, int> rows[] = {{50, 0},   {50, 0}, {50, 1},  {80, 1},  {10, 2},
                                            {-119, 2}, {-1, 1}, {-60, 1}, {110, 1}, {10, 2}};
        for (const auto &[delta, more] : rows) {
            turn(places[0], delta);
            QCOMPARE(sizes()[0], before + more);
        }
        // Where the size can't grow the board stays where it is all the same.
        board()->setText(QString("line\n").repeated(500));
        window->FontSizeSlider->setValue(36);
        board()->verticalScrollBar()->setValue(50);
        turn(places[0], 120);
        QCOMPARE(sizes()[0], 36);
        QCOMPARE(board()->verticalScrollBar()->value(), 50);
        turn(places[0], 120, Qt::NoModifier);
        QVERIFY(board()->verticalScrollBar()->value() < 50);
    }

    void clickInsertsTheCharacter()
    {
        QTest::keyClicks(board(), "ab");
        keys("Left");
        window->FontNameCombo->setFocus();
        clickCell(window, cellOf('Z'));
        QVERIFY(board()->hasFocus());
        QTest::keyClicks(board(), "!"); // goes on behind the new character
        for (const int code : {0x80, 255, 173})
            clickCell(window, cellOf(code));
        QCOMPARE(board()->Text(), QString("aZ!\u20AC\u00FF\u00ADb"));
        board()->selectAll();
        clickCell(window, cellOf(' '));
        // A click in quick succession is one more character, not a double click.
        const QPoint x = map->CharButton->pixels(cellOf('x')).center();
        QTest::mouseClick(map->CharButton, Qt::LeftButton, {}, x);
        QTest::mouseDClick(map->CharButton, Qt::LeftButton, {}, x);
        QCOMPARE(board()->Text(), QString(" xx"));

        clickCell(window, cellOf('A'), Qt::MiddleButton);
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
        clickCell(window, cellOf('A'), Qt::RightButton);
        QCOMPARE(QApplication::activePopupWidget(), window->FormatFM);
        QTest::keyClick(window->FormatFM, Qt::Key_Escape);
        board()->selectAll();
        map->CharButton->setCaption(7, {});
        window->FontNameCombo->setFocus();
        clickCell(window, 7);
        QVERIFY(board()->hasFocus());
        QCOMPARE(board()->SelText(), QString(" xx"));
    }

    void sizesOfAScreen()
    {
        using enum MapSize::Sizing;
        // Pixels and twips a pixel, the largest size, and whether it can be changed.
        const std::tuple<int, int, int, MapSize::Sizing> rows[] = {
            {800, 15, 1, Off},  {801, 15, 1, On},   {809, 15, 1, On},      {810, 15, 2, On},
            {1920, 15, 41, On}, {1024, 12, 2, Off}, {1025, 12, 2, AsItIs}, {1280, 12, 11, AsItIs}};
        for (const auto &[width, twips, largest, sizing] : rows) {
            QCOMPARE(MapSize::Largest(width, twips), largest);
            QCOMPARE(MapSize::SizingFor(width, twips), sizing);
        }
    }

    void viewsAlone()
    {
        Views alone({}, nullptr);
        for (QAction *item : {alone.ViewZoom, alone.ViewCode, alone.ViewKS, alone.ViewAll})
            item->setCheckable(true); // as the menu makes them
        alone.ViewAll->trigger();
        for (const QStringList &row : {QStringList{" ", "32", "20", "40", "100000", "Space Bar"},
                                       {"~", "126", "7E", "176", "1111110", "~"},
                                       {"\u007F", "127", "7F", "177", "1111111", "Alt+0127"},
                                       {"\u00FF", "255", "FF", "377", "11111111", "Alt+0255"}}) {
            alone.ShowCharacter(row[0], DefaultCharTexts(row[1].toInt()));
            QCOMPARE((QStringList{alone.TextZoom->Caption(0), alone.AscCode->text(),
                                  alone.HexCode->text(), alone.OctCode->text(),
                                  alone.BinCode->text(), alone.KS->text()}),
                     row);
        }
        QCOMPARE(
            QAccessible::queryAccessibleInterface(alone.TextZoom)->text(QAccessible::Description),
            QString("\u00FF"));
        alone.resize(134, 253);
        alone.show();
        QVERIFY(QTest::qWaitForWindowExposed(&alone));
        const QSignalSpy menus(&alone, &Views::MenuWanted);
        for (const auto &[control, command] :
             {std::pair<QWidget *, QAction *>(alone.TextZoom, alone.ViewZoom),
              {alone.ZoomSizeSlider->number(), alone.ViewZoom},
              {alone.findChild<QWidget *>("CVACover"), alone.ViewCode},
              {alone.BinCode, alone.ViewCode},
              {alone.findChild<QWidget *>("KVACover"), alone.ViewKS},
              {alone.KS, alone.ViewKS}}) {
            const QPoint corner = control->mapTo(&alone, QPoint(2, 2));
            QTest::mouseClick(alone.windowHandle(), Qt::RightButton, {}, corner);
            QVERIFY(!menus.isEmpty());
            QCOMPARE(menus.last()[0].value<QAction *>(), command);
            QCOMPARE(menus.last()[1].toPoint(), alone.mapToGlobal(corner));
        }
        QTest::mouseClick(alone.ViewsTB, Qt::RightButton, {}, {10, 10});
        QCOMPARE(menus.count(), 6);

        alone.ZoomViewSet(true);
        alone.ZoomSizeSlider->slider()->setSliderDown(true);
        alone.ZoomSizeSlider->slider()->setSliderPosition(30); // the zoom follows at once
        QCOMPARE(alone.TextZoom->cellFont().pointSize(), 30);
    }

    void viewsSwitch()
    {
        const auto shown = [this] {
            return QStringList{views->ZoomSizeSlider->number()->text(), views->BinCode->text(),
                               views->KS->text(), views->TextZoom->Caption(0)}
                .join(' ');
        };
        const auto allMarked = [this] {
            lookAtMenu(window, "ItemView");
            return views->ViewAll->isChecked();
        };
        // What is shown after the mouse passed over "A", and then just switched on again.
        for (const auto &[key, command, off, on] :
             {std::tuple("Zoom", "ViewZoom", "Off 1000001 A ", "72 1000001 A "),
              {"Code", "ViewCode", "72 Off A A", "72 On A A"},
              {"KS", "ViewKS", "72 1000001 Off A", "72 1000001 On A"}}) {
            press(key);
            hover(window, cellOf('A'));
            leaveTheMap(window); // and the last cell is still told of
            QCOMPARE(shown(), QString(off));
            QTest::mouseClick(views->ZoomSizeSlider->number(), Qt::LeftButton);
            QCOMPARE(views->ZoomSizeSlider->edit()->isVisible(), *off == '7');
            QVERIFY(!allMarked());
            chooseFromMenu(window, "ItemView", command);
            QVERIFY(button(key)->isChecked());
            QCOMPARE(shown(), QString(on));
        }
        QVERIFY(allMarked());
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                          views->KS->mapTo(window, QPoint(2, 2)));
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY(menu && menu->actions() == QList<QAction *>{views->ViewKS});
        menu->close();
        views->ViewAll->trigger();
        QCOMPARE(shown(), QString("Off Off Off "));
        views->ViewAll->trigger();
        QCOMPARE(shown(), QString("72 On On "));
    }

    void highlightAndGrid()
    {
        const auto ground = [this](int cell) {
            return pictureOf(map->CharButton, cell).pixelColor(2, 2);
        };
        const QColor plain = ground(0);
        const QColor text = ToColor(views->TextZoom->ForeColor(0), window->palette());
        const int one = cellOf('A'), other = cellOf('a');
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
        QVERIFY(lined(0) && lined(CellCount - 1) && button("FMapG")->isChecked());
    }

    void showsTheFontsOwnGlyphs()
    {
        makeGlyphsReadable(window);
        const QPoint origin = originOfFullRow(pictureOf(map->CharButton, cellOf(FullRowCode)));
        // In the middle; an em is 32 pixels.
        QVERIFY(qAbs(origin.x() + 16 - map->CharButton->pixels(0).center().x()) <= 1);
        for (const auto &[font, number] : {std::pair("Zt Gaps", 2), {"Zt Symbol", 3}}) {
            QVERIFY(chooseFont(window, font));
            for (int code = FirstCode; code <= 255; ++code) {
                GlyphPicture expected{.code = code, .font = number};
                if (number == 2 && (code == 'B' || code == 0xC8))
                    expected = {.font = number, .missing = true};
                else if (number == 2 && code == ' ')
                    expected = {};
                QCOMPARE(readGlyph(pictureOf(map->CharButton, cellOf(code)), origin), expected);
            }
        }
    }

private:
    /// These sizing commands are on and no others, in their buttons and menu items alike.
    void checkSizing(const QString &on) const
    {
        for (const auto &[command, key, item] : {std::tuple("larger", "FMap+", map->FMLarger),
                                                 {"smaller", "FMap-", map->FMSmaller},
                                                 {"realign", "RAFMap", map->FMRealign}}) {
            QCOMPARE(button(key)->isEnabled(), on.contains(command));
            QCOMPARE(item->isEnabled(), on.contains(command));
        }
        QCOMPARE(map->sldSetFMapSize->slider()->isEnabled(), on.contains("slider"));
    }
    FontMap *map = nullptr;
    Views *views = nullptr;
};

ZENDOVA_WINDOW_TEST(TestFontMap)
#include "tst_fontmap.moc"
