// Names of files as text and back, whatever their bytes are.
#include "platform/FileName.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestFileName : public QObject
{
    Q_OBJECT

private slots:
    void thereAndBack_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("isText");
        const auto row = [](const char *name, const QByteArray &bytes, const QString &shown,
                            bool isText = false) {
            QTest::newRow(name) << bytes << shown << isText;
        };
        row("none", "", "", true);
        row("UTF-8", "/a/\xC3\xA9\xF0\x9F\x98\x80.txt", u"/a/\u00E9\U0001F600.txt"_s, true);
        row("mark of the byte order", "\xEF\xBB\xBF.txt", u"\uFEFF.txt"_s, true);
        row("that mark beside a foreign byte", "\xEF\xBB\xBF\xFF", u"\uFEFF\uFFFD"_s);
        row("one byte", "caf\xE9.txt", u"caf\uFFFD.txt"_s);
        row("first and last byte", "\x80\xC3\xA9\xFF", u"\uFFFD\u00E9\uFFFD"_s);
        row("cut short", "a\xF0\x9F\x98", u"a\uFFFD\uFFFD\uFFFD"_s);
        row("overlong", "\xC0\xAF", u"\uFFFD\uFFFD"_s);
        row("half of a pair", "\xED\xB2\x80", u"\uFFFD\uFFFD\uFFFD"_s);
        row("behind a pair", "\xF0\x9F\x98\x80\x80", u"\U0001F600\uFFFD"_s);
        row("replacement character itself", "\xEF\xBF\xBD", u"\uFFFD"_s, true);
    }

    void thereAndBack()
    {
        QFETCH(QByteArray, bytes);
        const QString text = FileName::fromBytes(bytes);
        QCOMPARE(FileName::toBytes(text), bytes);
        QTEST(FileName::shown(text), "shown");
        QTEST(FileName::isText(text), "isText");
    }

    void pairIsNoByte()
    {
        const QString pair = u"\U0001F480"_s; // whose second half is U+DC80
        QCOMPARE(FileName::toBytes(pair), QByteArray("\xF0\x9F\x92\x80"));
        QVERIFY(FileName::isText(pair));
    }
};

QTEST_GUILESS_MAIN(TestFileName)
#include "tst_filename.moc"
