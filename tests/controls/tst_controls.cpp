// The controls that several windows share, each by itself: what counts as a number, the bands of a
// bar under the mouse, and a board of colour blocks.
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/NumberSlider.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

namespace {

constexpr TwipScale Fifteen; // 15 twips a pixel
constexpr int Grip = 8;      // pixels

/// Four bands of 100, 100, 50 and 50 pixels in a bar of 400.
class Bar : public BandBar
{
public:
    Bar() : BandBar(Fifteen)
    {
        resize(400, 24);
        for (const double width : {100.0, 100.0, 50.0, 50.0})
            addBand(new QWidget, width * Fifteen.X);
        show();
    }

    /// Left edges of the visible bands, in pixels.
    QList<int> lefts() const
    {
        QList<int> found;
        for (int index = 0; index < bandCount(); ++index)
            if (isBandVisible(index))
                found += band(index)->x() - Grip;
        return found;
    }

    void drag(int from, int to)
    {
        QTest::mousePress(this, Qt::LeftButton, {}, {from, 10});
        QTest::mouseMove(this, {to, 10});
        QTest::mouseRelease(this, Qt::LeftButton, {}, {to, 10});
    }
};

/// Two blocks of 20 pixels with 10 between them, the second without a label.
class Blocks : public ColorBlocks
{
public:
    Blocks()
        : ColorBlocks({{{150, 150, 300, 300}, RGBValue(255, 0, 0), "Red"},
                       {{600, 150, 300, 300}, RGBValue(0, 0, 255), ""}},
                      Fifteen, [](int n, int key) { return key == Qt::Key_Right ? 2 : n; })
    {
        resize(70, 40);
        setMarkSize(390, 390); // three pixels beyond each side
    }
};

} // namespace

class TestControls : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void numbers_data();
    void numbers();
    void numberBox();
    void bandsOfABar();
    void bandDrag_data();
    void bandDrag();
    void bandCursor();
    void blocksByMouse();
    void blocksByKeys();
    void blocksAreSeen();
    void gridLinesAreEven_data();
    void gridLinesAreEven();
};

void TestControls::numbers_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("number"); // invalid for none
    const QVariant none;
    const auto row = [](const char *name, const QString &text, const QVariant &number,
                        const char *locale = "C") {
        QTest::newRow(name) << locale << text << number;
    };
    row("whole", "12", 12);
    row("blanks round it", "  12 ", 12);
    row("negative", "-3", -3);
    row("sign", "+7", 7);
    row("fraction", "12.4", 12);
    row("half to the even below", "12.5", 12);
    row("half to the even above", "13.5", 14);
    row("exponent", "2e1", 20);
    row("very large", "99999999999", 1000000000);
    row("very small", "-99999999999", -1000000000);
    row("comma of the user", "12,4", 12, "de_DE");
    row("point under a comma", "12.4", 12, "de_DE");
    row("letters", "abc", none);
    row("number and letters", "12pt", none);
    row("two numbers", "1 2", none);
    row("empty", "", none);
    row("blank", " ", none);
    row("infinite", "inf", none);
    row("not a number", "nan", none);
    row("beyond all numbers", "1e999", none);
}

void TestControls::numbers()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QFETCH(QVariant, number);
    QLocale::setDefault(QLocale(locale));
    const std::optional<int> found = NumberSlider::parse(text);
    QCOMPARE(found.has_value(), number.isValid());
    QCOMPARE(found.value_or(0), number.toInt());
}

void TestControls::numberBox()
{
    QWidget window;
    NumberSlider sizes(&window, 1, 20, NumberSlider::NoNumber::Ignored);
    sizes.number()->setGeometry(0, 0, 40, 20);
    window.show();
    const QSignalSpy finished(&sizes, &NumberSlider::Finished);
    sizes.setValue(5);
    const auto enter = [&](const QString &text) {
        QTest::mouseClick(sizes.number(), Qt::LeftButton);
        sizes.edit()->setText(text);
        QTest::keyClick(sizes.edit(), Qt::Key_Return);
    };
    enter("nothing");
    QCOMPARE(sizes.value(), 5);
    QVERIFY(finished.isEmpty());
    enter("99");
    QCOMPARE(sizes.value(), 20);
    QCOMPARE(finished.count(), 1);
    sizes.setMost(12);
    QCOMPARE(sizes.value(), 12);
    enter("13");
    QCOMPARE(sizes.value(), 12);
    QTest::mouseClick(sizes.number(), Qt::RightButton);
    QVERIFY(!sizes.edit()->isVisible());
    QCOMPARE(sizes.number()->cursor().shape(), Qt::IBeamCursor);
    sizes.setEditable(false);
    QTest::mouseClick(sizes.number(), Qt::LeftButton);
    QVERIFY(!sizes.edit()->isVisible());
    QCOMPARE(sizes.number()->cursor().shape(), Qt::ArrowCursor);
    sizes.setEditable(true);
    QCOMPARE(sizes.number()->cursor().shape(), Qt::IBeamCursor);
}

