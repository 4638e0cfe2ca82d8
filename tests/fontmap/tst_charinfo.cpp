// The figures and texts behind the map and the fill bar, without a window: codes in four bases,
// keystrokes, the largest size, and when the bar shows and warns.
#include "fontmap/CharInfo.h"
#include "fontmap/MapSize.h"
#include "textboard/FillBar.h"

#include <QTest>

class TestCharInfo : public QObject
{
    Q_OBJECT

private slots:
    void binary_data();
    void binary();
    void textsOfACode_data();
    void textsOfACode();
    void largestMap_data();
    void largestMap();
    void sizing_data();
    void sizing();
    void windowSize_data();
    void windowSize();
    void fillBar_data();
    void fillBar();
};

void TestCharInfo::binary_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("digits");
    QTest::newRow("nothing") << 0 << "";
    QTest::newRow("negative") << -1 << "";
    QTest::newRow("one") << 1 << "1";
    QTest::newRow("32") << 32 << "100000";
    QTest::newRow("65") << 65 << "1000001";
    QTest::newRow("255") << 255 << "11111111";
    QTest::newRow("2^30") << (1 << 30) << "1" + QString(30, '0');
    QTest::newRow("2^31 - 2") << 2147483646 << QString(30, '1') + "0";
    // The first weight is 2^31 - 1 itself, so that number is one digit and all others are nought.
    QTest::newRow("2^31 - 1") << 2147483647 << "1" + QString(31, '0');
}

void TestCharInfo::binary()
{
    QFETCH(int, number);
    QTEST(Bin(number), "digits");
}

void TestCharInfo::textsOfACode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](int code, const QStringList &texts) {
        QTest::addRow("%d", code) << code << texts;
    };
    row(32, {"32", "20", "40", "100000", "Space Bar"});
    row(33, {"33", "21", "41", "100001", "!"});
    row(38, {"38", "26", "46", "100110", "&"});
    row(126, {"126", "7E", "176", "1111110", "~"});
    row(127, {"127", "7F", "177", "1111111", "Alt+0127"});
    row(128, {"128", "80", "200", "10000000", "Alt+0128"});
    row(233, {"233", "E9", "351", "11101001", "Alt+0233"});
    row(255, {"255", "FF", "377", "11111111", "Alt+0255"});
}

void TestCharInfo::textsOfACode()
{
    QFETCH(int, code);
    QFETCH(QStringList, texts);
    const CharTexts found = DefaultCharTexts(code);
    QCOMPARE(QStringList(found.begin(), found.end()), texts);
}

void TestCharInfo::largestMap_data()
{
    QTest::addColumn<int>("screenWidth");
    QTest::addColumn<double>("twips");
    QTest::addColumn<int>("largest");
    QTest::newRow("640") << 640 << 15.0 << -4; // cut towards zero
    QTest::newRow("800") << 800 << 15.0 << 1;
    QTest::newRow("809, one pixel short") << 809 << 15.0 << 1;
    QTest::newRow("810") << 810 << 15.0 << 2;
    QTest::newRow("1024") << 1024 << 15.0 << 9;
    QTest::newRow("1280") << 1280 << 15.0 << 18;
    QTest::newRow("1440") << 1440 << 15.0 << 24;
    QTest::newRow("1600") << 1600 << 15.0 << 30;
    QTest::newRow("1920") << 1920 << 15.0 << 41;
    QTest::newRow("1024 at 120 dpi") << 1024 << 12.0 << 2;
    QTest::newRow("1280 at 120 dpi") << 1280 << 12.0 << 11;
}

void TestCharInfo::largestMap()
{
    QFETCH(int, screenWidth);
    QFETCH(double, twips);
    QTEST(MapSize::Largest(screenWidth, twips), "largest");
}

void TestCharInfo::sizing_data()
{
    using MapSize::Sizing;
    QTest::addColumn<int>("screenWidth");
    QTest::addColumn<double>("twips");
    QTest::addColumn<int>("sizing");
    const auto row = [](const char *name, int width, double twips, Sizing sizing) {
        QTest::newRow(name) << width << twips << static_cast<int>(sizing);
    };
    row("800", 800, 15, Sizing::Off);
    row("801", 801, 15, Sizing::On);
    row("800, coarse", 800, 24, Sizing::Off);
    row("1024 at 120 dpi", 1024, 12, Sizing::Off);
    row("1025 at 120 dpi", 1025, 12, Sizing::AsItIs);
}

void TestCharInfo::sizing()
{
    QFETCH(int, screenWidth);
    QFETCH(double, twips);
    QTEST(static_cast<int>(MapSize::SizingFor(screenWidth, twips)), "sizing");
}

void TestCharInfo::windowSize_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<double>("twips");
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::newRow("size 1") << 0 << 15.0 << 780 * 15.0 << 592 * 15.0;
    QTest::newRow("size 9") << 8 << 15.0 << 1004 * 15.0 << 656 * 15.0;
    QTest::newRow("size 9 at 120 dpi") << 8 << 12.0 << 1004 * 12.0 << 656 * 12.0;
}

void TestCharInfo::windowSize()
{
    QFETCH(int, steps);
    QFETCH(double, twips);
    const TwipScale scale{.X = twips, .Y = twips};
    QTEST(MapSize::FormWidth(steps, scale), "width");
    QTEST(MapSize::FormHeight(steps, scale), "height");
}

void TestCharInfo::fillBar_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QColor>("color");
    const QColor white(255, 255, 255);
    const QColor yellow(255, 255, 192);
    const QColor orange(255, 192, 128);
    const QColor red(255, 0, 0);
    const auto row = [](int count, bool shown, const QColor &color) {
        QTest::addRow("%d", count) << count << shown << color;
    };
    row(0, false, white);
    row(1023, false, white);
    row(1024, true, white);
    row(30720, true, white);
    row(30721, true, yellow);
    row(46080, true, yellow);
    row(46081, true, orange);
    row(58368, true, orange);
    row(58369, true, red);
    row(61440, true, red);
}

void TestCharInfo::fillBar()
{
    constexpr int limit = 61440;
    constexpr double barWidth = 900;
    QFETCH(int, count);
    QTEST(ToColor(FillColor(count, limit), {}), "color");
    QTEST(FillWidth(count, limit, barWidth) >= LeastFillWidth, "shown");
}

QTEST_GUILESS_MAIN(TestCharInfo)
#include "tst_charinfo.moc"
