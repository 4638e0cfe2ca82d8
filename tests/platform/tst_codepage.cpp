// The code page as a mapping of bytes, and what becomes of text from outside it.
#include "platform/CodePage.h"

#include <QTest>

class TestCodePage : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeGoesThereAndBack()
    {
        QByteArray bytes(256, '\0');
        for (int code = 0; code < 256; ++code)
            bytes[code] = static_cast<char>(code);
        const QString text = CodePage::fromBytes(bytes);
        QCOMPARE(text.sliced(0x7E, 36), // the undefined codes are the controls of the same number
                 QString("~\u007F€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F"
                         "\u0090‘’“”•–—˜™š›œ\u009DžŸ\u00A0¡"));
        QCOMPARE(CodePage::toBytes(text), bytes);
        QCOMPARE(CodePage::fit(text), text);
        int known = 0;
        for (char32_t character = 0; character < 0x20000; ++character)
            known += CodePage::toCode(character).has_value();
        QCOMPARE(known, 256);
    }

    void textFromOutside()
    {
        for (const auto &[text, fitted] :
             {std::pair(u"őĀẼ", "oAE"),
              {u"ǖấ", "üâ"}, // one accent of two
              {u"e\u0301 o\u0302 o\u030B x\u0301y", "é ô o xy"},
              {u"\u0301", "?"},
              {u"ﬁ Ａ １ ⅓", "fi A 1 1/3"},
              {u"1\u22122\u2010\u20113\u2044\u2032\u2033", "1-2--3/'\""},
              {u"a\u200D\u200Eb\uFEFF\u00AD\uFE0Fc\u2003d", "ab\u00ADc d"},
              {u"Жא中", "???"},
              {u"a😀b", "a?b"},
              {u"\xD800", "?"}})
            QCOMPARE(CodePage::fit(text), QString(fitted));
        QCOMPARE(CodePage::toBytes(u"aЖ😀€"), QByteArray("a??\x80"));
    }
};

QTEST_APPLESS_MAIN(TestCodePage)
#include "tst_codepage.moc"
