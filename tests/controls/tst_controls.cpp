// The controls that several windows share, each by itself: what counts as a number, the bands of a
// bar under the mouse, a board of colour blocks, cells and their lines; whole frames at every
// scale, and pictures and states that can be told in every palette.
#include "tests/support/MainWindow.h"

#include "platform/controls/ColorBlocks.h"
#include "platform/controls/Icons.h"
#include "platform/controls/KeyRouting.h"
#include "platform/controls/MoveInGrid.h"
#include "platform/controls/Tones.h"

#include <map>

namespace {

constexpr TwipScale Fifteen; // 15 twips a pixel

/// A bar of 400 pixels, with bands of these pixels.
struct Bar : BandBar
{
    explicit Bar(std::initializer_list<double> widths = {100, 100, 50, 50}) : BandBar(Fifteen)
    {
        resize(400, 24);
        for (const double width : widths)
            addBand(new QWidget, width * Fifteen.X);
        show();
    }

    QList<int> lefts() const
    {
        QList<int> found;
        for (int index = 0; index < bandCount(); ++index)
            if (isBandVisible(index))
                found += band(index)->x() - 8; // the grip
        return found;
    }

    void drag(int from, int to)
    {
        QTest::mousePress(this, Qt::LeftButton, {}, {from, 10});
        QTest::mouseMove(this, {to, 10});
        QTest::mouseRelease(this, Qt::LeftButton, {}, {to, 10});
    }
};

/// Cells of 28 pixels in rows of 28, which share their lines.
struct Cells : CharCells
{
    explicit Cells(int count, const QColor &ink, const QColor &paper) : CharCells(count)
    {
        std::vector<TwipRect> places;
        for (int cell = 0; cell < count; ++cell) {
            places.push_back({405.0 * (cell % 28), 405.0 * (cell / 28), 420, 420});
            setColors(cell, FromColor(ink), FromColor(paper));
        }
        setPlaces(places);
        resize(sizeHint());
    }
    QImage picture(const QColor &under)
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(under);
        render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
};

/// The colours that a row of pixels meets one after the other, and for how many pixels each.
QList<std::pair<QRgb, int>> runsAlong(const QImage &image, int y)
{
    QList<std::pair<QRgb, int>> runs;
    for (int x = 0; x < image.width(); ++x)
        if (!runs.isEmpty() && runs.last().first == image.pixel(x, y))
            ++runs.last().second;
        else
            runs.append({image.pixel(x, y), 1});
    return runs;
}

/// How thick the lines on white are that a row of pixels meets.
QList<int> linesAlong(const QImage &image, int y)
{
    QList<int> lengths;
    for (const auto &[color, length] : runsAlong(image, y))
        if (color != QColor(Qt::white).rgb())
            lengths += length;
    return lengths;
}

QPalette desktopOf(const QColor &face, const QColor &paper, const QColor &ink,
                   const QColor &highlight, const QColor &highlighted)
{
    QPalette palette(ink, face, face.lighter(), face.darker(), face.darker(120), ink, paper);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

const std::pair<const char *, QPalette> Palettes[] = {
    {"light", desktopOf({239, 239, 239}, Qt::white, Qt::black, {48, 140, 198}, Qt::white)},
    {"dark", desktopOf({45, 45, 45}, {30, 30, 30}, {230, 230, 230}, {42, 130, 218}, Qt::white)},
    {"high contrast", desktopOf(Qt::black, Qt::black, Qt::white, Qt::yellow, Qt::black)}};

QImage pictureOf(QWidget &widget, double scale = 1)
{
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    widget.render(&image);
    image.setDevicePixelRatio(1);
    return image;
}

QImage draw(const QIcon &icon, int size = 16, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap({size, size}, 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

std::map<QRgb, int> colorsIn(const QImage &image)
{
    std::map<QRgb, int> colors;
    for (int at = 0; at < image.width() * image.height(); ++at)
        ++colors[image.pixel(at % image.width(), at / image.width())];
    return colors;
}

double strongest(const QImage &image, const QRect &part, const QColor &ground)
{
    double most = 1;
    for (const auto &[color, count] : colorsIn(image.copy(part)))
        most = std::max(most, contrast(QColor(color), ground));
    return most;
}

/// There is something to see, and every solid pixel can be told from the ground.
bool standsOut(const QImage &image, const QColor &ground, double least)
{
    int ink = 0;
    double weakest = 99;
    for (const auto &[color, count] : colorsIn(image)) {
        ink += qAlpha(color) > 40 ? count : 0;
        if (qAlpha(color) == 255)
            weakest = std::min(weakest, contrast(QColor(color), ground));
    }
    return ink > 20 && weakest >= least && weakest < 99;
}

constexpr QRgb Ground = 0xffc0c0ff;
constexpr QRgb Inside = 0xffffff00;

/// True if the line meets the ground, an edge of the frame, what is inside, the other edge and the
/// ground again; between ground and inside there is one colour alone.
bool isFramed(const QImage &image, int y, int thick)
{
    const auto runs = runsAlong(image, y);
    return runs.size() == 5 && runs[0].first == Ground && runs[2].first == Inside &&
           runs[4].first == Ground && runs[1] == runs[3] && runs[1].second == thick;
}

} // namespace

class TestControls : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void movesInGrids()
    {
        const std::tuple<int, Qt::Key, QList<std::pair<int, int>>> rows[] = {
            {16, Qt::Key_Home, {{13, 1}}},
            {16, Qt::Key_End, {{2, 16}}},
            {16, Qt::Key_Left, {{1, 16}, {9, 8}}},
            {16, Qt::Key_Right, {{16, 1}, {8, 9}}},
            {16, Qt::Key_Up, {{1, 16}, {2, 9}, {8, 15}, {9, 1}}},
            {16, Qt::Key_Down, {{8, 16}, {9, 2}, {16, 1}}},
            {16, Qt::Key_Space, {{9, 9}}},
            {25, Qt::Key_Up, {{1, 25}, {2, 17}, {8, 23}, {25, 17}}},
            {25, Qt::Key_Down, {{17, 25}, {18, 3}, {24, 9}, {25, 1}}}};
        for (const auto &[count, key, moves] : rows)
            for (const auto &[from, to] : moves)
                QCOMPARE(MoveInGrid(from, key, count, 8), to);
        QCOMPARE(MoveInGrid(2, Qt::Key_Up, 224, 28), 197);
    }

    void numbers()
    {
        const auto read = [](const std::initializer_list<const char *> &texts) {
            QString numbers;
            for (const char *text : texts) {
                const auto number = NumberSlider::parse(text);
                numbers += ' ' + (number ? QString::number(*number) : QString("-"));
            }
            return numbers;
        };
        // A half goes to the even number.
        QCOMPARE(read({" 12 ", "-3", "12.5", "13.5", "2e1", "99999999999", "-99999999999"}),
                 QString(" 12 -3 12 14 20 1000000000 -1000000000"));
        QCOMPARE(read({"12pt", "1 2", "", " ", "inf", "nan", "1e999", "12,4"}),
                 QString(" - - - - - - - -"));
        QLocale::setDefault(QLocale("de_DE"));
        QCOMPARE(read({"12,4", "12.4"}), QString(" 12 12"));
        QLocale::setDefault(QLocale::c());
    }

    void bandsOfABar()
    {
        Bar bar;
        QCOMPARE(bar.lefts(), QList({0, 100, 200, 250}));
        bar.setBandVisible(3, false);
        QCOMPARE(bar.lefts(), QList({0, 100, 200}));
        QCOMPARE(bar.band(2)->geometry().right(), 399); // the last one takes the rest
        bar.setBandVisible(3, true);
        // Whatever does not fit, all grips stay in reach and the widths are kept.
        bar.resize(120, bar.height());
        QCOMPARE(bar.lefts(), QList({0, 96, 104, 112}));
        bar.resize(400, bar.height());
        QCOMPARE(bar.lefts(), QList({0, 100, 200, 250}));
        bar.setBandWidth(0, 1e6);
        QCOMPARE(bar.lefts(), QList({0, 376, 384, 392}));
        bar.drag(377, 101);
        QCOMPARE(bar.lefts(), QList({0, 101, 201, 251}));
        bar.setBandWidth(0, 0);
        bar.setScale({.X = 30, .Y = 30});
        QCOMPARE(bar.lefts(), QList({0, 8, 58, 83})); // no narrower than its grip
    }

    void bandDrag()
    {
        // All grips stay in the bar and in their order, the first band has none, and a hidden band
        // takes no room.
        const std::tuple<int, int, int, QList<int>> rows[] = {
            {-1, 100, 130, {0, 130, 230, 280}}, {-1, 100, -50, {0, 8, 108, 158}},
            {-1, 100, 390, {0, 376, 384, 392}}, {-1, 100, 260, {0, 260, 360, 392}},
            {-1, 3, 60, {0, 100, 200, 250}},    {-1, 120, 160, {0, 100, 200, 250}},
            {1, 100, 130, {0, 130, 180}},       {2, 100, 390, {0, 384, 392}}};
        for (const auto &[hidden, from, to, lefts] : rows) {
            Bar bar;
            if (hidden >= 0)
                bar.setBandVisible(hidden, false);
            bar.drag(from, to);
            QTest::mouseMove(&bar, {20, 10}); // let go, the grip stays where it is
            QCOMPARE(bar.lefts(), lefts);
        }
        // A content that keeps the mouse's moves to itself has its own cursor all the same.
        Bar bar;
        QTest::mouseMove(bar.windowHandle(), {103, 10});
        QTRY_COMPARE(bar.cursor().shape(), Qt::SizeHorCursor);
        QCOMPARE(bar.band(1)->cursor().shape(), Qt::ArrowCursor);
    }

    void keysOfAnOpenListAreItsOwn()
    {
        KeyRouting routing;
        qApp->installEventFilter(&routing);
        QWidget behind;
        QDialog dialog(&behind);
        QComboBox box(&dialog);
        box.addItems({"one", "two"});
        behind.show();
        dialog.open();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        // As under Wayland, where the dialog's window gets the keys of the list too.
        box.showPopup();
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
        QVERIFY(dialog.isVisible() && !box.view()->isVisible());
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }

    void bandsKeepTheirContents()
    {
        // Contents of 60, 80 and 40 pixels at least, in bands of 120, and one more band.
        QLayout *contents = nullptr;
        const auto fill = [&contents](Bar &bar) {
            auto *fixed = new QWidget;
            fixed->setFixedWidth(60);
            auto *laidOut = new QWidget;
            contents = new QHBoxLayout(laidOut);
            contents->setContentsMargins(0, 0, 0, 0);
            contents->addItem(new QSpacerItem(40, 1));
            bar.addBand(fixed, 120 * Fifteen.X);
            bar.addBand(new QWidget, 120 * Fifteen.X, 80 * Fifteen.X);
            bar.addBand(laidOut, 120 * Fifteen.X);
            bar.addBand(new QWidget, 100 * Fifteen.X, 20 * Fifteen.X);
        };
        for (const auto &[from, to, lefts] : {
                 std::tuple(120, 20, QList{0, 68, 188, 308}), // stops at its content
                 {120, 140, {0, 140, 260, 372}},              // the third gives way
                 {120, 390, {0, 236, 324, 372}},              // to its content, as do the others
             }) {
            Bar bar({});
            fill(bar);
            bar.drag(from, to);
            QCOMPARE(bar.lefts(), lefts);
            bar.resize(1000, bar.height());
            QCOMPARE(bar.lefts(), lefts);
        }
        Bar bar({});
        fill(bar);
        bar.setBandWidth(0, 0);
        QCOMPARE(bar.bandWidth(0), 68 * Fifteen.X);
        bar.setBandWidth(0, 1e6);
        bar.resize(200, bar.height()); // too narrow for all
        QCOMPARE(bar.lefts(), QList({0, 68, 156, 192}));
        bar.resize(400, bar.height());
        bar.setBandVisible(3, false);
        QCOMPARE(bar.lefts(), QList({0, 264, 352}));
        contents->addItem(new QSpacerItem(50, 1));
        QTRY_COMPARE(bar.lefts(), QList({0, 214, 302})); // its content has grown
    }

    void blocks()
    {
        // Two blocks of 20 pixels with 10 between them, the mark three pixels beyond each side.
        ColorBlocks blocks({{{150, 150, 300, 300}, RGBValue(255, 0, 0), "Red"},
                            {{600, 150, 300, 300}, RGBValue(0, 0, 255), ""}},
                           2, Fifteen, [](int n, int) { return n; });
        blocks.resize(70, 40);
        blocks.setMarkSize(390, 390);
        const QSignalSpy taken(&blocks, &ColorBlocks::Taken);
        const auto at = [&blocks](int x) { return blocks.grab().toImage().pixelColor(x, 20); };
        const QColor ground = at(35);
        QCOMPARE(at(20), QColor(255, 0, 0));
        QCOMPARE(at(50), QColor(0, 0, 255));
        QVERIFY(at(8) != ground && at(38) == ground);
        QTest::mouseClick(&blocks, Qt::LeftButton, {}, {45, 20});
        QCOMPARE(blocks.ChosenBlock(), 2);
        QVERIFY(at(8) == ground && at(38) != ground);
        QTest::mouseDClick(&blocks, Qt::LeftButton, {}, {35, 20}); // between the two
        QVERIFY(taken.isEmpty());
        QTest::mouseDClick(&blocks, Qt::LeftButton, {}, {15, 20});
        QCOMPARE(blocks.ChosenBlock(), 1);
        QCOMPARE(taken.count(), 1);
        blocks.setColor(2, RGBValue(0, 255, 0));
        QCOMPARE(at(50), QColor(0, 255, 0));
    }

    void fontsByTheirLetters()
    {
        std::vector<FontCombo::Item> items;
        for (const char *text :
             {"@Vertical", "Arial", "Avant", "", "{Odd}", "[New]", "2nd", "zapf"})
            items.push_back({text, "TT"});
        FontCombo combo;
        combo.setItems(items);
        combo.show();
        const QSignalSpy clicks(&combo, &FontCombo::Click);
        qsizetype clicked = 0;
        const std::tuple<char, int, int, int> rows[] = {
            {'a', 8, 2, 1}, {'A', 3, 2, 1}, {'Z', 2, 8, 1},
            {'[', 2, 6, 1}, {'q', 3, 3, 1}, // a jump to nowhere is one
            {'@', 3, 3, 0}, {'{', 3, 3, 0}, {'2', 8, 8, 0}};
        for (const auto &[key, before, after, more] : rows) {
            combo.SelectItem(before);
            QTest::keyClick(&combo, key);
            QCOMPARE(combo.SelectedItem(), after);
            QCOMPARE(clicks.count(), clicked += more);
            combo.SelectItem(before);
            combo.showPopup();
            QTest::keyClick(combo.view(), Qt::Key_Home); // moves the highlight alone
            QCOMPARE(combo.SelectedItem(), before);
            QTest::keyClick(combo.view(), key);
            QCOMPARE(combo.SelectedItem(), after);
            QCOMPARE(clicks.count(), clicked += more);
            if (key != 'q') // the highlight goes along, or back
                QCOMPARE(combo.view()->currentIndex().row(), after - 1);
            combo.hidePopup();
        }
        combo.setJumpKeys('2', '2');
        QTest::keyClick(&combo, 'a');
        QCOMPARE(combo.SelectedItem(), 8);
        QTest::keyClick(&combo, '2');
        QCOMPARE(combo.SelectedItem(), 7);
    }

    void selectedCell()
    {
        // Whatever the colours, also beside a neighbour that is painted later.
        for (const QColor color : {Qt::white, Qt::black, Qt::gray}) {
            Cells cells(3, color, color);
            cells.setSelectedCell(1);
            const QImage image = cells.picture(Qt::white);
            for (const int x : {27, 28, 53, 54}) // both lines of the left and of the right side
                QCOMPARE(image.pixelColor(x, 14),
                         QColor(x == 27 || x == 54 ? Qt::black : Qt::white));
            QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&cells);
            cells.setActiveCell(2); // the mouse passes
            QCOMPARE(table->focusChild(), table->child(1));
            cells.setSelectedCell(-1);
            QVERIFY(cells.picture(Qt::white) != image);
            QVERIFY(!table->child(1)->state().selected && table->child(2)->state().selected);
        }
    }

    void transparentCellsWithToolTips()
    {
        Cells cells(3, Qt::black, Qt::black);
        const auto colorAt = [&cells](int x) {
            return cells.picture(Qt::green).pixelColor(x, 14).name();
        };
        QCOMPARE(colorAt(13), "#000000");
        cells.setTransparent(true);
        QCOMPARE(colorAt(13) + colorAt(0), "#00ff00#000000");
        cells.setBorderStyle(0, 0);
        QCOMPARE(colorAt(0), "#00ff00");
        const QImage empty = cells.picture(Qt::green);
        cells.setCaption(0, "x");
        QVERIFY(cells.picture(Qt::green) != empty);
        cells.setToolTip(1, "Alt+0128");
        cells.setToolTip("All");
        cells.show();
        for (const auto &[x, text] : {std::pair(10, "All"), {40, "Alt+0128"}}) {
            QHelpEvent event(QEvent::ToolTip, {x, 14}, cells.mapToGlobal(QPoint(x, 14)));
            QApplication::sendEvent(&cells, &event);
            QCOMPARE(QToolTip::text(), QString(text));
        }
    }

    void glyphsMoveIntoTheirCells()
    {
        const auto inkOf = [](const char *file, const QString &text, int size, int side) {
            const int loaded =
                QFontDatabase::addApplicationFont(ZENDOVA_TEST_FONTS + QString(file));
            QFont font(QFontDatabase::applicationFontFamilies(loaded).value(0));
            font.setPixelSize(size);
            Cells cells(1, Qt::black, Qt::white);
            cells.setPlaces({{0, 0, side * Fifteen.X, side * Fifteen.Y}});
            cells.setCellFont(font);
            cells.setCaption(0, text);
            cells.resize(cells.sizeHint());
            return QRegion(QBitmap::fromImage(cells.grab().toImage(), Qt::ThresholdDither));
        };
        // Too low by the metrics, it is moved up to the line and shows whole.
        const QRegion whole = inkOf("/latin.ttf", "A", 36, 100);
        const QRegion moved = inkOf("/latin.ttf", "A", 36, 28);
        QCOMPARE(moved.boundingRect().bottom(), 26);
        QCOMPARE(moved.translated(whole.boundingRect().topLeft() - moved.boundingRect().topLeft()),
                 whole);
        // Of what is too high a letter shows its top, whose squares are 12 pixels high, and a
        // symbol its middle, with 5 pixels left of them.
        const QRect top(0, 0, 28, 8);
        QCOMPARE((inkOf("/latin.ttf", "A", 64, 28) & top).boundingRect().bottom(), 7);
        QCOMPARE((inkOf("/latin.ttf", "A", 64, 28) & QRect(1, 1, 7, 20)).boundingRect().bottom(),
                 12);
        QCOMPARE((inkOf("/symbol.ttf", "\uF041", 64, 28) & top).boundingRect().bottom(), 5);
    }

    void gridLinesAreEven()
    {
        for (const auto &[scale, twips, thick] :
             {std::tuple(1.0, 15.0, 1), {1.25, 15.0, 1}, {2.0, 15.0, 2}, {1.0, 12.0, 1}}) {
            Cells cells(28 * 2, Qt::black, Qt::white);
            cells.setScale({.X = twips, .Y = twips});
            cells.resize(cells.sizeHint());
            for (const int offset : {0, 7}) { // of the cells in their window
                QImage image((cells.size() + QSize(offset, offset)) * scale + QSize(1, 1),
                             QImage::Format_RGB32);
                image.setDevicePixelRatio(scale);
                image.fill(Qt::white);
                cells.render(&image, QPoint(offset, offset), {}, QWidget::DrawChildren);
                const int middle = static_cast<int>((offset + 14) * scale);
                const QImage turned = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
                QCOMPARE(linesAlong(image, middle), QList<int>(29, thick));
                QCOMPARE(linesAlong(turned, middle), QList<int>(3, thick));
            }
        }
    }

    void framesAreWhole()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(Ground));
        palette.setColor(QPalette::Base, QColor(Inside));
        for (const auto &[scale, thick] :
             {std::pair(1.0, 1), {1.25, 1}, {1.5, 1}, {1.75, 1}, {2.0, 2}}) {
            for (const int style :
                 {int(QFrame::Box) | QFrame::Plain, int(QFrame::StyledPanel) | QFrame::Sunken, 0}) {
                for (int place = 4; place < 8; ++place) {
                    QWidget parent;
                    parent.setPalette(palette);
                    parent.resize(60, 60);
                    QFrame *frame = style ? new QFrame(&parent) : new QPlainTextEdit(&parent);
                    if (style)
                        frame->setFrameStyle(style);
                    frame->setGeometry(place, place + 1, 31 + place, 33 + place);
                    frame->setAutoFillBackground(style != 0);
                    frame->setBackgroundRole(QPalette::Base);
                    const QImage image = pictureOf(parent, scale);
                    const QImage turned = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
                    const int middle = static_cast<int>(25 * scale);
                    QVERIFY2(isFramed(image, middle, thick) && isFramed(turned, middle, thick),
                             qPrintable(QString("%1 at %2").arg(style).arg(scale)));
                }
            }
        }
    }

    void systemColorsAreReadable()
    {
        // Title bars, menu, window, highlight, button, tooltip: the text and its ground.
        for (const auto &[name, palette] : Palettes)
            for (const auto &[ink, ground] :
                 {std::pair(9, 2), {19, 3}, {7, 4}, {8, 5}, {14, 13}, {18, 15}, {23, 24}})
                QVERIFY2(contrast(ToColor(SystemColorValue(ink), palette),
                                  ToColor(SystemColorValue(ground), palette)) >= 3.5,
                         name);
    }

    void picturesCanBeTold()
    {
        for (const auto &[name, palette] : Palettes) {
            QPalette colors = palette;
            QList<QImage> seen;
            for (const Icons::Picture &picture : Icons::Pictures) {
                const QIcon icon = Icons::icon(picture.Key);
                colors.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::gray);
                QApplication::setPalette(colors); // which an icon from before follows
                const QColor face = colors.color(QPalette::Button);
                const QImage plain = draw(icon);
                const QImage disabled = draw(icon, 16, QIcon::Disabled);
                const QImage selected = draw(icon, 16, QIcon::Selected);
                QVERIFY2(!seen.contains(plain), picture.Key);
                QVERIFY2(standsOut(plain, face, 3), picture.Key);
                QVERIFY2(disabled != plain && standsOut(disabled, face, 1.2), picture.Key);
                QVERIFY2(standsOut(selected, colors.color(QPalette::Highlight), 3), picture.Key);
                seen += plain;
                // In a theme of one colour for both it fades all the same.
                const QColor ink = colors.color(QPalette::ButtonText);
                colors.setColor(QPalette::Disabled, QPalette::ButtonText, ink);
                QApplication::setPalette(colors);
                const QImage faded = draw(icon, 16, QIcon::Disabled);
                QVERIFY2(!colorsIn(faded).contains(ink.rgb()), picture.Key);
            }
        }
        QCOMPARE(draw(Icons::menuPicture(22)), draw(Icons::icon("About")));
        QVERIFY(Icons::menuPicture(0).isNull() && Icons::menuPicture(23).isNull());
        const QImage blue = draw(Icons::colorButton(Qt::blue));
        QVERIFY(colorsIn(blue)[QColor(Qt::blue).rgb()] >= 24);
        QVERIFY(draw(Icons::colorButton(Qt::blue), 16, QIcon::Disabled) != blue);
        // A dense screen shows pictures drawn for it; straight strokes have no half-painted pixels.
        QImage screen(60, 32, QImage::Format_ARGB32_Premultiplied);
        screen.setDevicePixelRatio(2);
        screen.fill(Qt::transparent);
        QPainter painter(&screen);
        Icons::icon("Zoom").paint(&painter, QRect(0, 0, 30, 16));
        painter.end();
        screen.setDevicePixelRatio(1);
        screen.convertTo(QImage::Format_ARGB32);
        QCOMPARE(screen.copy(14, 0, 32, 32), draw(Icons::icon("Zoom"), 32));
        const QImage grid = draw(Icons::icon("FMapG"), 32);
        for (const auto &[color, count] : colorsIn(grid))
            QVERIFY(qAlpha(color) < 3 || qAlpha(color) > 251);
    }

    void statesCanBeTold()
    {
        for (const auto &[name, palette] : Palettes) {
            QApplication::setPalette(palette);
            const QColor face = palette.color(QPalette::Button);
            QWidget parent;
            Toolbar bar(&parent);
            QToolButton *button = bar.addButton({"Bold", "", "", Toolbar::Kind::Check});
            bar.resize(40, 22);
            const QRect edge(0, 4, 3, 14);
            QVERIFY2(strongest(pictureOf(*button), edge, face) < 3, name);
            button->setChecked(true);
            QVERIFY2(strongest(pictureOf(*button), edge, face) >= 3, name);
            const QColor ground = pictureOf(*button).pixelColor(5, 5);
            QVERIFY2(ground != face, name);
            button->setIcon(Icons::icon("Bold"));
            QVERIFY2(strongest(pictureOf(*button), {3, 3, 16, 16}, ground) >= 4.5, name);
            QCheckBox box;
            box.resize(box.sizeHint());
            const QColor paper = palette.color(QPalette::Base);
            QVERIFY2(strongest(pictureOf(box), box.rect(), paper) >= 3, name); // the frame
            const QRect inside(box.rect().center() - QPoint(2, 2), QSize(5, 5));
            QCOMPARE(strongest(pictureOf(box), inside, paper), 1.0);
            box.setChecked(true);
            QVERIFY2(strongest(pictureOf(box), inside, paper) >= 4.5, name);
        }
    }
};

ZENDOVA_WINDOW_TEST(TestControls)
#include "tst_controls.moc"
