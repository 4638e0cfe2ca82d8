// The rich-text buffer as a whole: what it reads from documents, what it writes and whether that
// comes back, its attributes, its search and its files. Works in a temporary folder.
#include "tests/support/Files.h"

#include "platform/CodePage.h"
#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"
#include "textboard/TextBoardRTF.h"

#include <QTemporaryDir>
#include <QTest>

using Kind = TextBoardRTF::FileKind;

namespace {

/// "Arial 12 bu #0000ff left", with a question mark for what differs within the selection.
QString attributesOf(const TextBoardRTF &buffer)
{
    const auto size = buffer.SelFontSize();
    const auto color = buffer.SelColor();
    const auto alignment = buffer.SelAlignment();
    QString styles;
    const auto add = [&styles](std::optional<bool> on, QChar letter) {
        if (on != false)
            styles += on ? letter : u'?';
    };
    add(buffer.SelBold(), u'b');
    add(buffer.SelItalic(), u'i');
    add(buffer.SelUnderline(), u'u');
    add(buffer.SelStrikeThru(), u's');
    return QStringList{buffer.SelFontName().value_or("?"), size ? QString::number(*size) : "?",
                       styles.isEmpty() ? "-" : styles, color ? ToColor(*color, {}).name() : "?",
                       alignment ? QStringList{"left", "right", "centre"}[*alignment] : "?"}
        .join(u' ');
}

void selectAll(TextBoardRTF &buffer)
{
    buffer.setSelStart(0);
    buffer.setSelLength(buffer.TextLength());
}

/// What a word processor may write for one uniform paragraph and an empty one, its paragraph marks
/// in a font of their own.
constexpr const char *WordProcessorDocument =
    R"({\rtf1\ansi\deff3\adeflang1025
{\fonttbl{\f0\froman\fprq2\fcharset0 Times New Roman;}{\f3\fswiss\fprq2\fcharset0 Arial{\*\falt Helvetica};}}
{\colortbl;\red0\green0\blue0;\red0\green128\blue0;}
{\stylesheet{\s0\snext0\rtlch\af0 \ltrch\fs24 Normal;}{\*\cs15\b Strong;}}{\*\generator Writer}
{\info{\title Not shown}{\creatim\yr2024\mo1\dy2}}\paperh16838\paperw11906
{\*\pgdsctbl{\pgdsc0 Default;}}\formshade{\header \pard Top\par}
\pard\plain \s0\qc\rtlch\af0\afs24 \ltrch\f0\fs24{\rtlch\ab \ltrch\b\f3\fs40\cf2 One }{\b\f3\fs40\cf2
line}
\par \pard\plain \s0\qc\ltrch\f3\fs40\cf2\b
\par }
)";

} // namespace

class TestRichText : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir Folder;

    QString path(const QString &name) const { return Folder.filePath(name); }
    QStringList files() const
    {
        return QDir(Folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static void textRows();
    static void attributeRows();
    static void hostileRows();

private slots:
    void init()
    {
        for (const QString &name : files())
            QVERIFY(QFile::remove(path(name)));
    }

    void reads_data();
    void reads();
    void refusesWhatBreaksOff();
    void writtenTextComesBack();
    void writtenDocument();
    void fontsOfSigns();
    void selection();
    void truncate();
    void find();
    void unreadableFiles();
    void aSaveThatFailsLeavesTheFileAlone();
};

void TestRichText::reads_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("text");       // null if it is refused
    QTest::addColumn<QString>("attributes"); // null if they don't matter
    textRows();
    attributeRows();
    hostileRows();
}

