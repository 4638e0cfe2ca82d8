// The rich-text buffer as a whole: what it reads from documents, what it writes and whether that
// comes back, its attributes and its search.
#include "tests/support/Files.h"

#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"
#include "textboard/TextBoardRTF.h"

#include <QtTest>

using Kind = TextBoardRTF::FileKind;

namespace {

/// "Arial 12 bu #0000ff left", with a question mark for what differs within the selection.
QString attributesOf(const TextBoardRTF &buffer)
{
    const auto size = buffer.SelFontSize();
    const auto color = buffer.SelColor();
    const auto alignment = buffer.SelAlignment();
    QString styles;
    for (const auto &[on, letter] : {std::pair(buffer.SelBold(), u'b'),
                                     {buffer.SelItalic(), u'i'},
                                     {buffer.SelUnderline(), u'u'},
                                     {buffer.SelStrikeThru(), u's'}})
        if (on != false)
            styles += QChar(on ? letter : u'?');
    return QStringList{buffer.SelFontName().value_or("?"), size ? QString::number(*size) : "?",
                       styles.isEmpty() ? "-" : styles, color ? ToColor(*color, {}).name() : "?",
                       alignment ? QStringList{"left", "right", "centre"}[*alignment] : "?"}
        .join(u' ');
}

QString select(TextBoardRTF &buffer, qsizetype start, qsizetype length)
{
    buffer.setSelStart(start);
    buffer.setSelLength(length);
    return buffer.SelText();
}

void selectAll(TextBoardRTF &buffer)
{
    select(buffer, 0, buffer.TextLength());
}

} // namespace

class TestRichText : public QObject
{
    Q_OBJECT

private slots:
    void reads_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<QString>("text");       // null if it is refused
        QTest::addColumn<QString>("attributes"); // null if they don't matter
        QByteArray head = "{\\rtf1\\ansi";
        const auto row = [&head](const char *name, const QByteArray &body, const char *text,
                                 const char *attributes = nullptr) {
            QTest::newRow(name) << head + body + '}'
                                << QString::fromUtf8(text).replace(u'|', "\r\n")
                                << QString(attributes);
        };
        row("closed paragraph", "{abc\\par}\\pard\\f0{\\*\\themedata 00}\r\n", "abc");
        row("breaks", R"( a\line b\page c\column d\sect e\par f\par\par)", "a|b|c|d|e|f|");
        row("line ends of the file", QByteArray(" a\0\r\nb\nc\rd\\\r\ne\\\nf\\'0dg", 22),
            "abcd|e|f|g");
        row("special characters",
            R"( \{\}\\a\~b\-c\_d\tab e\lquote f\rquote\ldblquote g\rdblquote\bullet\endash\emdash\emspace h)",
            "{}\\a\u00a0b\u00adc-d\te‘f’“g”•–— h");
        row("bytes", " \\'e9\\'C9\\'80\\'81\xe9\\'zz\\'4", "éÉ€\u0081ézz4");
        row("unknown words and destinations",
            R"( \unknown12 a\Unknown-3b\! c{\*\unknown b{c}\}d}e{\*\b f}g{\* h}\b i)", "ab ceg hi");
        row("destinations",
            R"({\info{\title a}}{\stylesheet{\s1 b;}}{\header c\par}{\pict 0123}{\pntext 1.\tab}e)"
            R"({\field{\*\fldinst X}{\fldrslt{\ul f}}}{\object\objemb{\*\objdata 00}{\result g}})",
            "efg");
        row("hidden", R"( a{\v b\par\'62\u98?\cell\row}c\v d\v0 e{\deleted f}\v g\plain h)",
            "aceh");
        row("binary data", " a{\\pict\\bin4 }\\{}b}c\\bin3 }}}d\\bin-5 e", "acde");
        row("table", R"(\trowd\intbl a\cell b\cell\row\trowd c\cell\cell\row\pard d\par)",
            "a\tb|c\t|d");
        row("text behind the document", "} abc{\\rtf1 d", "");
        row("substitutes",
            R"( \u8364?\u-3913?\u8212 -\u233\'65z\uc0\u8364 a{\uc2\u8364 ab c}\u8364 d)",
            "€·—éz€a€ c€d");
        row("escaped substitutes", R"(\uc2 \u8364\{\'31a\u8220\ldblquote x b)", "€a“ b");
        row("the document's own", R"(\u1046*\u8209-\uc2\u1046zha{\u1046}/\uc0\u1046 b)",
            "*-zha?/?b");
        row("those of characters outside 16 bits", R"( \u119964 X\u65601 X\u128512:\u-70000 x)",
            "AX:x");
        row("missing substitutes", R"({\u8364}a{\u8364}{b}\u8364\par \u8220\u97\u8221\b x)",
            "€a€b€|“a”x");
        row("surrogates", R"( \u-10179?\u-8704?a\u128512?\u-10179?b\u-8704?\u1114112?\u0?c)",
            "?a??b???c");
        row("accents", R"( e\u769?\u101?\u769?o\u779?\tab\u779?\par\u769?)", "ééo\t?|?");
        row("marks and separators", R"( a\u8203?\u65279?b\u173?c\u8232?d\u8233?e)",
            "ab\u00adc|d|e");
        row("two spellings", R"( a{\upr{b\'3f}{\*\ud{b\u8364}}}c)", "ab€c");