void TestControls::bandsOfABar()
{
    Bar bar;
    QCOMPARE(bar.lefts(), QList<int>({0, 100, 200, 250}));
    QCOMPARE(bar.band(3)->geometry().right(), 399); // the last one takes the rest
    bar.setBandWidth(1, 150 * Fifteen.X);
    QCOMPARE(bar.lefts(), QList<int>({0, 100, 250, 300}));
    bar.setBandVisible(1, false);
    QVERIFY(!bar.band(1)->isVisible());
    QCOMPARE(bar.lefts(), QList<int>({0, 100, 150}));
    bar.setBandVisible(3, false);
    QCOMPARE(bar.band(2)->geometry().right(), 399);
    QCOMPARE(bar.bandWidth(2), 50 * Fifteen.X); // its own width is kept
    bar.setBandVisible(1, true);
    bar.setBandVisible(3, true);
    QCOMPARE(bar.lefts(), QList<int>({0, 100, 250, 300}));
    bar.setBandWidth(0, 0);
    QCOMPARE(bar.bandWidth(0), Grip * Fifteen.X);
    // Whatever does not fit, all grips stay in reach and the widths are kept.
    bar.setBandWidth(0, 100 * Fifteen.X);
    bar.setBandWidth(1, 100 * Fifteen.X);
    bar.resize(120, bar.height());
    QCOMPARE(bar.lefts(), QList<int>({0, 96, 104, 112}));
    bar.setBandVisible(2, false);
    QCOMPARE(bar.lefts(), QList<int>({0, 100, 112}));
    bar.setBandVisible(2, true);
    bar.resize(400, bar.height());
    QCOMPARE(bar.lefts(), QList<int>({0, 100, 200, 250}));
    bar.setBandWidth(0, 1e6);
    QCOMPARE(bar.lefts(), QList<int>({0, 376, 384, 392}));
    QCOMPARE(bar.bandWidth(0), 1e6);
    bar.drag(377, 101);
    QCOMPARE(bar.lefts(), QList<int>({0, 101, 201, 251}));
    bar.setBandWidth(0, Grip * Fifteen.X);
    bar.setBandWidth(1, 150 * Fifteen.X);
    bar.setScale({.X = 30, .Y = 30});
    QCOMPARE(bar.lefts(), QList<int>({0, 4, 79, 104}));
}

void TestControls::bandDrag_data()
{
    QTest::addColumn<int>("hidden"); // -1 for none
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("lefts");
    const auto row = [](const char *name, int hidden, int from, int to, const QList<int> &lefts) {
        QTest::newRow(name) << hidden << from << to << lefts;
    };
    row("wider", -1, 100, 130, {0, 130, 230, 280});
    row("narrower", -1, 203, 153, {0, 100, 153, 203});
    row("down to the grip", -1, 100, -50, {0, 8, 108, 158});
    row("all grips stay in the bar", -1, 100, 390, {0, 242, 342, 392});
    row("the last one up to the edge", -1, 250, 500, {0, 100, 200, 392});
    row("the first has no grip", -1, 3, 60, {0, 100, 200, 250});
    row("beside the grip", -1, 120, 160, {0, 100, 200, 250});
    row("over a hidden band", 1, 100, 130, {0, 130, 180});
    row("a hidden band takes no room", 2, 100, 390, {0, 292, 392});
}

void TestControls::bandDrag()
{
    QFETCH(int, hidden);
    QFETCH(int, from);
    QFETCH(int, to);
    Bar bar;
    if (hidden >= 0)
        bar.setBandVisible(hidden, false);
    bar.drag(from, to);
    QTEST(bar.lefts(), "lefts");
    // Let go, the grip stays where it is.
    QTest::mouseMove(&bar, {20, 10});
    QTEST(bar.lefts(), "lefts");
}

