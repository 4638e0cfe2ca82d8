// What the report of a setting that can't be converted shows of its value.
#include "core/SettingConversion.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestSettingConversion : public QObject
{
    Q_OBJECT

private slots:
    void reportFits_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("shown");
        const QString smile = u"\U0001F600"_s;
        const QString ellipsis = u"\u2026"_s;
        QTest::newRow("short") << "18 points \u00E9"
                               << "18 points \u00E9";
        QTest::newRow("sixty") << QString(60, 'a') << QString(60, 'a');
        QTest::newRow("sixty-one") << 'a' + QString(59, 'b') + 'c'
                                   << 'a' + QString(38, 'b') + ellipsis + QString(19, 'b') + 'c';
        QTest::newRow("a megabyte") << 'a' + QString(1 << 20, 'b') + 'c'
                                    << 'a' + QString(38, 'b') + ellipsis + QString(19, 'b') + 'c';
        QTest::newRow("no line and no control character")
            << u"a\nb\r\u0007c\u2028d\u202Ee"_s << "a b  c d e";
        QTest::newRow("a pair at either cut")
            << QString(38, 'a') + smile + QString(99, 'b') + smile + QString(19, 'c')
            << QString(38, 'a') + ellipsis + QString(19, 'c');
        QTest::newRow("a pair stays") << "a" + smile << "a" + smile;
    }

    void reportFits()
    {
        QFETCH(QString, value);
        QFETCH(QString, shown);
        const ConversionError error(u"Some\\Key", u"FontSize", value);
        QCOMPARE(QString::fromUtf8(error.what()),
                 "The setting Some\\Key\\FontSize cannot be converted: \"" + shown + '"');
        QCOMPARE(error.text, value);
    }
};

QTEST_GUILESS_MAIN(TestSettingConversion)
#include "tst_settingconversion.moc"