void TestRichText::textRows()
{
    const auto row = [](const char *name, const QByteArray &body, const char *text) {
        QTest::newRow(name) << "{\\rtf1\\ansi" + body + '}'
                            << QString::fromUtf8(text).replace(u'|', "\r\n") << QString();
    };
    const auto font = [](const char *words, const char *body) {
        return QByteArray("{\\fonttbl{\\f0") + words + " Font;}}\\f0 " + body;
    };
    row("closed paragraph", "{abc\\par}\\pard\\f0{\\*\\themedata 00}\r\n", "abc");
    row("empty last paragraph", R"( abc\par\par)", "abc|");
    row("breaks", R"( a\line b\page c\column d\sect e\par f)", "a|b|c|d|e|f");
    row("line ends of the file", QByteArray(" a\0\r\nb\nc\rd\\\r\ne\\\nf\\'0dg", 22), "abcd|e|f|g");
    row("special characters",
        R"( \{\}\\a\~b\-c\_d\tab e\lquote f\rquote\ldblquote g\rdblquote\bullet\endash\emdash\emspace h)",
        "{}\\a\u00a0b\u00adc-d\te‘f’“g”•–— h");
    row("bytes", " \\'e9\\'C9\\'80\\'81\xe9\\'zz\\'4", "éÉ€\u0081ézz4");
    row("unknown words", R"( \unknown12 a\Unknown-3b\! c)", "ab c");
    row("unknown destination", R"( a{\*\unknown b{c}\}d}e{\*\b f}g{\* h}\b i)", "aeg hi");
    row("destinations",
        R"({\info{\title a}}{\stylesheet{\s1 b;}}{\header c\par}{\pict 0123}{\pntext 1.\tab}e)"
        R"({\field{\*\fldinst X}{\fldrslt{\ul f}}}{\object\objemb{\*\objdata 00}{\result g}})",
        "efg");
    row("hidden", R"( a{\v b\par\'62\u98?\cell\row}c\v d\v0 e{\deleted f}\v g\plain h)", "aceh");
    row("binary data", " a{\\pict\\bin4 }\\{}b}c\\bin3 }}}d", "acd");
    row("table", R"(\trowd\intbl a\cell b\cell\row\trowd c\cell\cell\row\pard d\par)",
        "a\tb|c\t|d");
    row("text behind the document", "} abc{\\rtf1 d", "");

    row("substitutes", R"( \u8364?\u-3913?\u8212 -\u233\'65z\uc0\u8364 a{\uc2\u8364 ab c}\u8364 d)",
        "€·—éz€a€ c€d");
    row("escaped substitutes", R"(\uc2 \u8364\{\'31a\u8220\ldblquote x b)", "€a“ b");
    row("missing substitutes", R"({\u8364}a{\u8364}{b}\u8364\par \u8220\u97\u8221\b x)",
        "€a€b€|“a”x");
    row("surrogates", R"( \u-10179?\u-8704?a\u128512?\u-10179?b\u-8704?\u1114112?\u0?c)",
        "?a??b?c");
    row("accents", R"( e\u769?\u101?\u769?o\u779?\tab\u779?\par\u769?)",
        "éé"
        "o\t?|?");
    row("marks and separators", R"( a\u8203?\u65279?b\u173?c\u8232?d\u8233?e)",
        "ab\u00ad"
        "c|d|e");
    row("two spellings", R"( a{\upr{b\'3f}{\*\ud{b\u8364}}}c)", "ab€c");

    row("Central Europe", font("\\fcharset238", R"(\'9a\'b9)"), "ša");
    row("Cyrillic", font("\\cpg1251", R"(\'e0\'e1 a)"), "?? a");
    row("pages of the document", R"(\mac \'8e\'a5\pc \'82\ansicpg1250 \'9a\ansicpg77777 \'e9)",
        "é•éšé");
    row("font without a page of its own", "\\ansicpg1250" + font("\\fcharset1", R"(\'9a)"), "š");
    row("UTF-8", "\\ansicpg65001 \\'c3\\'a9\xc3\xa9", "éé");
    row("two bytes", font("\\fcharset128", R"(\'82\'60\'82a\'83\\\'83\'5ca\'81\'41)"), "AB??a?");
    row("no second byte", font("\\fcharset128", R"(\'83\'0a\'83 a\'83\tab\'83\par b)"),
        "?|? a?\t?|b");
    row("signs", font("\\fcharset2", R"(\'8e\u61623 ?\u-3937?\'81)"), "Ž·Ÿ\u0081");
    QTest::newRow("white space in front")
        << QByteArray("\xef\xbb\xbf \r\n\t{\\rtf a}") << "a" << QString();
}

