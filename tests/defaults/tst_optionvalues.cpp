// The values of the dialog of defaults without its window: what stands in for those that can't be
// right.
#include "defaults/OptionValues.h"

#include <QTest>

class TestOptionValues : public QObject
{
    Q_OBJECT

private slots:
    void limits()
    {
        const auto codes = [](int code) {
            OptionValues values;
            values.ZoomedLetter = values.OFMapStart = code;
            values = Sensible(values);
            return std::pair(values.ZoomedLetter, values.OFMapStart);
        };
        QCOMPARE(codes(32), std::pair(64, 60));
        QCOMPARE(codes(33), std::pair(33, 33));
        QCOMPARE(codes(243), std::pair(243, 243));
        QCOMPARE(codes(244), std::pair(244, 60));
        QCOMPARE(codes(256), std::pair(64, 60));
    }
};

QTEST_APPLESS_MAIN(TestOptionValues)
#include "tst_optionvalues.moc"