        const auto font = [row](const char *name, const QByteArray &words, const char *body,
                                const char *text) {
            row(name, words + " Font;}}\\f0 " + body, text);
        };
        font("Central Europe", "{\\fonttbl{\\f0\\fcharset238", R"(\'9a\'b9)", "ša");
        font("Cyrillic", "{\\fonttbl{\\f0\\cpg1251", R"(\'e0\'e1 a)", "?? a");
        row("pages of the document", R"(\mac \'8e\'a5\pc \'82\ansicpg1250 \'9a\ansicpg77777 \'e9)",
            "é•éšé");
        font("no page of its own", "\\ansicpg1250{\\fonttbl{\\f0\\fcharset1", R"(\'9a)", "š");
        row("UTF-8", "\\ansicpg65001 \\'c3\\'a9\xc3\xa9", "éé");
        font("two bytes", "{\\fonttbl{\\f0\\fcharset128", R"(\'82\'60\'82a\'83\\\'83\'5ca\'81\'41)",
             "AB??a?");
        font("last first byte", "{\\fonttbl{\\f0\\fcharset134", R"(\'fe\'50a)", "?a");
        font("no second byte", "{\\fonttbl{\\f0\\fcharset128",
             R"(\'83\'0a\'83 a\'83\tab\'83\par b)", "?|? a?\t?|b");
        font("signs", "{\\fonttbl{\\f0\\fcharset2", R"(\'8e\u61623 ?\u-3937?\'81)", "Ž·Ÿ\u0081");
        QTest::newRow("space in front")
            << QByteArray("\xef\xbb\xbf \r\n\t{\\rtf a}") << "a" << QString();

        constexpr const char *Plain = "Courier New 12 - #000000 left";
        head = "{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}{\\f2 Arial;}}"
               "{\\colortbl;\\red999\\green128\\blue-9;;\\red1;}";
        row("everything", R"(\pard\qr\f0\fs25\b\i\ul\strike\cf1 a\par)", "a",
            "Arial 12.5 bius #ff8000 right");
        row("no text", R"(\qc\f0\fs25\b\i\cf1\par)", "", "Arial 12.5 bi #ff8000 centre");
        row("off again", R"(\b\i\uldb\striked1\b0\i0\ulnone\striked0 a)", "a", Plain);
        row("plain", R"(\f0\fs40\b\i\ul\strike\cf1\plain a)", "a", Plain);
        row("groups", R"({\f0\fs40\b\cf1\qc\fs30 }a)", "a", Plain);
        row("nothing of this number", R"(\f9\cf9\fs0 a\cf-1\fs-20 b\cf2\fs c)", "abc", Plain);
        row("huge size", R"(\cf3\fs99999999 a)", "a", "Courier New 16383.5 - #010000 left");
        row("alignment at the end", R"(\qc a\qr\par)", "a", "Courier New 12 - #000000 right");
        row("open paragraph", R"({\qc a})", "a", "Courier New 12 - #000000 centre");
        row("mixed", R"(\f0\fs20\cf1\b a\par\f1\fs21\cf0\b0\i\qc b)", "a|b", "? ? ?? ? ?");
        row("two fonts of one name", R"(\f0 a\f2 b)", "ab", "Arial 12 - #000000 left");
        row("paragraph mark", R"(a\f0\fs99\cf1\b\par\plain b)", "a|b", Plain);
        head = "{\\rtf1";
        row("no fonts", "{a}", "a", "Times New Roman 12 - #000000 left");
        row("no default font", R"({\fonttbl{\f5 Five;}{\f4 Four;}}{a})", "a",
            "Five 12 - #000000 left");
        row("font not grouped", R"({\fonttbl\f0\fnil One;\f1 Two}\f1{a})", "a",
            "Two 12 - #000000 left");
        row("parts of a font's name",
            R"({\fonttbl{\f1{\*\panose 02}\fnil A\'e9 \'3b\u1046?\{{\*\falt Other};}}\f1{a})", "a",
            "Aé ;Ж{ 12 - #000000 left");

