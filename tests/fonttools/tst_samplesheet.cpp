// The lengths of the font browser: the sheet, its scroll bars, the size of the name.
#include "fonttools/SampleSheet.h"

#include <QTest>

namespace {

/// A font whose characters are as wide as high, in twips of points.
QSizeF square(const QString &text, int points)
{
    return {text.size() * points * 20.0, points * 20.0};
}

constexpr TwipScale Fifteen{15, 15};

} // namespace

class TestSampleSheet : public QObject
{
    Q_OBJECT

private slots:
    void placesTheLines();
    void scrolls_data();
    void scrolls();
    void fitsTheName();
};

void TestSampleSheet::placesTheLines()
{
    const SampleSheet sheet = SheetFor("Ten chars.", square, Fifteen);
    QList<double> tops, points;
    for (const TwipRect &line : sheet.AlphaSample)
        tops += line.Top;
    QCOMPARE(tops, (QList<double>{135, 435, 735}));
    QCOMPARE(sheet.DivLine, 1170);
    tops.clear();
    for (std::size_t i = 0; i < sheet.TypeSample.size(); ++i) {
        tops += sheet.TypeSample[i].Top;
        points += sheet.PointSize[i].Top - tops.back();
    }
    QCOMPARE(tops, (QList<double>{1365, 1695, 2145, 2715, 3525, 4575, 5865}));
    QCOMPARE(points, (QList<double>{-30, 30, 90, 210, 330, 450, 570})); // in the middle of them
    QCOMPARE(QSizeF(sheet.Width, sheet.Height), QSizeF(540 + 14400 + 150, 5865 + 1440 + 150));
    QCOMPARE(sheet.DivLineEnd, sheet.Width);

    const SampleSheet large = SheetFor(QString(45, 'W'), square, Fifteen);
    QCOMPARE(large.Width, 32767);
    const auto tower = [](const QString &, int) { return QSizeF(10, 6000); };
    QCOMPARE(SheetFor("W", tower, Fifteen).Height, 32767);
    QCOMPARE(SampleTextFor(" \t"), QString("The Quick Brown Fox Jumped Over The Lazy Dog."));
    QCOMPARE(SampleTextFor(QString(46, 'x')), QString(45, 'x'));
}

void TestSampleSheet::scrolls_data()
{
    QTest::addColumn<double>("sheet");
    QTest::addColumn<double>("view");
    QTest::addColumn<QList<int>>("expected"); // maximum, large and small change
    QTest::newRow("fits") << 500.0 << 500.0 << QList<int>{0, 1, 1};
    QTest::newRow("four times") << 2000.0 << 500.0 << QList<int>{1500, 375, 38};
    QTest::newRow("a little") << 510.0 << 500.0 << QList<int>{10, 10, 1};
    QTest::newRow("hardly") << 501.0 << 500.0 << QList<int>{1, 1, 1};
}

void TestSampleSheet::scrolls()
{
    QFETCH(double, sheet);
    QFETCH(double, view);
    const ScrollRange range = ScrollRangeFor(sheet, view);
    QTEST((QList<int>{range.Maximum, range.LargeChange, range.SmallChange}), "expected");
}

void TestSampleSheet::fitsTheName()
{
    // So many twips to a point, from the left edge on.
    const auto fitted = [](int points, double twips, double width = 10000) {
        return FittedNameSize(points, width, 15, [twips](int size) { return size * twips; });
    };
    QCOMPARE(fitted(12, 10), 25);  // never more
    QCOMPARE(fitted(12, 500), 20); // 9500 and 30 pixels do not reach the border, 10000 do
    QCOMPARE(fitted(20, 485), 20); // between the two limits
    QCOMPARE(fitted(25, 1000), 9); // 10 pixels stay free
    QCOMPARE(fitted(12, 9850), 1);
    QCOMPARE(fitted(12, 99999), 1); // and there it ends
}

QTEST_GUILESS_MAIN(TestSampleSheet)
#include "tst_samplesheet.moc"
