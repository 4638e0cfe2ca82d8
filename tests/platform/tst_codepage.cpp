// The code page as a mapping of bytes, and what becomes of text from outside it.
#include "platform/CodePage.h"

#include <QTest>

class TestCodePage : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeGoesThereAndBack();
    void irregularCodes_data();
    void irregularCodes();
    void fit_data();
    void fit();
    void bytesOfOtherText();
};

void TestCodePage::everyCodeGoesThereAndBack()
{
    QByteArray bytes(256, '\0');
    for (int code = 0; code < 256; ++code)
        bytes[code] = static_cast<char>(code);
    const QString text = CodePage::fromBytes(bytes);
    QCOMPARE(text.size(), 256);
    QCOMPARE(CodePage::toBytes(text), bytes);
    // Nothing in the page is changed by fitting, composed as it is.
    QCOMPARE(CodePage::fit(text), text);
    // Just these 256 characters have a code.
    int known = 0;
    for (char32_t character = 0; character < 0x20000; ++character)
        known += CodePage::toCode(character).has_value();
    QCOMPARE(known, 256);
}

void TestCodePage::irregularCodes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("character");
    QTest::newRow("first") << 0x80 << "€";
    QTest::newRow("ellipsis") << 0x85 << "…";
    QTest::newRow("capital z with caron") << 0x8E << "Ž";
    QTest::newRow("left quote") << 0x93 << "“";
    QTest::newRow("trade mark") << 0x99 << "™";
    QTest::newRow("last") << 0x9F << "Ÿ";
    QTest::newRow("after the last") << 0xA0 << QString(QChar(0xA0));
    for (const int code : {0x81, 0x8D, 0x8F, 0x90, 0x9D})
        QTest::addRow("undefined %X", code) << code << QString(QChar(code));
}

void TestCodePage::irregularCodes()
{
    QFETCH(int, code);
    QFETCH(QString, character);
    QCOMPARE(QString(CodePage::toUnicode(static_cast<quint8>(code))), character);
    QCOMPARE(CodePage::toCode(character.front().unicode()), std::optional<quint8>(code));
}

void TestCodePage::fit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fitted");
    QTest::newRow("line ends") << "a\r\nb\n"
                               << "a\r\nb\n";
    QTest::newRow("base letter") << "őĀẼ"
                                 << "oAE";
    QTest::newRow("one accent of two") << "ǖấ"
                                       << "üâ";
    QTest::newRow("combining sequence composes") << QString::fromUtf16(u"e\u0301 o\u0302") << "é ô";
    QTest::newRow("composes outside the page") << QString::fromUtf16(u"o\u030B") << "o";
    QTest::newRow("accent that cannot compose") << QString::fromUtf16(u"x\u0301y") << "xy";
    QTest::newRow("accent alone") << QString::fromUtf16(u"\u0301") << "?";
    QTest::newRow("ligature and compatible letters") << "ﬁ Ａ １"
                                                     << "fi A 1";
    QTest::newRow("part of the spelling is outside") << "⅓"
                                                     << "?";
    QTest::newRow("no base letter") << "Жא中"
                                    << "???";
    QTest::newRow("surrogate pair counts once") << "a😀b"
                                                << "a?b";
    QTest::newRow("mathematical letter") << "𝐀"
                                         << "A";
    QTest::newRow("lone surrogate") << QString(QChar(0xD800)) + "a"
                                    << "?a";
    QTest::newRow("empty") << ""
                           << "";
}

void TestCodePage::fit()
{
    QFETCH(QString, text);
    QFETCH(QString, fitted);
    QCOMPARE(CodePage::fit(text), fitted);
}

void TestCodePage::bytesOfOtherText()
{
    QCOMPARE(CodePage::toBytes(u"aЖ😀€"), QByteArray("a??\x80"));
}

QTEST_APPLESS_MAIN(TestCodePage)
#include "tst_codepage.moc"