        constexpr int Million = 1'000'000;
        constexpr const char *Bold = "Times New Roman 12 b #000000 left";
        head = "{\\rtf1\\b\\f1 ";
        const QByteArray groups = QByteArray("{\\b0 ").repeated(2 * Million) + 'a';
        row("many groups", groups + QByteArray(2 * Million, '}') + 'b', "ab",
            "Times New Roman 12 ? #000000 left");
        QByteArray table;
        for (int i = 0; i < 1 << 17; ++i)
            table += "{\\f" + QByteArray::number(i) + " Font;}";
        row("many fonts", "{\\fonttbl{\\f200000 First;}" + table + "}\\f65534 a\\f65535 b", "ab",
            "? 12 b #000000 left");
        row("long font name", "{\\fonttbl{\\f1 " + QByteArray(Million, 'x') + ";}}a", "a", Bold);
        const QByteArray colors = QByteArray("\\red1;").repeated(1 << 16);
        row("many colours", "{\\colortbl" + colors + "\\red2;}\\cf65536 a", "a", Bold);
        row("long word", '\\' + QByteArray(Million, 'x') + QByteArray(20, '1') + " a", "a", Bold);
        row("many accents", 'e' + QByteArray("\\u769?").repeated(Million), "é", Bold);
        const QByteArray changes = QByteArray("\\b a\\b0 a").repeated(1 << 19);
        for (const QByteArray &document :
             {QByteArray(), QByteArray("  \r\n"), QByteArray("{\\rtfx abc}"),
              QByteArray("{\\rtf1 a\\bin99999999999999999999 b}"), "{\\rtf1" + changes + "\\b a}"})
            QTest::newRow(document.left(20)) << document << QString() << QString();
    }

    void reads()
    {
        QFETCH(QByteArray, document);
        QFETCH(QString, text);
        QFETCH(QString, attributes);
        TextBoardRTF buffer;
        buffer.setText("before");
        const auto reason = buffer.LoadFile(writeFile(File, document), Kind::RichText);
        QCOMPARE(reason.value_or("read"), text.isNull() ? "Not valid rich text" : "read");
        QCOMPARE(buffer.Text(), text);
        selectAll(buffer);
        if (!attributes.isNull())
            QCOMPARE(attributesOf(buffer), attributes);
    }

    void refusesWhatBreaksOff()
    {
        const QByteArray document =
            R"({\rtf1\ansi\ansicpg932{\fonttbl{\f0\fcharset128 One{\*\falt x};}{\f1\fcharset2 Two;}})"
            R"({\colortbl;\red1\green2\blue3;}\pard\qc\f0\fs40 {\b abc\'83\'5c}\u8364?e\u769?\par)"
            R"({\upr{x}{\*\ud{y}}}{\pict\bin3 }}}}\f1\'41\u-3937?{\*\x y}\cell\row{\v h}\line\tab\par})";
        for (qsizetype length = 0; length < document.size(); ++length) {
            // A copy of just this length, so that a look beyond its end is noticed.
            const std::vector<char> cut(document.begin(), document.begin() + length);
            QVERIFY(!readRichText({cut.data(), length}));
        }
        QVERIFY(readRichText(document));
    }

    void writtenTextComesBack()
    {
        for (const QString text :
             {"", "abc", "\r\n\r\n", "\r\n abc \r\n\tdef {\\par} \\'41 \\u65? {\\*\\x}"}) {
            for (const QString name : {"A;{\\} é Ж 字", "Signs"}) {
                TextBoardRTF buffer([](const QString &font) { return font == "Signs"; });
                buffer.setText(text);
                selectAll(buffer);
                buffer.setSelFontName(name);
                buffer.setSelFontSize(10.5);
                buffer.setSelBold(true);
                buffer.setSelItalic(true);
                buffer.setSelUnderline(true);
                buffer.setSelStrikeThru(true);
                buffer.setSelColor(RGBValue(1, 2, 3));
                buffer.setSelAlignment(2);
                QCOMPARE(buffer.TextRTF().contains("\\fcharset2 Signs;"), name == "Signs");
                // What other programs need: the one colour, every format, one byte a code.
                QVERIFY(buffer.TextRTF().contains("\\red1\\green2\\blue3;"));
                QVERIFY(buffer.TextRTF().contains("\\f0\\fs21\\cf1\\b\\i\\ul\\strike "));
                // A font of signs, known as such from the document, is written so again.
                TextBoardRTF again;
                QCOMPARE(buffer.SaveFile(File, Kind::RichText), std::nullopt);
                QCOMPARE(again.LoadFile(File, Kind::RichText), std::nullopt);
                selectAll(again);
                QCOMPARE(again.Text(), text);
                QCOMPARE(attributesOf(again), name + " 10.5 bius #010203 centre");
                QCOMPARE(again.TextRTF(), buffer.TextRTF());
            }
        }
    }

    void selection()
    {
        TextBoardRTF buffer;
        buffer.setText("ab\ncd\rőЖ");
        QCOMPARE(select(buffer, 0, 100), "ab\r\ncd\r\no?");
        QCOMPARE(select(buffer, 3, 3), "\r\nc"); // from within a line end
        QCOMPARE(select(buffer, 2, 1) + select(buffer, -1, -1), "");
        QCOMPARE(select(buffer, 1, 1), "b");
        buffer.setSelFontName("Arial");
        buffer.setSelColor(SystemColorBit | 5); // no colour of its own: only the low bits count
        buffer.setSelAlignment(2);
        buffer.setSelFontSize(0);
        buffer.setSelAlignment(3);
        QCOMPARE(attributesOf(buffer), "Arial 12 - #050000 centre");
        select(buffer, 0, 2);
        QCOMPARE(attributesOf(buffer), "? 12 - ? centre");
        // Without a selection only the paragraph can change; at the text's end the last character
        // tells, and an empty last paragraph is one.
        select(buffer, 9, 1);
        buffer.setSelItalic(true);
        select(buffer, 10, 0);
        buffer.setSelBold(true);
        buffer.setSelAlignment(1);
        QCOMPARE(attributesOf(buffer), "Times New Roman 12 i #000000 right");
        select(buffer, 4, 0);
        QCOMPARE(attributesOf(buffer), "Times New Roman 12 - #000000 left");
        buffer.setText("ab\r\n");
        selectAll(buffer);
        buffer.setSelAlignment(1);
        select(buffer, 4, 0);
        QCOMPARE(attributesOf(buffer), "Times New Roman 12 - #000000 right");
        buffer.setText("");
        buffer.setSelFontSize(7.26);
        buffer.setSelStrikeThru(true);
        QCOMPARE(attributesOf(buffer), "Times New Roman 7.5 s #000000 left");
    }

    void truncate()
    {
        TextBoardRTF buffer;
        buffer.setText("abc\r\ndef");
        selectAll(buffer);
        buffer.setSelFontName("Arial");
        buffer.setSelAlignment(1);
        for (const auto &[length, text] : {std::pair(100, "abc\r\ndef"), {4, "abc"}}) {
            selectAll(buffer);
            buffer.Truncate(length);
            QCOMPARE(buffer.Text(), text);
            QCOMPARE(buffer.SelLength(), 0);
            for (const qsizetype place : {buffer.TextLength(), qsizetype(0)}) {
                buffer.setSelStart(place); // of what stands there, or would at the end
                QCOMPARE(attributesOf(buffer), "Arial 12 - #000000 right");
            }
            QCOMPARE(readRichText(buffer.TextRTF())->Codes, text);
        }
    }

    void find()
    {
        constexpr int Whole = TextBoardRTF::WholeWord, Case = TextBoardRTF::MatchCase;
        // Text, wanted, start, end, options, and the place; at once in the longest text.
        const std::tuple<QString, QString, int, int, int, int> rows[] = {
            {"cat cat", "cat", 4, 7, 0, 4},
            {"cat cat", "cat", 1, 6, 0, -1},
            {"cat", "cat", -5, 100, 0, 0},
            {"aabaabaac", "aabaac", 0, 100, 0, 3},
            {"x ŠŒŽŸÀÞ", "šœžÿàþ", 0, 100, 0, 2},
            {"Š CAT š", "š", 0, 100, Case, 6},
            {"catÿ \u0192cat cat1 cat_ cat", "cat", 0, 100, Whole, 20},
            {"concats", "cat", 3, 6, Whole, -1},
            {"ab\r\ncd", "b\nc", 0, 100, 0, 1},
            {"?o", "Ж", 0, 100, 0, -1},
            {QString(61'440, u'a'), QString(30'000, u'a') + u'b', 0, 61'440, 0, -1}};
        for (const auto &[text, wanted, start, end, options, place] : rows) {
            TextBoardRTF buffer;
            buffer.setText(text);
            buffer.setSelStart(1);
            QCOMPARE(buffer.Find(wanted, start, end, options), place);
            QCOMPARE(buffer.SelStart(), place < 0 ? 1 : place);
            QVERIFY(place < 0 || buffer.SelText().size() >= wanted.size());
        }
    }

private:
    QTemporaryDir Folder;
    QString File = Folder.filePath("document");
};

QTEST_GUILESS_MAIN(TestRichText)
#include "tst_richtext.moc"