void TestRichText::attributeRows()
{
    constexpr const char *Plain = "Courier New 12 - #000000 left";
    const auto row = [](const char *name, const QByteArray &body, const char *attributes,
                        const char *text = "a") {
        QTest::newRow(name) << "{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}"
                               "{\\f2 Arial;}}{\\colortbl;\\red255\\green128\\blue0;;\\red1;}" +
                                   body + '}'
                            << text << attributes;
    };
    row("nothing said", "a", Plain);
    row("everything", R"(\pard\qr\f0\fs25\b\i\ul\strike\cf1 a\par)",
        "Arial 12.5 bius #ff8000 right");
    row("no text", R"(\qc\f0\fs25\b\i\cf1\par)", "Arial 12.5 bi #ff8000 centre", "");
    row("off again", R"(\b\i\uldb\striked1\b0\i0\ulnone\striked0 a)", Plain);
    row("plain", R"(\f0\fs40\b\i\ul\strike\cf1\plain a)", Plain);
    row("groups", R"({\f0\fs40\b\cf1\qc\fs30 }a)", Plain);
    row("no such font, colour, size", R"(\f9\cf9\fs0 a\cf-1\fs-20 b\cf2\fs c)", Plain, "abc");
    row("huge size", R"(\cf3\fs99999999 a)", "Courier New 16383.5 - #010000 left");
    row("alignment at the end", R"(\qc a\qr\par)", "Courier New 12 - #000000 right");
    row("open paragraph", R"({\qc a})", "Courier New 12 - #000000 centre");
    row("mixed", R"(\f0\fs20\cf1\b a\par\f1\fs21\cf0\b0\i\qc b)", "? ? ?? ? ?", "a\r\nb");
    row("two fonts of one name", R"(\f0 a\f2 b)", "Arial 12 - #000000 left", "ab");
    row("paragraph mark", R"(a\f0\fs99\cf1\b\par\plain b)", Plain, "a\r\nb");

    const auto font = [](const char *name, const char *body, const char *attributes) {
        QTest::newRow(name) << "{\\rtf1" + QByteArray(body) + "{a}}"
                            << "a" << attributes;
    };
    font("no fonts", "", "Times New Roman 12 - #000000 left");
    font("no default font", R"({\fonttbl{\f5 Five;}{\f4 Four;}})", "Five 12 - #000000 left");
    font("font not grouped", R"({\fonttbl\f0\fnil One;\f1 Two}\f1)", "Two 12 - #000000 left");
    font("parts of a font's name",
         R"({\fonttbl{\f1{\*\panose 02}\fnil A\'e9 \'3b\u1046?\{{\*\falt Other};}}\f1)",
         "Aé ;Ж{ 12 - #000000 left");
    QTest::newRow("word processor") << QByteArray(WordProcessorDocument) << "One line\r\n"
                                    << "Arial 20 b #008000 centre";
}

void TestRichText::hostileRows()
{
    constexpr int Million = 1'000'000;
    const auto row = [](const char *name, const QByteArray &body, const QString &text,
                        const char *attributes = "Times New Roman 12 b #000000 left") {
        QTest::newRow(name) << "{\\rtf1\\b\\f1 " + body + '}' << text << attributes;
    };
    row("groups",
        QByteArray("{\\b0 ").repeated(2 * Million) + 'a' + QByteArray(2 * Million, '}') + 'b', "ab",
        "Times New Roman 12 ? #000000 left");
    row("groups in a destination",
        "{\\*\\x" + QByteArray(3 * Million, '{') + QByteArray(3 * Million, '}') + "}a", "a");
    QByteArray fonts;
    for (int i = 0; i < 1 << 17; ++i)
        fonts += "{\\f" + QByteArray::number(i) + " Font;}";
    row("fonts", "{\\fonttbl{\\f200000 First;}" + fonts + "}\\f65534 a\\f65535 b", "ab",
        "? 12 b #000000 left");
    row("long font name", "{\\fonttbl{\\f1 " + QByteArray(Million, 'x') + ";}}a", "a");
    row("colours", "{\\colortbl" + QByteArray("\\red1;").repeated(1 << 16) + "\\red2;}\\cf65536 a",
        "a");
    row("long word", '\\' + QByteArray(Million, 'x') + QByteArray(Million, '1') + " a", "a");
    row("accents", 'e' + QByteArray("\\u769?").repeated(Million), "é");
    row("no binary data", R"(a\bin-5 b)", "ab");
    const auto refused = [](const char *name, const QByteArray &document) {
        QTest::newRow(name) << document << QString() << QString();
    };
    refused("nothing", "");
    refused("blanks", "  \r\n");
    refused("other word", "{\\rtfx abc}");
    refused("binary data beyond the end", R"({\rtf1 a\bin99999999999999999999 b})");
    refused("changes", "{\\rtf1" + QByteArray("\\b a\\b0 a").repeated(1 << 19) + "\\b a}");
}