void TestControls::bandCursor()
{
    Bar bar;
    const auto cursorAt = [&bar](int x) {
        QTest::mouseMove(bar.windowHandle(), {x, 10});
        QCoreApplication::processEvents();
        return bar.cursor().shape();
    };
    QCOMPARE(cursorAt(3), Qt::ArrowCursor);
    QCOMPARE(cursorAt(103), Qt::SizeHorCursor);
    // A content that keeps the mouse's moves to itself has its own cursor all the same.
    for (int index = 0; index < bar.bandCount(); ++index)
        QCOMPARE(bar.band(index)->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(cursorAt(3), Qt::ArrowCursor);
    auto *writing = new QLabel(bar.band(0));
    writing->setCursor(Qt::IBeamCursor);
    QCOMPARE(cursorAt(103), Qt::SizeHorCursor);
    QCOMPARE(writing->cursor().shape(), Qt::IBeamCursor);
}

void TestControls::blocksByMouse()
{
    Blocks blocks;
    const QSignalSpy moved(&blocks, &ColorBlocks::Moved);
    const QSignalSpy taken(&blocks, &ColorBlocks::Taken);
    QTest::mouseClick(&blocks, Qt::LeftButton, {}, {45, 20});
    QCOMPARE(blocks.ChosenBlock(), 2);
    QTest::mouseClick(&blocks, Qt::LeftButton, {}, {35, 20}); // between the two
    QTest::mouseDClick(&blocks, Qt::LeftButton, {}, {35, 20});
    QCOMPARE(moved.count(), 1);
    QVERIFY(taken.isEmpty());
    QTest::mouseDClick(&blocks, Qt::LeftButton, {}, {15, 20});
    QCOMPARE(blocks.ChosenBlock(), 1);
    QCOMPARE(taken.count(), 1);
}

void TestControls::blocksByKeys()
{
    Blocks blocks;
    const QSignalSpy taken(&blocks, &ColorBlocks::Taken);
    QTest::keyClick(&blocks, Qt::Key_Left);
    QCOMPARE(blocks.ChosenBlock(), 1);
    QTest::keyClick(&blocks, Qt::Key_Right);
    QCOMPARE(blocks.ChosenBlock(), 2);
    QTest::keyClick(&blocks, Qt::Key_Escape);
    QVERIFY(taken.isEmpty());
    QTest::keyClick(&blocks, Qt::Key_Return);
    QTest::keyClick(&blocks, Qt::Key_Enter);
    QCOMPARE(taken.count(), 2);
}

void TestControls::blocksAreSeen()
{
    Blocks blocks;
    const auto at = [&blocks](int x) { return blocks.grab().toImage().pixelColor(x, 20); };
    QCOMPARE(at(20), QColor(255, 0, 0));
    QCOMPARE(at(50), QColor(0, 0, 255));
    const QColor ground = at(35);
    QVERIFY(at(8) != ground); // the mark, left of the first block
    QCOMPARE(at(38), ground);
    blocks.setChosenBlock(2);
    QCOMPARE(at(8), ground);
    QVERIFY(at(38) != ground);
}

void TestControls::gridLinesAreEven_data()
{
    QTest::addColumn<double>("scale"); // device pixels of one pixel
    QTest::addColumn<double>("twips"); // of one pixel
    QTest::addColumn<int>("thick");
    QTest::newRow("96 dots") << 1.0 << 15.0 << 1;
    QTest::newRow("120 dots") << 1.25 << 15.0 << 1;
    QTest::newRow("144 dots") << 1.5 << 15.0 << 1;
    QTest::newRow("168 dots") << 1.75 << 15.0 << 1;
    QTest::newRow("192 dots") << 2.0 << 15.0 << 2;
    QTest::newRow("288 dots") << 3.0 << 15.0 << 3;
    QTest::newRow("120 dots, unscaled") << 1.0 << 12.0 << 1;
    QTest::newRow("144 dots, unscaled") << 1.0 << 10.0 << 1;
}

void TestControls::gridLinesAreEven()
{
    QFETCH(double, scale);
    QFETCH(double, twips);
    QFETCH(int, thick);
    constexpr int columns = 28;
    CharCells cells(columns * 2);
    cells.setScale({.X = twips, .Y = twips});
    std::vector<TwipRect> places;
    for (int cell = 0; cell < cells.count(); ++cell) {
        const double left = 405.0 * (cell % columns);
        const double top = 405.0 * (cell / columns);
        places.push_back({.Left = left, .Top = top, .Width = 420, .Height = 420});
        cells.setColors(cell, RGBValue(0, 0, 0), RGBValue(255, 255, 255));
    }
    cells.setPlaces(places);
    cells.resize(cells.sizeHint());
    for (const int offset : {0, 1, 7}) { // of the cells in their window
        QImage image((cells.size() + QSize(offset, offset)) * scale + QSize(1, 1),
                     QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        cells.render(&image, QPoint(offset, offset), {}, QWidget::DrawChildren);
        // The lengths of the lines' pixels along the middle of the first row, and of a column.
        const auto lines = [&](bool across) {
            const int middle = static_cast<int>((offset + 14) * scale);
            QList<int> lengths;
            bool inside = false;
            const int end = across ? image.width() : image.height();
            for (int i = 0; i < end; ++i) {
                const QRgb pixel = across ? image.pixel(i, middle) : image.pixel(middle, i);
                const bool line = qGray(pixel) < 250;
                if (line && !inside)
                    lengths += 0;
                if (line)
                    ++lengths.last();
                inside = line;
            }
            return lengths;
        };
        QCOMPARE(lines(true), QList<int>(columns + 1, thick));
        QCOMPARE(lines(false), QList<int>(3, thick));
    }
}

QTEST_MAIN(TestControls)
#include "tst_controls.moc"
