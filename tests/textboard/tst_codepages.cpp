// The code pages of all languages: which one a user gets, and that each keeps every byte of a file
// and every letter of its alphabet on all ways in and out.
#include "fontmap/CustomMapFile.h"
#include "platform/CodePage.h"
#include "platform/UserCodePage.h"
#include "tests/support/Files.h"
#include "textboard/RichText.h"
#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"
#include "textboard/TextBoardRTF.h"

#include <QTemporaryDir>
#include <QTest>
#include <numeric>

namespace {

/// All codes that show something.
QByteArray printingCodes()
{
    QByteArray codes(CellCount, Qt::Uninitialized);
    std::iota(codes.begin(), codes.end(), char(FirstCode));
    return codes;
}

TextBoardRTF boardWith(const QString &text)
{
    TextBoardRTF board;
    board.setText(text);
    return board;
}

} // namespace

class TestCodePages : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QVERIFY(CodePage::use(CodePage::Western)); }

    void pages_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("charset");
        QTest::addColumn<QByteArray>("codes"); // a pair of cases first, where there are cases
        QTest::addColumn<QString>("letters");
        const auto row = [](int page, int charset, const QByteArray &codes,
                            const QString &letters) {
            QTest::addRow("%d", page) << page << charset << codes << letters;
        };
        row(1250, 238, "\xA3\xB3\xB9\xE8\xF8\x9C", "Łłąčřś");
        row(1251, 204, "\xC6\xE6\xA8\xBF\xFF\x80", "ЖжЁїяЂ");
        row(1252, 0, "\xC4\xE4\x80\xDF\x8E\xFF", "Ää€ßŽÿ");
        row(1253, 161, "\xD8\xF8\xDC\xE1\xD9\xFE", "ΨψάαΩώ");
        row(1254, 162, "\xD0\xF0\xFD\xDD\xDE\xFE", "ĞğıİŞş");
        row(1255, 177, "\xE0\xFA\xC8\xA4\xD4\xFD", QString("את\u05B8₪\u05F0\u200E"));
        row(1256, 178, "\xC7\xED\x81\x90\xF3\x9D", QString("ايپگ\u064E\u200C"));
        row(1257, 186, "\xC0\xE0\xE7\xF8\xFE\xB4", "Ąąēųž´"); // B4 as in 1252
        row(1258, 163, "\xD5\xF5\xD0\xFD\xEC\xFE", QString("Ơơđư\u0301₫").replace("đ", "Đ"));
        row(874, 222, "\xA1\xCE\xDF\xE3\xE9\x80", QString("กฮ฿ใ\u0E49€"));
    }
    void pages()
    {
        QFETCH(int, page);
        QFETCH(QByteArray, codes);
        QFETCH(QString, letters);
        QVERIFY(CodePage::use(page));
        QCOMPARE(CodePage::number(), page);
        QCOMPARE(CodePage::fromBytes(codes), letters);
        QCOMPARE(CodePage::toBytes(letters), codes);

        const QByteArray all = printingCodes();
        const QString text = CodePage::fromBytes(all);
        QCOMPARE(CodePage::toBytes(text), all);
        QCOMPARE(CodePage::fit(text), text);
        for (const QChar character : text)
            QVERIFY(character != u'\u0085' && character != QChar::ReplacementCharacter);

        const QTemporaryDir folder;
        const QString path = writeFile(folder.filePath("a.txt"), all);
        TextBoardRTF board;
        QVERIFY(!board.LoadFile(path, TextBoardRTF::FileKind::PlainText));
        QCOMPARE(board.Text(), text);
        QVERIFY(!board.SaveFile(path, TextBoardRTF::FileKind::PlainText));
        QCOMPARE(contentOf(path), all);
        QVERIFY(!board.SaveFile(path, TextBoardRTF::FileKind::RichText));
        QFETCH(int, charset);
        const QByteArray document = contentOf(path);
        QVERIFY(document.contains("\\ansicpg" + QByteArray::number(page) + '\\'));
        QVERIFY(document.contains("\\fcharset" + QByteArray::number(charset) + ' '));
        QVERIFY(!board.LoadFile(path, TextBoardRTF::FileKind::RichText));
        QCOMPARE(board.Text(), text);

        CustomMapFile::Captions captions;
        std::ranges::copy(text, captions.begin());
        QVERIFY(CustomMapFile::read(CustomMapFile::write(captions)) == captions);

        const bool hasCases = letters[0].toLower() == letters[1];
        QCOMPARE(hasCases, page != 1255 && page != 1256 && page != 874);
        board.setText(letters);
        QCOMPARE(board.Find(letters.mid(1, 1), 0, {}, 0), qsizetype(hasCases ? 0 : 1));
        QCOMPARE(board.Find(letters.mid(1, 1), 0, {}, TextBoardRTF::MatchCase), qsizetype(1));
    }

    void documentsOfOtherPages_data()
    {
        QTest::addColumn<int>("written");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("read");
        QTest::addColumn<QString>("shown");
        QTest::newRow("same letters") << 1250 << "áäő €–" << 1252 << "áäo €–";
        QTest::newRow("western to russian") << 1252 << "Über «€» ß" << 1251 << "Uber «€» ?";
        QTest::newRow("russian to western") << 1251 << "a№б" << 1252 << "aNo?";
        QTest::newRow("vietnamese, two codes a letter")
            << 1258 << QString("vi\u00EA\u0323t") << 1252 << "viêt";
        QTest::newRow("to vietnamese") << 1252 << "Ãõ" << 1258 << QString("A\u0303o\u0303");
        QTest::newRow("soft hyphen to thai") << 1252 << QString("a\u00ADb") << 874 << "ab";
    }
    void documentsOfOtherPages()
    {
        QFETCH(int, written);
        QFETCH(int, read);
        QFETCH(QString, text);
        QVERIFY(CodePage::use(written));
        const QByteArray document = boardWith(text).TextRTF();
        QVERIFY(CodePage::use(read));
        const auto contents = readRichText(document);
        QVERIFY(contents);
        QTEST(CodePage::fromBytes(contents->Codes), "shown");
    }

    void whatIsTypedOrPasted()
    {
        QVERIFY(CodePage::use(1258));
        QCOMPARE(CodePage::fit(u"ếẻ"), QString("ê\u0301e\u0309"));
        QVERIFY(CodePage::use(1255));
        QCOMPARE(CodePage::fit(u"\uFB2A"), QString("\u05E9\u05C1")); // shin with its dot
        QVERIFY(CodePage::use(1251));
        QCOMPARE(CodePage::fit(u"e\u0301ѐж"), QString("eеж"));
        QVERIFY(!CodePage::use(932) && !CodePage::use(0));
        QCOMPARE(CodePage::number(), 1251);
    }

    void languages()
    {
        const std::pair<const char *, int> rows[] = {
            {"ru_RU.UTF-8", 1251}, {"uk", 1251},
            {"pl_PL", 1250},       {"el_GR@euro", 1253},
            {"tr_TR.utf8", 1254},  {"he_IL", 1255},
            {"fa_IR", 1256},       {"lt_LT", 1257},
            {"vi_VN", 1258},       {"th_TH", 874},
            {"sr_RS", 1251},       {"sr_RS.UTF-8@latin", 1250},
            {"sr_Latn_RS", 1250},  {"az_AZ", 1254},
            {"az_IR", 1256},       {"uz_UZ.UTF-8@cyrillic", 1251},
            {"uz_UZ", 1254},       {"pa_PK", 1256},
            {"pa_IN", 1252},       {"ja_JP.UTF-8", 1252},
            {"de_DE", 1252},       {"C", 1252},
            {"C.UTF-8", 1252},     {"", 1252},
            {"@._", 1252}};
        for (const auto &[locale, page] : rows)
            QVERIFY2(UserCodePage::ofLocale(locale) == page, locale);
    }

    void settling()
    {
        const auto settled = [](const char *all, const char *lang, const char *wanted) {
            qputenv("LC_ALL", all);
            qputenv("LC_CTYPE", "");
            qputenv("LANG", lang);
            qputenv("ZENDOVA_CODEPAGE", wanted);
            UserCodePage::settle();
            return CodePage::number();
        };
        QCOMPARE(settled("", "ru_RU.UTF-8", ""), 1251);
        QCOMPARE(settled("el_GR", "ru_RU", ""), 1253);
        QCOMPARE(settled("el_GR", "", "874"), 874);
        QCOMPARE(settled("el_GR", "", "1259"), 1253);
        QCOMPARE(settled("C", "ru_RU", "all"), 1252);
    }
};

QTEST_APPLESS_MAIN(TestCodePages)
#include "tst_codepages.moc"
