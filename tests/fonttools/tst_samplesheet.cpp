// The lengths of the font browser: the sheet, its scroll bars, the size of the name.
#include "fonttools/SampleSheet.h"

#include <QTest>

/// A font whose characters are as wide as high, in twips of points.
static QSizeF square(const QString &text, int points)
{
    return {text.size() * points * 20.0, points * 20.0};
}

constexpr TwipScale Fifteen{15, 15};

class TestSampleSheet : public QObject
{
    Q_OBJECT

private slots:
    void placesTheLines()
    {
        const SampleSheet sheet = SheetFor("Ten chars.", square, Fifteen);
        QList<double> tops, points;
        for (const TwipRect &line : sheet.AlphaSample)
            tops += line.Top;
        tops += sheet.DivLine;
        for (std::size_t i = 0; i < sheet.TypeSample.size(); ++i) {
            tops += sheet.TypeSample[i].Top;
            points += sheet.PointSize[i].Top - tops.back();
        }
        QCOMPARE(tops,
                 (QList<double>{135, 435, 735, 1170, 1365, 1695, 2145, 2715, 3525, 4575, 5865}));
        QCOMPARE(points, (QList<double>{-30, 30, 90, 210, 330, 450, 570})); // in the middle of them
        QCOMPARE(QSizeF(sheet.Width, sheet.Height), QSizeF(540 + 14400 + 150, 5865 + 1440 + 150));
        QCOMPARE(sheet.DivLineEnd, sheet.Width);

        QCOMPARE(SheetFor(QString(45, 'W'), square, Fifteen).Width, 32767);
        const auto tower = [](const QString &, int) { return QSizeF(10, 6000); };
        QCOMPARE(SheetFor("W", tower, Fifteen).Height, 32767);
        QCOMPARE(SampleTextFor(" \t"), "The Quick Brown Fox Jumped Over The Lazy Dog.");
        QCOMPARE(SampleTextFor(QString(46, 'x')), QString(45, 'x'));
    }

    void scrolls()
    {
        // Of a view of 500: the maximum, the large and the small change.
        const std::tuple<double, int, int, int> rows[] = {
            {500, 0, 1, 1}, {2000, 1500, 375, 38}, {510, 10, 10, 1}, {501, 1, 1, 1}};
        for (const auto &[sheet, maximum, large, small] : rows) {
            const ScrollRange range = ScrollRangeFor(sheet, 500);
            QCOMPARE((QList{range.Maximum, range.LargeChange, range.SmallChange}),
                     (QList{maximum, large, small}));
        }
    }

    void fitsTheName()
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
};

QTEST_GUILESS_MAIN(TestSampleSheet)
#include "tst_samplesheet.moc"
