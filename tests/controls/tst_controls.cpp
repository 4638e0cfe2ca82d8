// The controls that several windows share, each by itself: what counts as a number, the bands of a
// bar under the mouse, a board of colour blocks, and the lines between cells.
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/MoveInGrid.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/SplitBar.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace {

constexpr TwipScale Fifteen; // 15 twips a pixel

/// A bar of 400 pixels, with bands of these pixels.
class Bar : public BandBar
{
public:
    explicit Bar(std::initializer_list<double> widths = {100, 100, 50, 50}) : BandBar(Fifteen)
    {
        resize(400, 24);
        for (const double width : widths)
            addBand(new QWidget, width * Fifteen.X);
        show();
    }

    /// Left edges of the visible bands, in pixels.
    QList<int> lefts() const
    {
        constexpr int grip = 8; // pixels
        QList<int> found;
        for (int index = 0; index < bandCount(); ++index)
            if (isBandVisible(index))
                found += band(index)->x() - grip;
        return found;
    }

    void drag(int from, int to)
    {
        QTest::mousePress(this, Qt::LeftButton, {}, {from, 10});
        QTest::mouseMove(this, {to, 10});
        QTest::mouseRelease(this, Qt::LeftButton, {}, {to, 10});
    }
};

struct PaintedRegion : QObject
{
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            Region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion Region;
};

/// A bar of two pixels, at 50 in a parent of 100, which an owner moves where it is wanted.
struct Split
{
    Split()
    {
        Parent.resize(100, 100);
        Bar.setGeometry(0, 50, 100, 2);
        Bar.setLimits([] { return SplitBar::Limits{.First = 600, .Last = 1200}; });
        QObject::connect(&Bar, &SplitBar::Dragged, &Parent,
                         [this](double target) { Bar.move(0, Fifteen.down(target)); });
        Parent.show();
    }
    void mouse(QEvent::Type type, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        const bool moves = type == QEvent::MouseMove;
        const bool releases = type == QEvent::MouseButtonRelease;
        const QPointF at(20, y - Grip->y());
        QMouseEvent event(type, at, Grip->mapToGlobal(at), moves ? Qt::NoButton : button,
                          releases ? Qt::NoButton : button, {});
        QApplication::sendEvent(Grip, &event);
    }

    QWidget Parent;
    SplitBar &Bar = *new SplitBar(Fifteen, &Parent);
    QWidget *Grip = Parent.findChild<QWidget *>("SplitGrip");
    QSignalSpy Dragged{&Bar, &SplitBar::Dragged};
    QSignalSpy Released{&Bar, &SplitBar::Released};
    QSignalSpy DoubleClicked{&Bar, &SplitBar::DoubleClicked};
};

/// Three cells of 28 pixels in a row, which share their lines.
class Row : public CharCells
{
public:
    explicit Row(const QColor &color) : CharCells(3)
    {
        setPlaces({{0, 0, 420, 420}, {405, 0, 420, 420}, {810, 0, 420, 420}});
        const ColorValue value = RGBValue(color.red(), color.green(), color.blue());
        for (int cell = 0; cell < count(); ++cell)
            setColors(cell, value, value);
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

/// How thick the dark lines are that a row of pixels meets, one after the other.
QList<int> linesAlong(const QImage &image, int y)
{
    QList<int> lengths;
    bool inside = false;
    for (int x = 0; x < image.width(); ++x) {
        const bool dark = qGray(image.pixel(x, y)) < 250;
        if (dark && !inside)
            lengths += 0;
        if (dark)
            ++lengths.last();
        inside = dark;
    }
    return lengths;
}

} // namespace

class TestControls : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void movesInGrids()
    {
        const struct
        {
            int Count, Columns;
            Qt::Key Key;
            QList<std::pair<int, int>> Moves;
        } rows[] = {
            {16, 8, Qt::Key_Home, {{13, 1}}},
            {16, 8, Qt::Key_End, {{2, 16}}},
            {16, 8, Qt::Key_Left, {{1, 16}, {9, 8}}},
            {16, 8, Qt::Key_Right, {{16, 1}, {8, 9}}},
            {16, 8, Qt::Key_Up, {{1, 16}, {2, 9}, {8, 15}, {9, 1}}},
            {16, 8, Qt::Key_Down, {{8, 16}, {9, 2}, {16, 1}}},
            {16, 8, Qt::Key_Space, {{9, 9}}},
            // A last row of one place.
            {25, 8, Qt::Key_Up, {{1, 25}, {2, 17}, {8, 23}, {25, 17}}},
            {25, 8, Qt::Key_Down, {{17, 25}, {18, 3}, {24, 9}, {25, 1}}},
            {224, 28, Qt::Key_Up, {{2, 197}}},
        };
        for (const auto &[count, columns, key, moves] : rows)
            for (const auto &[from, to] : moves)
                QCOMPARE(MoveInGrid(from, key, count, columns), to);
    }

    void numbers()
    {
        // A half goes to the even number.
        for (const auto &[text, number] : {std::pair(" 12 ", 12),
                                           {"-3", -3},
                                           {"12.5", 12},
                                           {"13.5", 14},
                                           {"2e1", 20},
                                           {"99999999999", 1000000000},
                                           {"-99999999999", -1000000000}})
            QCOMPARE(NumberSlider::parse(text), std::optional(number));
        for (const char *text : {"abc", "12pt", "1 2", "", " ", "inf", "nan", "1e999", "12,4"})
            QVERIFY2(!NumberSlider::parse(text), text);
        QLocale::setDefault(QLocale("de_DE"));
        QCOMPARE(NumberSlider::parse("12,4"), std::optional(12));
        QCOMPARE(NumberSlider::parse("12.4"), std::optional(12));
    }

    void bandsOfABar()
    {
        Bar bar;
        QCOMPARE(bar.lefts(), QList({0, 100, 200, 250}));
        bar.setBandVisible(1, false);
        bar.setBandVisible(3, false);
        QCOMPARE(bar.lefts(), QList({0, 100}));
        QCOMPARE(bar.band(2)->geometry().right(), 399); // the last one takes the rest
        bar.setBandVisible(1, true);
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
        for (const auto &[hidden, from, to, lefts] : {
                 std::tuple(-1, 100, 130, QList{0, 130, 230, 280}), // the bands behind it go along
                 {-1, 100, -50, {0, 8, 108, 158}},
                 {-1, 100, 390, {0, 376, 384, 392}}, // all grips stay in the bar
                 {-1, 100, 260, {0, 260, 360, 392}}, // the last gives way first, then its neighbour
                 {-1, 3, 60, {0, 100, 200, 250}},    // the first has no grip
                 {-1, 120, 160, {0, 100, 200, 250}}, // beside the grip
                 {1, 100, 130, {0, 130, 180}},       // over a hidden band
                 {2, 100, 390, {0, 384, 392}},       // which takes no room
             }) {
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

    void bandsKeepTheirContents()
    {
        // Contents of 60, 80 and 40 pixels at least, in bands of 120, and one more band.
        const auto fill = [](Bar &bar) {
            auto *fixed = new QWidget;
            fixed->setFixedWidth(60);
            auto *laidOut = new QWidget;
            (new QHBoxLayout(laidOut))->setContentsMargins(0, 0, 0, 0);
            laidOut->layout()->addItem(new QSpacerItem(40, 1));
            bar.addBand(fixed, 120 * Fifteen.X);
            bar.addBand(new QWidget, 120 * Fifteen.X, 80 * Fifteen.X);
            bar.addBand(laidOut, 120 * Fifteen.X);
            bar.addBand(new QWidget, 100 * Fifteen.X, 20 * Fifteen.X);
            return laidOut->layout();
        };
        for (const auto &[from, to, lefts] : {
                 std::tuple(120, 20, QList{0, 68, 188, 308}), // stops at its content
                 {240, 130, {0, 120, 208, 328}},
                 {120, 140, {0, 140, 260, 372}}, // the third gives way
                 {120, 390, {0, 236, 324, 372}}, // to its content, as do the others
             }) {
            Bar bar({});
            fill(bar);
            bar.drag(from, to);
            QCOMPARE(bar.lefts(), lefts);
            // What gave way keeps to it when there is room again.
            bar.resize(1000, bar.height());
            QCOMPARE(bar.lefts(), lefts);
        }
        Bar bar({});
        QLayout *contents = fill(bar);
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
                           Fifteen, [](int n, int) { return n; });
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

        PaintedRegion painted;
        blocks.installEventFilter(&painted);
        blocks.show();
        QTRY_VERIFY(!painted.Region.isEmpty());
        painted.Region = {};
        blocks.setColor(2, RGBValue(0, 255, 0));
        QTRY_COMPARE(painted.Region, QRegion(blocks.pixels(2)));
        QCOMPARE(at(50), QColor(0, 255, 0));
    }

    void fontsByTheirLetters()
    {
        std::vector<FontCombo::Item> items;
        for (const char *text :
             {"@Vertical", "Arial", "Avant", "", "zapf", "[New]", "2nd", "{Odd}"})
            items.push_back({text, "TT"});
        const QList<std::tuple<char, int, int, int>> rows = {
            // key, item before and after, clicks
            {'a', 8, 2, 1}, {'A', 3, 2, 1}, {'Z', 2, 5, 1},
            {'[', 2, 6, 1}, {'q', 3, 3, 1}, // a jump to nowhere is one all the same
            {'@', 3, 3, 0}, {'{', 3, 3, 0}, {'2', 8, 8, 0}};
        FontCombo combo;
        combo.setItems(items);
        combo.show();
        const QSignalSpy clicks(&combo, &FontCombo::Click);
        qsizetype clicked = 0;
        for (const bool open : {false, true}) {
            for (const auto &[key, before, after, more] : rows) {
                combo.SelectItem(before);
                if (open) {
                    combo.showPopup();
                    QTest::keyClick(combo.view(), Qt::Key_Home); // moves the highlight alone
                    QCOMPARE(combo.view()->currentIndex().row(), 0);
                    QCOMPARE(combo.SelectedItem(), before);
                }
                QTest::keyClick(open ? static_cast<QWidget *>(combo.view()) : &combo, key);
                QVERIFY2(combo.SelectedItem() == after, qPrintable(QString(key)));
                QCOMPARE(clicks.count(), clicked += more);
                if (open && key != 'q') // the highlight goes along, or back
                    QCOMPARE(combo.view()->currentIndex().row(), after - 1);
                combo.hidePopup();
            }
        }
        combo.setJumpKeys('2', '2');
        QTest::keyClick(&combo, 'a');
        QCOMPARE(combo.SelectedItem(), 8);
        QTest::keyClick(&combo, '2');
        QCOMPARE(combo.SelectedItem(), 7);
    }

    void splitBarTellsWhereItIsWanted()
    {
        // Where the mouse takes the bar or its grip and goes to, and the bar's place then: its
        // pixel 2 is held, or one as far beside as the mouse was.
        const QList<std::tuple<int, int, int>> rows = {
            {50, 54, 50}, {50, 55, 53}, {50, 49, 47}, {50, 52, 50}, {47, 48, 50}, {47, 52, 53},
            {54, 60, 55}, {50, 82, 80}, {50, 83, 50}, {50, 42, 40}, {50, 41, 50}}; // to its limits
        for (const auto &[from, to, top] : rows) {
            Split split;
            split.mouse(QEvent::MouseButtonPress, from);
            split.mouse(QEvent::MouseButtonPress, from, Qt::RightButton);
            split.mouse(QEvent::MouseButtonRelease, from, Qt::RightButton);
            QCOMPARE(split.Released.count(), 0);
            split.mouse(QEvent::MouseMove, to);
            QCOMPARE(split.Bar.y(), top);
            QCOMPARE(split.Dragged.count(), top == 50 ? 0 : 1);
            split.mouse(QEvent::MouseButtonRelease, to);
            QCOMPARE(split.Released.count(), 1);
            split.mouse(QEvent::MouseMove, 70); // let go
            QCOMPARE(split.Bar.y(), top);
        }
        Split split;
        split.Bar.setScale({.X = 15, .Y = 12});
        split.mouse(QEvent::MouseButtonPress, 50);
        split.mouse(QEvent::MouseMove, 70);
        QCOMPARE(split.Dragged.last().first().toDouble(), 68.0 * 12);
        split.mouse(QEvent::MouseButtonDblClick, 50, Qt::RightButton);
        split.mouse(QEvent::MouseButtonDblClick, 50);
        QCOMPARE(split.DoubleClicked.count(), 1);
    }

    void splitGripGoesWithTheBar()
    {
        Split split;
        (new QWidget(&split.Parent))->show(); // made later, it would lie over the grip
        split.Bar.setGeometry(10, 20, 60, 2);
        QCOMPARE(split.Grip->geometry(), QRect(10, 17, 60, 8));
        QCOMPARE(split.Parent.childAt(40, 24), split.Grip);
        split.Bar.setReachAbove(0);
        QCOMPARE(split.Grip->geometry(), QRect(10, 20, 60, 5));
        split.Bar.setToolTip("Pull");
        QCOMPARE(split.Grip->toolTip(), QString("Pull"));
        split.Bar.hide();
        QVERIFY(split.Grip->isHidden());
        split.Bar.show();
        QVERIFY(split.Grip->isVisible());
        delete &split.Bar;
        QVERIFY(!split.Parent.findChild<QWidget *>("SplitGrip"));
    }

    void selectedCell()
    {
        // Whatever the colours, also beside a neighbour that is painted later.
        for (const QColor color : {Qt::white, Qt::black, Qt::gray}) {
            Row cells(color);
            cells.setSelectedCell(1);
            QCOMPARE(cells.selectedCell(), 1);
            const QImage image = cells.picture(Qt::white);
            for (const int x : {27, 28, 53, 54}) // both lines of the left and of the right side
                QCOMPARE(image.pixelColor(x, 14),
                         QColor(x == 27 || x == 54 ? Qt::black : Qt::white));
            QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&cells);
            cells.setActiveCell(2); // the mouse passes
            for (int cell = 0; cell < cells.count(); ++cell)
                QCOMPARE(bool(table->child(cell)->state().selected), cell == 1);
            QCOMPARE(table->focusChild(), table->child(1));
            cells.setSelectedCell(-1);
            QVERIFY(cells.picture(Qt::white) != image);
            QVERIFY(table->child(2)->state().selected);
        }
    }

    void transparentCells()
    {
        Row cells(Qt::black);
        const QPoint beside(13, 14);
        QCOMPARE(cells.picture(Qt::green).pixelColor(beside), QColor(Qt::black));
        cells.setTransparent(true);
        const QImage lined = cells.picture(Qt::green);
        QCOMPARE(lined.pixelColor(beside), QColor(Qt::green));
        QCOMPARE(lined.pixelColor(0, 14), QColor(Qt::black));
        for (int cell = 0; cell < cells.count(); ++cell)
            cells.setBorderStyle(cell, 0);
        QImage untouched(lined.size(), lined.format());
        untouched.fill(Qt::green);
        QCOMPARE(cells.picture(Qt::green), untouched);
        cells.setCaption(0, "x");
        QVERIFY(cells.picture(Qt::green) != untouched);
    }

    void cellToolTips()
    {
        Row cells(Qt::white);
        cells.setToolTip(1, "Alt+0128");
        const auto shown = [&cells](int x) {
            QHelpEvent event(QEvent::ToolTip, {x, 14}, cells.mapToGlobal(QPoint(x, 14)));
            QApplication::sendEvent(&cells, &event);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        cells.show();
        QCOMPARE(shown(40), QString("Alt+0128"));
        QTRY_COMPARE(shown(10), QString());
        cells.setToolTip("All");
        QCOMPARE(shown(10), QString("All"));
        QCOMPARE(shown(40), QString("Alt+0128"));
    }

    void glyphsMoveIntoTheirCells()
    {
        const auto inkOf = [](const char *file, const QString &text, int size, int side) {
            const int loaded =
                QFontDatabase::addApplicationFont(ZENDOVA_TEST_FONTS + QString(file));
            QFont font(QFontDatabase::applicationFontFamilies(loaded).value(0));
            font.setPixelSize(size);
            CharCells cells(1);
            cells.setPlaces({{0, 0, side * Fifteen.X, side * Fifteen.Y}});
            cells.setColors(0, RGBValue(0, 0, 0), RGBValue(255, 255, 255));
            cells.setCellFont(font);
            cells.setCaption(0, text);
            cells.resize(cells.sizeHint());
            const QImage image = cells.grab().toImage();
            QRegion ink;
            for (int y = 0; y < side; ++y)
                for (int x = 0; x < side; ++x)
                    if (qGray(image.pixel(x, y)) < 128)
                        ink += QRect(x, y, 1, 1);
            return ink;
        };
        // Too low by the metrics, it is moved up to the line and shows whole.
        const QRegion whole = inkOf("/latin.ttf", "A", 36, 100);
        const QRegion moved = inkOf("/latin.ttf", "A", 36, 28);
        QCOMPARE(moved.boundingRect().bottom(), 26);
        QCOMPARE(moved.translated(whole.boundingRect().topLeft() - moved.boundingRect().topLeft()),
                 whole);
        // Of what is too high a letter shows its top, whose squares are 12 pixels high, and a
        // symbol its middle, with 5 pixels left of them.
        const auto upper = [&inkOf](const char *file, const char16_t *text) {
            const QRegion ink = inkOf(file, QString::fromUtf16(text), 64, 28);
            return ink.intersected(QRect(0, 0, 28, 8)).boundingRect();
        };
        QCOMPARE(upper("/latin.ttf", u"A").bottom(), 7);
        QCOMPARE(upper("/symbol.ttf", u"\uF041").bottom(), 5);
    }

    void gridLinesAreEven()
    {
        constexpr int columns = 28;
        for (const auto &[scale, twips, thick] :
             {std::tuple(1.0, 15.0, 1), {1.25, 15.0, 1}, {2.0, 15.0, 2}, {1.0, 12.0, 1}}) {
            CharCells cells(columns * 2);
            cells.setScale({.X = twips, .Y = twips});
            std::vector<TwipRect> places;
            for (int cell = 0; cell < cells.count(); ++cell) {
                places.push_back({405.0 * (cell % columns), 405.0 * (cell / columns), 420, 420});
                cells.setColors(cell, RGBValue(0, 0, 0), RGBValue(255, 255, 255));
            }
            cells.setPlaces(places);
            cells.resize(cells.sizeHint());
            for (const int offset : {0, 7}) { // of the cells in their window
                QImage image((cells.size() + QSize(offset, offset)) * scale + QSize(1, 1),
                             QImage::Format_RGB32);
                image.setDevicePixelRatio(scale);
                image.fill(Qt::white);
                cells.render(&image, QPoint(offset, offset), {}, QWidget::DrawChildren);
                // Through the middle of the first row, and of the first column.
                const int middle = static_cast<int>((offset + 14) * scale);
                const QImage turned = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
                QCOMPARE(linesAlong(image, middle), QList<int>(columns + 1, thick));
                QCOMPARE(linesAlong(turned, middle), QList<int>(3, thick));
            }
        }
    }
};

QTEST_MAIN(TestControls)
#include "tst_controls.moc"