void TestRichText::reads()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, text);
    QFETCH(QString, attributes);
    TextBoardRTF buffer;
    buffer.setText("before");
    const auto reason = buffer.LoadFile(writeFile(path("document"), document), Kind::RichText);
    QCOMPARE(reason.value_or("read"), text.isNull() ? "Not valid rich text" : "read");
    QCOMPARE(buffer.Text(), text);
    selectAll(buffer);
    if (!attributes.isNull())
        QCOMPARE(attributesOf(buffer), attributes);
}

void TestRichText::refusesWhatBreaksOff()
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

void TestRichText::writtenTextComesBack()
{
    QByteArray codes;
    for (int code = 0; code < 256; ++code)
        if (code != '\r' && code != '\n')
            codes += char(code);
    for (const QString &text :
         {CodePage::fromBytes(codes), QString(), QString("abc"), QString("\r\n\r\n"),
          QString("\r\n abc \r\n\tdef "), QString("{\\par} \\'41 \\u65? {\\*\\x}")}) {
        TextBoardRTF buffer;
        buffer.setText(text);
        selectAll(buffer);
        buffer.setSelFontName("A;{\\} é Ж 字");
        buffer.setSelFontSize(10.5);
        buffer.setSelBold(true);
        buffer.setSelItalic(true);
        buffer.setSelUnderline(true);
        buffer.setSelStrikeThru(true);
        buffer.setSelColor(RGBValue(1, 2, 3));
        buffer.setSelAlignment(2);
        QCOMPARE(buffer.SaveFile(path("written"), Kind::RichText), std::nullopt);
        TextBoardRTF again;
        QCOMPARE(again.LoadFile(path("written"), Kind::RichText), std::nullopt);
        QCOMPARE(again.Text(), text);
        selectAll(again);
        QCOMPARE(attributesOf(again), "A;{\\} é Ж 字 10.5 bius #010203 centre");
        QCOMPARE(again.TextRTF(), buffer.TextRTF());
    }
}

void TestRichText::writtenDocument()
{
    TextBoardRTF buffer;
    buffer.setText("Ab\t\r\n€");
    selectAll(buffer);
    buffer.setSelFontName("Arial");
    buffer.setSelColor(RGBValue(0, 128, 255));
    buffer.setSelUnderline(true);
    buffer.setSelAlignment(1);
    // What other programs need: the one font and colour, every format, one byte a code in ASCII.
    QCOMPARE(buffer.TextRTF(),
             "{\\rtf1\\ansi\\ansicpg1252\\deff0\r\n{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}}\r\n"
             "{\\colortbl ;\\red0\\green128\\blue255;}\r\n"
             "\\pard\\qr \\plain\\f0\\fs24\\cf1\\ul Ab\\tab \\par\r\n\\'80\\par\r\n}\r\n");
}

void TestRichText::fontsOfSigns()
{
    TextBoardRTF buffer([](const QString &name) { return name == "Signs"; });
    buffer.setText("a\u0081Ž");
    selectAll(buffer);
    buffer.setSelFontName("Signs");
    QVERIFY(buffer.TextRTF().contains("\\fcharset2 Signs;"));
    // Known as such from the document, it is written so again.
    TextBoardRTF again;
    const QString document = writeFile(path("document"), buffer.TextRTF());
    QCOMPARE(again.LoadFile(document, Kind::RichText), std::nullopt);
    QCOMPARE(again.TextRTF(), buffer.TextRTF());
}

