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

class TestCodePages : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QVERIFY(CodePage::use(CodePage::Western)); }

    void pages()
    {
        // Number, character set, codes (a pair of cases first, where there are cases) and letters.
        const std::tuple<int, int, QByteArray, QString> rows[] = {
            {1250, 238, "\xA3\xB3\xB9\xE8\xF8\x9C", "Łłąčřś"},
            {1251, 204, "\xC6\xE6\xA8\xBF\xFF\x80", "ЖжЁїяЂ"},
            {1252, 0, "\xC4\xE4\x80\xDF\x8E\xFF", "Ää€ßŽÿ"},
            {1253, 161, "\xD8\xF8\xDC\xE1\xD9\xFE", "ΨψάαΩώ"},
            {1254, 162, "\xD0\xF0\xFD\xDD\xDE\xFE", "ĞğıİŞş"},
            {1255, 177, "\xE0\xFA\xC8\xA4\xD4\xFD", "את\u05B8₪\u05F0\u200E"},
            {1256, 178, "\xC7\xED\x81\x90\xF3\x9D", "ايپگ\u064E\u200C"},
            {1257, 186, "\xC0\xE0\xE7\xF8\xFE\xB4", "Ąąēųž´"}, // B4 as in 1252
            {1258, 163, "\xD5\xF5\xD0\xFD\xEC\xFE", "ƠơĐư\u0301₫"},
            {874, 222, "\xA1\xCE\xDF\xE3\xE9\x80", "กฮ฿ใ\u0E49€"}};
        QByteArray all(CellCount, Qt::Uninitialized); // that show something
        std::iota(all.begin(), all.end(), char(FirstCode));
        const QTemporaryDir folder;
        for (const auto &[page, charset, codes, letters] : rows) {
            QVERIFY(CodePage::use(page));
            QCOMPARE(CodePage::number(), page);
            QCOMPARE(CodePage::fromBytes(codes), letters);
            QCOMPARE(CodePage::toBytes(letters), codes);
            int known = 0;
            for (char32_t character = 0; character < 0x20000; ++character)
                known += CodePage::toCode(character).has_value();
            QCOMPARE(known, 256);

            const QString text = CodePage::fromBytes(all);
            QCOMPARE(CodePage::toBytes(text), all);
            QCOMPARE(CodePage::fit(text), text);
            for (const QChar character : text)
                QVERIFY(character != u'\u0085' && character != QChar::ReplacementCharacter);

            const QString path = writeFile(folder.filePath("a.txt"), all);
            TextBoardRTF board;
            QVERIFY(!board.LoadFile(path, TextBoardRTF::FileKind::PlainText));
            QCOMPARE(board.Text(), text);
            QVERIFY(!board.SaveFile(path, TextBoardRTF::FileKind::PlainText));
            QCOMPARE(contentOf(path), all);
            QVERIFY(!board.SaveFile(path, TextBoardRTF::FileKind::RichText));
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
    }

    void documentsOfOtherPages()
    {
        for (const auto &[written, text, read, shown] :
             {std::tuple(1250, "áäő €–", 1252, "áäo €–"),
              {1252, "Über «€» ß", 1251, "Uber «€» ?"},
              {1251, "a№б", 1252, "aNo?"},
              {1258, "vi\u00EA\u0323t", 1252, "viêt"}, // two codes a letter
              {1252, "Ãõ", 1258, "A\u0303o\u0303"},
              {1252, "a\u00ADb", 874, "ab"}}) {
            QVERIFY(CodePage::use(written));
            TextBoardRTF board;
            board.setText(text);
            const QByteArray document = board.TextRTF();
            QVERIFY(CodePage::use(read));
            const auto contents = readRichText(document);
            QVERIFY(contents);
            QCOMPARE(CodePage::fromBytes(contents->Codes), shown);
            const auto composed = [](const char *letters) {
                return QString(letters).normalized(QString::NormalizationForm_C);
            };
            QCOMPARE(contents->IsFitted, composed(text) != composed(shown));
        }
    }

    void searches()
    {
        constexpr int wholeWord = TextBoardRTF::WholeWord;
        for (const auto &[page, text, wanted, options, place] :
             {std::tuple(1253, "a ΛΟΓΟΣ", "λογος", 0, 2),
              {1253, "a λογος", "ΛΟΓΟΣ", 0, 2},
              {1254, "a ILIK", "ılık", 0, 2},
              {1254, "a İZMİR", "izmir", 0, 2},
              {1254, "aıİ", "I", TextBoardRTF::MatchCase, -1},
              {874, "กี่", "ก", wholeWord, -1},
              {1258, "cấu", "câ", wholeWord, -1},
              {1258, "cấu câ", "câ", wholeWord, 5}}) {
            QVERIFY(CodePage::use(page));
            TextBoardRTF board;
            board.setText(text);
            QCOMPARE(board.Find(wanted, 0, {}, options), qsizetype(place));
        }
    }

    void longRunsAreNotCut()
    {
        QVERIFY(CodePage::use(874));
        const auto contents = readRichText(R"({\rtf1\ansi\ansicpg65001 )" +
                                           QByteArray(R"(\'e0\'b8\'81)").repeated(5000) + '}');
        QVERIFY(contents);
        QCOMPARE(CodePage::fromBytes(contents->Codes), QString("ก").repeated(5000));
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
        for (const auto &[page, locales] :
             {std::pair(1250, QByteArrayList{"pl_PL", "sr_RS.UTF-8@latin", "sr_Latn_RS"}),
              {1251, {"ru_RU.UTF-8", "uk", "sr_RS", "uz_UZ.UTF-8@cyrillic"}},
              {1252, {"pa_IN", "ja_JP.UTF-8", "C", "", "@._"}},
              {1253, {"el_GR@euro"}},
              {1256, {"az_IR", "pa_PK"}}})
            for (const QByteArray &locale : locales)
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