void TestRichText::selection()
{
    TextBoardRTF buffer;
    const auto select = [&buffer](int start, int length) {
        buffer.setSelStart(start);
        buffer.setSelLength(length);
        return buffer.SelText();
    };
    buffer.setText("ab\ncd\rőЖ");
    QCOMPARE(select(0, 100), "ab\r\ncd\r\no?");
    QCOMPARE(select(3, 3), "\r\nc"); // from within a line end
    QCOMPARE(select(2, 1), "");
    QCOMPARE(select(-1, -1), "");
    QCOMPARE(select(1, 1), "b");
    buffer.setSelFontName("Arial");
    buffer.setSelColor(SystemColorBit | 5); // no colour of its own: only the low bits count
    buffer.setSelAlignment(2);
    buffer.setSelFontSize(0);
    buffer.setSelAlignment(3);
    QCOMPARE(attributesOf(buffer), "Arial 12 - #050000 centre");
    select(0, 2);
    QCOMPARE(attributesOf(buffer), "? 12 - ? centre");
    // Without a selection only the paragraph can change; at the text's end the last character
    // tells, and an empty last paragraph is one.
    select(9, 1);
    buffer.setSelItalic(true);
    select(10, 0);
    buffer.setSelBold(true);
    buffer.setSelAlignment(1);
    QCOMPARE(attributesOf(buffer), "Times New Roman 12 i #000000 right");
    select(4, 0);
    QCOMPARE(attributesOf(buffer), "Times New Roman 12 - #000000 left");
    buffer.setText("ab\r\n");
    selectAll(buffer);
    buffer.setSelAlignment(1);
    select(4, 0);
    QCOMPARE(attributesOf(buffer), "Times New Roman 12 - #000000 right");
    // An empty text changes whole.
    buffer.setText("");
    buffer.setSelFontSize(7.26);
    buffer.setSelStrikeThru(true);
    QCOMPARE(attributesOf(buffer), "Times New Roman 7.5 s #000000 left");
}

void TestRichText::truncate()
{
    TextBoardRTF buffer;
    buffer.setText("abc\r\ndef");
    selectAll(buffer);
    buffer.setSelFontName("Arial");
    buffer.setSelAlignment(1);
    for (const auto &[length, text] : {std::pair(100, "abc\r\ndef"), std::pair(4, "abc")}) {
        selectAll(buffer);
        buffer.Truncate(length);
        QCOMPARE(buffer.Text(), text);
        QCOMPARE(buffer.SelLength(), 0);
        QCOMPARE(attributesOf(buffer), "Arial 12 - #000000 right");
        QCOMPARE(readRichText(buffer.TextRTF())->Codes, text);
    }
}

void TestRichText::find()
{
    struct Search
    {
        QString Text, Wanted;
        int Start, End, Options, Position;
    };
    constexpr int Whole = TextBoardRTF::WholeWord, Case = TextBoardRTF::MatchCase;
    const Search searches[] = {
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
        {QString(61'440, u'a'), QString(30'000, u'a') + u'b', 0, 61'440, 0, -1}, // at once
    };
    for (const Search &row : searches) {
        TextBoardRTF buffer;
        buffer.setText(row.Text);
        buffer.setSelStart(1);
        QCOMPARE(buffer.Find(row.Wanted, row.Start, row.End, row.Options), row.Position);
        QCOMPARE(buffer.SelStart(), row.Position < 0 ? 1 : row.Position);
        if (row.Position >= 0)
            QCOMPARE(buffer.SelText().toLower(), QString(row.Wanted).replace("\n", "\r\n"));
    }
}

void TestRichText::unreadableFiles()
{
    QFile large(path("large"));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize((qint64(256) << 20) + 1));
    for (const auto &[file, reason] : {std::pair("missing", "No such file or directory"),
                                       std::pair("large", "The file is larger than 256 MB")}) {
        TextBoardRTF buffer;
        buffer.setText("before");
        QCOMPARE(buffer.LoadFile(path(file), Kind::PlainText).value_or("read"), reason);
        QCOMPARE(buffer.Text(), "");
    }
}

void TestRichText::aSaveThatFailsLeavesTheFileAlone()
{
    const QString old = writeFile(path("document"), "old");
    TextBoardRTF buffer;
    buffer.setText(QString(100'000, u'n'));
    for (const Kind kind : {Kind::RichText, Kind::PlainText}) {
        {
            const FullDisk disk;
            QVERIFY(!buffer.SaveFile(old, kind).value_or(QString()).isEmpty());
        }
        QCOMPARE(contentOf(old), "old");
        QCOMPARE(files(), QStringList("document"));
    }
}

QTEST_GUILESS_MAIN(TestRichText)
#include "tst_richtext.moc"
