// The rich-text buffer as a whole: what it reads from documents and plain files, what it writes and
// whether that comes back, its attributes and its search. Works in a temporary folder.
#include "platform/CodePage.h"
#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"
#include "textboard/TextBoardRTF.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using Kind = TextBoardRTF::FileKind;

namespace {

/// A disk on which no file can grow.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &Before);
        const rlimit none{0, Before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &Before); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit Before{};
};

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QByteArray allCodesButLineEnds()
{
    QByteArray codes;
    for (int code = 0; code < 256; ++code)
        if (code != '\r' && code != '\n')
            codes += char(code);
    return codes;
}

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

    QString fileOf(const QByteArray &contents) const
    {
        const QString path = Folder.filePath("document");
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size()
                   ? path
                   : QString();
    }

    QStringList files() const
    {
        return QDir(Folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private slots:
    void init()
    {
        for (const QString &name : files())
            QVERIFY(QFile::remove(Folder.filePath(name)) || QDir(Folder.path()).rmdir(name));
    }

    void textOfADocument_data();
    void textOfADocument();
    void attributesOfADocument_data();
    void attributesOfADocument();
    void notRichText_data();
    void notRichText();
    void aDocumentThatBreaksOffIsReadAsFarAsItGoes();
    void hugeDocuments_data();
    void hugeDocuments();
    void plainText_data();
    void plainText();
    void writtenTextComesBack_data();
    void writtenTextComesBack();
    void writtenFormatsComeBack();
    void writtenDocument();
    void fontsOfSigns();
    void selection();
    void attributesOfTheSelection();
    void truncate();
    void find_data();
    void find();
    void unreadableFiles_data();
    void unreadableFiles();
    void savingKeepsPermissionsAndLinks();
    void aSaveThatFailsLeavesTheFileAlone_data();
    void aSaveThatFailsLeavesTheFileAlone();
};

void TestRichText::textOfADocument_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QByteArray &body, const char *text) {
        QTest::newRow(name) << "{\\rtf1\\ansi" + body + '}'
                            << QString::fromUtf8(text).replace(u'|', "\r\n");
    };
    const auto font = [](const char *words, const char *body) {
        return QByteArray("{\\fonttbl{\\f0") + words + " Font;}}\\f0 " + body;
    };

    row("empty", "", "");
    row("last paragraph not closed", R"( abc)", "abc");
    row("last paragraph closed", R"( abc\par)", "abc");
    row("last paragraph closed, formats behind", "{abc\\par}\\pard\\f0{\\*\\themedata 00}\r\n",
        "abc");
    row("empty last paragraph", R"( abc\par\par)", "abc|");
    row("blank behind the last close", R"( abc\par  )", "abc| ");
    row("only a closed paragraph", R"(\par)", "");
    row("line break at the end", R"( abc\line)", "abc|");
    row("breaks", R"( a\line b\page c\column d\sect e\par f)", "a|b|c|d|e|f");
    row("line ends of the file", " a\r\nb\nc\rd\n", "abcd");
    row("escaped line end", " a\\\r\nb\\\nc", "a|b|c");
    row("hexadecimal line end", R"( a\'0db)", "a|b");
    row("zeros pad", QByteArray(" a\0b", 4), "ab");
    row("blanks", "  a  b\\b  c ", " a  b c ");
    row("special characters",
        R"( \{\}\\a\~b\-c\_d\tab e\lquote f\rquote\ldblquote g\rdblquote\bullet\endash\emdash\emspace h)",
        "{}\\a\u00a0b\u00adc-d\te‘f’“g”•–— h");
    row("bare tab and high byte", " a\tb\xe9", "a\tbé");
    row("hexadecimal", R"( \'e9\'C9\'80\'81)", "éÉ€\u0081");
    row("not hexadecimal", R"( \'zz\'4)", "zz4");
    row("unknown words", R"( \unknown12 a\Unknown-3b\! c)",
        "ab c"); // a word takes the blank that ends it
    row("unknown destination", R"( a{\*\unknown b{c}\}d}e{\*\b f}g)", "aeg");
    row("groups that a reader passes over",
        R"({\info{\title a}}{\stylesheet{\s1 b;}}{\header c\par}{\footerl d}{\pict 0123}{\pntext 1.\tab}e)"
        R"({\footnote f}{\listtext g}{\shp{\*\shpinst h{\shptxt i}}{\shprslt j}}{\xe k})",
        "e");
    row("object's result", R"({\object\objemb{\*\objdata 00}{\result a}})", "a");
    row("field", R"({\field{\*\fldinst HYPERLINK "x"}{\fldrslt{\ul shown}}}{\field{\fldinst y}})",
        "shown");
    row("hidden", R"( a{\v b\par\'62\u98?\cell\row}c\v d\v0 e{\deleted f}\v g\plain h)", "aceh");
    row("binary data", " a{\\pict\\bin4 }\\{}b}c\\bin3 }}}d", "acd");
    row("more binary data than there is", R"( a\bin1000000000 bc)", "a");
    row("negative binary data", R"( a\bin-5 bc)", "abc");
    row("table", R"(\trowd\cellx1\cellx2\intbl a\cell b\cell\row\trowd c\cell\cell\row\pard d\par)",
        "a\tb|c\t|d");
    row("table in a table",
        R"( a{\nestcell}b\nestcell{\*\nesttableprops\trowd\nestrow}{\nonesttables\par}\cell\row)",
        "a\tb||");
    row("tab before a hidden cell", R"( a\tab{\v\cell}\row)", "a\t|");
    row("text behind the document", "} abc{\\rtf1 d", "");

    row("substitute", R"( \u8364?\u-3913?\u8212 -\u233\'65z)", "€·—éz");
    row("number of substitutes", R"(\uc0\u8364 a{\uc2\u8364 ab c}\u8364 d\uc3\u8364 xy)",
        "€a€ c€d€");
    row("escaped substitutes", R"(\uc2 \u8364\{\'31a\u8220\ldblquote x b)", "€a“ b");
    row("substitute missing at a group's end", R"({\u8364}a{\u8364}{b})", "€a€b");
    row("substitute missing at a line end", R"( \u8364\par a)", "€|a");
    row("substitutes missing in a row", R"(\u8220\u97\u8221\b x)", "“a”x");
    row("pair of surrogates", R"(\u-10179?\u-8704?a\u128512?)", "?a?");
    row("lone surrogate", R"(\u-10179?a\u-8704?)", "?a?");
    row("beyond Unicode", R"( a\u1114112?\u-70000?\u0?b)", "ab");
    row("accents", R"( e\u769?\u101?\u769?o\u779?\tab\u779?)",
        "éé"
        "o\t?");
    row("marks that show nothing", R"( a\u8203?\u65279?\u8206?b\u173?c)",
        "ab\u00ad"
        "c");
    row("line and paragraph separators", R"( a\u8232?b\u8233?c\u10?d)", "a|b|c|d");
    row("in two spellings", R"( a{\upr{b\'3f}{\*\ud{b\u8364}}}c)", "ab€c");

    row("Central Europe", font("\\fcharset238", R"(\'9a\'b9)"), "ša");
    row("Cyrillic", font("\\fcharset204", R"(\'e0\'e1 a)"), "?? a");
    row("page of a font", font("\\cpg1250", R"(\'8a)"), "Š");
    row("Macintosh", R"(\mac \'8e\'a5)", "é•");
    row("two pages of the old PC", R"(\pc \'82 {\pca\'b8})", "é ©");
    row("page of the document", R"(\ansicpg1250 \'9a)", "š");
    row("page of the document in its fonts", "\\ansicpg1250" + font("\\fcharset1", R"(\'9a\'b9)"),
        "ša");
    row("font of this page in another page's document",
        "\\ansicpg1251" + font("\\fcharset0", R"(\'e9)"), "é");
    row("unknown page", R"(\ansicpg77777 \'e9)", "é");
    row("UTF-8", "\\ansicpg65001 \\'c3\\'a9\xc3\xa9", "éé");
    row("two bytes", font("\\fcharset128", R"(\'82\'60\'82a\'83\\\'83\'5ca\'83\'41)"), "AB??a?");
    row("one byte of two", font("\\fcharset134", R"(\'b0\par a)"), "?|a");
    row("no second byte", font("\\fcharset128", R"(\'83\'0a\'83 a\'83\'31\'83\tab)"), "?|? a?1?\t");
    row("signs", font("\\fcharset2", R"(\'8e\u61623 ?\u-3937?\'81)"), "Ž·Ÿ\u0081");

    QTest::newRow("white space in front") << QByteArray(" \r\n\t{\\rtf1 a}") << "a";
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf{\\rtf1 a}") << "a";
    QTest::newRow("no version") << QByteArray("{\\rtf a}") << "a";
    QTest::newRow("word processor") << QByteArray(WordProcessorDocument) << "One line\r\n";
}

void TestRichText::textOfADocument()
{
    QFETCH(QByteArray, document);
    TextBoardRTF buffer;
    QCOMPARE(buffer.LoadFile(fileOf(document), Kind::RichText), std::nullopt);
    QTEST(buffer.Text(), "text");
}

void TestRichText::attributesOfADocument_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("attributes");
    const auto row = [](const char *name, const char *body, const char *attributes) {
        QTest::newRow(name) << "{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}"
                               "{\\f1 Courier New;}{\\f2 Arial;}{\\f3\\fcharset204 Times;}}"
                               "{\\colortbl;\\red255\\green128\\blue0;;\\red0\\green0\\blue1;}" +
                                   QByteArray(body) + '}'
                            << attributes;
    };
    row("nothing said", " a", "Courier New 12 - #000000 left");
    row("nothing said, no text", "", "Courier New 12 - #000000 left");
    row("everything", R"(\pard\qr\f0\fs25\b\i\ul\strike\cf1 a\par)",
        "Arial 12.5 bius #ff8000 right");
    row("everything, no text", R"(\qc\f0\fs25\b\i\ul\strike\cf1\par)",
        "Arial 12.5 bius #ff8000 centre");
    row("off again", R"(\b\i\ul\strike\b0\i0\ul0\strike0 a)", "Courier New 12 - #000000 left");
    row("words that end", R"(\ul\ulnone\striked1\striked0 a)", "Courier New 12 - #000000 left");
    row("other underlines", R"(\uldb a\ulnone\ulwave b\ul0\ulthdash c)",
        "Courier New 12 u #000000 left");
    row("colour of an underline", R"(\ulc1 a)", "Courier New 12 - #000000 left");
    row("double line through", R"(\striked1 a)", "Courier New 12 s #000000 left");
    row("plain", R"(\f0\fs40\b\i\ul\strike\cf1\qc\plain a)", "Courier New 12 - #000000 centre");
    row("groups", R"({\f0\fs40\b\cf1\qc\fs30 }a)", "Courier New 12 - #000000 left");
    row("automatic colours", R"(\cf0 a\cf2 b\cf9 c\cf-1 d)", "Courier New 12 - #000000 left");
    row("last colour", R"(\cf3 a)", "Courier New 12 - #000001 left");
    row("unknown font", R"(\f9 a)", "Courier New 12 - #000000 left");
    row("sizes that are none", R"(\fs0 a\fs-20 b\fs c)", "Courier New 12 - #000000 left");
    row("huge size", R"(\fs99999999 a)", "Courier New 16383.5 - #000000 left");
    row("justified", R"(\qj a)", "Courier New 12 - #000000 left");
    row("paragraph's alignment at its end", R"(\qr a\qc\par)", "Courier New 12 - #000000 centre");
    row("alignment of an open paragraph", R"({\qc a})", "Courier New 12 - #000000 centre");
    row("two fonts", R"(\f0 a\f1 b)", "? 12 - #000000 left");
    row("two fonts of one name", R"(\f0 a\f2 b)", "Arial 12 - #000000 left");
    row("two sizes", R"(\fs20 a\fs21 b)", "Courier New ? - #000000 left");
    row("two colours", R"(a\cf1 b)", "Courier New 12 - ? left");
    row("mixed styles", R"(\b a\b0 b\i c)", "Courier New 12 ?? #000000 left");
    row("mixed alignments", R"(a\par\qc b\par)", "Courier New 12 - #000000 ?");
    row("differing paragraph mark", R"(\f0 a\f1\fs99\cf1\b\par\plain\f0 b{\cf1\par}\par)",
        "Arial 12 - #000000 left");
    row("differing empty paragraph", R"(\f0 a\par\f1\par\f0 b)", "? 12 - #000000 left");
    row("page of another font", R"(\f3\'e0 a)", "Times 12 - #000000 left");

    const auto whole = [](const char *name, const char *document, const char *attributes) {
        QTest::newRow(name) << QByteArray(document) << QString::fromUtf8(attributes);
    };
    whole("no fonts", R"({\rtf1 a})", "Times New Roman 12 - #000000 left");
    whole("no default font", R"({\rtf1{\fonttbl{\f5 Five;}{\f4 Four;}}a})",
          "Five 12 - #000000 left");
    whole("fonts without groups", R"({\rtf1{\fonttbl\f0\fnil One;\f1 Two;}\f1 a})",
          "Two 12 - #000000 left");
    whole("font's name not ended", R"({\rtf1{\fonttbl{\f1 Two}}\f1 a})", "Two 12 - #000000 left");
    whole("parts of a font's name",
          R"({\rtf1{\fonttbl{\f1{\*\panose 02}\fnil A\'e9 \'3b\u1046?\{{\*\falt Other};}}\f1 a})",
          "Aé ;Ж{ 12 - #000000 left");
    whole("font's name in its page", R"({\rtf1{\fonttbl{\f1\fcharset204 \'c6;}}\f1 a})",
          "Ж 12 - #000000 left");
    whole("word processor", WordProcessorDocument, "Arial 20 b #008000 centre");
}

void TestRichText::attributesOfADocument()
{
    QFETCH(QByteArray, document);
    TextBoardRTF buffer;
    QCOMPARE(buffer.LoadFile(fileOf(document), Kind::RichText), std::nullopt);
    selectAll(buffer);
    QTEST(attributesOf(buffer), "attributes");
}

void TestRichText::notRichText_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("text") << QByteArray("abc");
    QTest::newRow("blanks") << QByteArray("  \r\n");
    QTest::newRow("other group") << QByteArray("{abc}");
    QTest::newRow("other word") << QByteArray("{\\rtfx abc}");
    QTest::newRow("no group") << QByteArray("\\rtf1 abc");
    QTest::newRow("zeros") << QByteArray(100, '\0');
    QTest::newRow("too many changes")
        << "{\\rtf1" + QByteArray("\\b a\\b0 a").repeated(1 << 19) + "\\b a}";
}

void TestRichText::notRichText()
{
    QFETCH(QByteArray, document);
    TextBoardRTF buffer;
    buffer.setText("before");
    QCOMPARE(buffer.LoadFile(fileOf(document), Kind::RichText), "Not valid rich text");
    QCOMPARE(buffer.Text(), "");
}

void TestRichText::aDocumentThatBreaksOffIsReadAsFarAsItGoes()
{
    const QByteArray document =
        R"({\rtf1\ansi\ansicpg932{\fonttbl{\f0\fcharset128 One{\*\falt x};}{\f1\fcharset2 Two;}})"
        R"({\colortbl;\red1\green2\blue3;}\pard\qc\f0\fs40 {\b abc\'83\'5c}\u8364?e\u769?\par)"
        R"({\upr{x}{\*\ud{y}}}{\pict\bin3 }}}}\f1\'41\u-3937?{\*\x y}\cell\row{\v h}\line\tab\par})";
    const qsizetype text = document.indexOf("abc");
    QCOMPARE(readRichText(document)->Codes, "abc?\x80\xe9\r\nyA\x9f\r\n\r\n\t");
    for (qsizetype length = 0; length < document.size(); ++length) {
        // A copy of just this length, so that a look beyond its end is noticed.
        const std::vector<char> cut(document.begin(), document.begin() + length);
        const auto read = readRichText({cut.data(), length});
        QCOMPARE(read.has_value(), length >= 5);
        if (!read)
            continue;
        QCOMPARE(read->Codes.left(3), QByteArray("abc").left(std::max(length - text, 0LL)));
        const auto again = readRichText(writeRichText(*read));
        QCOMPARE(again->Codes, read->Codes);
    }
}

void TestRichText::hugeDocuments_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("attributes");
    constexpr int Million = 1'000'000;
    QByteArray fonts;
    QByteArray text;
    constexpr int Fonts = 200'000;
    for (int i = 0; i < Fonts; ++i) {
        fonts += "{\\f" + QByteArray::number(i) + " Font" + QByteArray::number(i) + ";}";
        text += "\\f" + QByteArray::number(i) + " a";
    }
    fonts = "{\\fonttbl" + fonts + '}';
    const auto row = [](const char *name, const QByteArray &body, const char *result,
                        const char *attributes) {
        QTest::newRow(name) << "{\\rtf1\\b\\f1 " + body + '}' << result << attributes;
    };
    row("groups", QByteArray(Million, '{') + 'a' + QByteArray(Million, '}') + 'b', "ab",
        "Times New Roman 12 b #000000 left");
    row("more groups",
        QByteArray("{\\b0 ").repeated(2 * Million) + 'a' + QByteArray(2 * Million, '}') + 'b', "ab",
        "Times New Roman 12 ? #000000 left");
    row("groups not closed", QByteArray(3 * Million, '{') + 'a', "a",
        "Times New Roman 12 b #000000 left");
    row("groups in a destination",
        "{\\*\\x" + QByteArray(3 * Million, '{') + QByteArray(3 * Million, '}') + "}a", "a",
        "Times New Roman 12 b #000000 left");
    row("fonts", fonts + "a\\f65000 b\\f65001 c", "abc", "? 12 b #000000 left");
    row("one of many fonts", fonts + "\\f65000 a", "a", "Font65000 12 b #000000 left");
    QTest::newRow("fonts in use") << "{\\rtf1" + fonts + text + '}' << QString(Fonts, u'a')
                                  << "? 12 - #000000 left";
    row("long font name", "{\\fonttbl{\\f1 " + QByteArray(Million, 'x') + ";}}a", "a",
        "Times New Roman 12 b #000000 left");
    row("colours", "{\\colortbl" + QByteArray("\\red1;").repeated(Million) + "}\\cf65000 a", "a",
        "Times New Roman 12 b #010000 left");
    row("long word", '\\' + QByteArray(Million, 'x') + QByteArray(Million, '1') + " a", "a",
        "Times New Roman 12 b #000000 left");
    row("accents", 'e' + QByteArray("\\u769?").repeated(Million), "é",
        "Times New Roman 12 b #000000 left");
    QTest::newRow("substitutes") << "{\\rtf1" + QByteArray("\\u8364?").repeated(Million) + '}'
                                 << QString(Million, QChar(0x20AC))
                                 << "Times New Roman 12 - #000000 left";
}

void TestRichText::hugeDocuments()
{
    QFETCH(QByteArray, document);
    TextBoardRTF buffer;
    QCOMPARE(buffer.LoadFile(fileOf(document), Kind::RichText), std::nullopt);
    QTEST(buffer.Text(), "text");
    selectAll(buffer);
    QTEST(attributesOf(buffer), "attributes");
}

void TestRichText::plainText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("every byte but line ends") << allCodesButLineEnds() << allCodesButLineEnds();
    QTest::newRow("line ends") << QByteArray("\na\rb\r\nc\n\r\r\n\r")
                               << QByteArray("\r\na\r\nb\r\nc\r\n\r\n\r\n\r\n");
    QTest::newRow("rich text") << QByteArray("{\\rtf1 a\\par}") << QByteArray("{\\rtf1 a\\par}");
}

void TestRichText::plainText()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, saved);
    TextBoardRTF buffer;
    QCOMPARE(buffer.LoadFile(fileOf(bytes), Kind::PlainText), std::nullopt);
    QCOMPARE(buffer.Text(), CodePage::fromBytes(saved));
    QCOMPARE(buffer.SaveFile(Folder.filePath("saved"), Kind::PlainText), std::nullopt);
    QCOMPARE(contentsOf(Folder.filePath("saved")), saved);
    selectAll(buffer);
    QCOMPARE(attributesOf(buffer), "Times New Roman 12 - #000000 left");
}

void TestRichText::writtenTextComesBack_data()
{
    QTest::addColumn<QString>("text");
    QByteArray codes = allCodesButLineEnds();
    QTest::newRow("every code") << CodePage::fromBytes(codes);
    std::ranges::reverse(codes);
    QTest::newRow("every code, backwards") << CodePage::fromBytes(codes);
    QTest::newRow("empty") << "";
    QTest::newRow("no line end") << "abc";
    QTest::newRow("one at the end") << "abc\r\n";
    QTest::newRow("several at the end") << "abc\r\n\r\n\r\n";
    QTest::newRow("line ends alone") << "\r\n\r\n";
    QTest::newRow("blanks and tabs about line ends") << "\r\n abc \r\n\tdef ";
    QTest::newRow("looks like control words") << "{\\par} \\'41 \\u65? {\\*\\x}";
}

void TestRichText::writtenTextComesBack()
{
    QFETCH(QString, text);
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

    const QString path = Folder.filePath("written");
    QCOMPARE(buffer.SaveFile(path, Kind::RichText), std::nullopt);
    QCOMPARE(contentsOf(path), buffer.TextRTF());
    TextBoardRTF again;
    QCOMPARE(again.LoadFile(path, Kind::RichText), std::nullopt);
    QCOMPARE(again.Text(), text);
    selectAll(again);
    QCOMPARE(attributesOf(again), "A;{\\} é Ж 字 10.5 bius #010203 centre");
    QCOMPARE(again.TextRTF(), buffer.TextRTF());
}

void TestRichText::writtenFormatsComeBack()
{
    TextBoardRTF buffer;
    buffer.setText("one\rtwo\r\rthree");
    const QStringList fonts = {"A", "B", "Times New Roman"};
    for (int i = 0; i < buffer.TextLength(); ++i) {
        buffer.setSelStart(i);
        buffer.setSelLength(1);
        buffer.setSelFontName(fonts[i % 3]);
        buffer.setSelFontSize(8 + i / 4);
        buffer.setSelBold(i % 2);
        buffer.setSelItalic(i / 2 % 2);
        buffer.setSelUnderline(i % 5 == 0);
        buffer.setSelStrikeThru(i > 7);
        buffer.setSelColor(i / 3);
        buffer.setSelAlignment(i % 3);
    }
    TextBoardRTF again;
    QCOMPARE(again.LoadFile(fileOf(buffer.TextRTF()), Kind::RichText), std::nullopt);
    QCOMPARE(again.Text(), buffer.Text());
    for (int i = 0; i < buffer.TextLength(); ++i) {
        buffer.setSelStart(i);
        again.setSelStart(i);
        if (buffer.Text()[i] == u'\r' || buffer.Text()[i] == u'\n')
            QCOMPARE(again.SelAlignment(), buffer.SelAlignment());
        else
            QCOMPARE(attributesOf(again), attributesOf(buffer));
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
    QCOMPARE(again.LoadFile(fileOf(buffer.TextRTF()), Kind::RichText), std::nullopt);
    QCOMPARE(again.Text(), "a\u0081Ž");
    QCOMPARE(again.TextRTF(), buffer.TextRTF());
    selectAll(again);
    again.setSelFontName("Letters");
    QVERIFY(again.TextRTF().contains("\\fcharset0 Letters;"));
}

void TestRichText::selection()
{
    TextBoardRTF buffer;
    buffer.setText("ab\ncd\rőЖ");
    QCOMPARE(buffer.Text(), "ab\r\ncd\r\no?");
    QCOMPARE(buffer.TextLength(), 10);
    QCOMPARE(buffer.SelText(), "");
    buffer.setSelStart(3); // within a line end
    QCOMPARE(buffer.SelStart(), 2);
    buffer.setSelLength(1);
    QCOMPARE(buffer.SelLength(), 0);
    buffer.setSelLength(3);
    QCOMPARE(buffer.SelText(), "\r\nc");
    buffer.setSelLength(100);
    QCOMPARE(buffer.SelText(), "\r\ncd\r\no?");
    buffer.setSelStart(5);
    QCOMPARE(buffer.SelLength(), 0);
    buffer.setSelStart(100);
    QCOMPARE(buffer.SelStart(), 10);
    buffer.setSelStart(-1);
    QCOMPARE(buffer.SelStart(), 0);
    buffer.setSelLength(-1);
    QCOMPARE(buffer.SelLength(), 0);
    buffer.setSelStart(4);
    buffer.setText("abcdef");
    QCOMPARE(buffer.SelStart(), 0);
}

void TestRichText::attributesOfTheSelection()
{
    TextBoardRTF buffer;
    buffer.setText("abc\r\n\r\ndef");
    const auto attributesAt = [&buffer](int start, int length) {
        buffer.setSelStart(start);
        buffer.setSelLength(length);
        return attributesOf(buffer);
    };
    buffer.setSelStart(1);
    buffer.setSelLength(2);
    buffer.setSelFontName("Arial");
    buffer.setSelColor(SystemColorBit | 5); // no colour of its own: only the low bits count
    buffer.setSelAlignment(2);
    buffer.setSelFontSize(0);
    buffer.setSelAlignment(3);
    QCOMPARE(attributesAt(0, 0), "Times New Roman 12 - #000000 centre");
    QCOMPARE(attributesAt(1, 0), "Arial 12 - #050000 centre");
    QCOMPARE(attributesAt(0, 2), "? 12 - ? centre");
    QCOMPARE(attributesAt(1, 2), "Arial 12 - #050000 centre");
    QCOMPARE(attributesAt(3, 2), "Times New Roman 12 - #000000 centre");
    QCOMPARE(attributesAt(3, 4), "Times New Roman 12 - #000000 ?");

    // Without a selection only the paragraph can change.
    buffer.setSelStart(5);
    buffer.setSelBold(true);
    buffer.setSelAlignment(1);
    QCOMPARE(attributesAt(5, 0), "Times New Roman 12 - #000000 right");
    QCOMPARE(attributesAt(7, 0), "Times New Roman 12 - #000000 left");
    QCOMPARE(attributesAt(10, 0), "Times New Roman 12 - #000000 left");

    // The last character's at the text's end, and that of an empty last paragraph.
    buffer.setText("ab\r\n");
    buffer.setSelLength(2);
    buffer.setSelItalic(true);
    buffer.setSelStart(4);
    buffer.setSelAlignment(1);
    QCOMPARE(attributesAt(4, 0), "Times New Roman 12 - #000000 right");
    QCOMPARE(attributesAt(2, 0), "Times New Roman 12 - #000000 left");
    QCOMPARE(attributesAt(0, 4), "Times New Roman 12 ? #000000 left");

    buffer.setText("");
    buffer.setSelFontName("Arial");
    buffer.setSelFontSize(7.26);
    buffer.setSelStrikeThru(true);
    QCOMPARE(attributesAt(0, 0), "Arial 7.5 s #000000 left");
}

void TestRichText::truncate()
{
    TextBoardRTF buffer;
    buffer.setText("abc\r\ndef");
    selectAll(buffer);
    buffer.setSelFontName("Arial");
    buffer.setSelAlignment(1);
    for (const auto &[length, text] : {std::pair(100, "abc\r\ndef"), std::pair(6, "abc\r\nd"),
                                       std::pair(4, "abc"), std::pair(0, ""), std::pair(-1, "")}) {
        selectAll(buffer);
        buffer.Truncate(length);
        QCOMPARE(buffer.Text(), text);
        QCOMPARE(buffer.SelLength(), 0);
        QCOMPARE(attributesOf(buffer), "Arial 12 - #000000 right");
        QCOMPARE(readRichText(buffer.TextRTF())->Codes, text);
    }
}

void TestRichText::find_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end"); // -1 for none
    QTest::addColumn<int>("options");
    QTest::addColumn<int>("position");
    constexpr int None = -1, Whole = TextBoardRTF::WholeWord, Case = TextBoardRTF::MatchCase;
    const auto row = [](const char *name, const QString &text, const QString &wanted, int start,
                        int end, int options, int position) {
        QTest::newRow(name) << text << wanted << start << end << options << position;
    };
    row("first", "cat cat", "cat", 0, None, 0, 0);
    row("behind the first", "cat cat", "cat", 1, None, 0, 4);
    row("at the start given", "cat cat", "cat", 4, None, 0, 4);
    row("no more", "cat cat", "cat", 5, None, 0, -1);
    row("up to the end given", "cat cat", "cat", 1, 7, 0, 4);
    row("not beyond the end given", "cat cat", "cat", 1, 6, 0, -1);
    row("end beyond the text", "cat cat", "cat", 1, 100, 0, 4);
    row("end before the start", "cat cat", "cat", 4, 2, 0, -1);
    row("start before the text", "cat", "cat", -5, None, 0, 0);
    row("start behind the text", "cat", "cat", 9, None, 0, -1);
    row("nothing wanted", "cat", "", 0, None, 0, -1);
    row("longer than the text", "ca", "cat", 0, None, 0, -1);
    row("part of itself", "aabaabaac", "aabaac", 0, None, 0, 3);
    row("either case", "x CAT", "cAt", 0, None, 0, 2);
    row("the case", "CAT Cat cat", "cat", 0, None, Case, 8);
    row("either case outside ASCII", "ŠŒŽŸÀÞ", "šœžÿàþ", 0, None, 0, 0);
    row("the case outside ASCII", "Š š", "š", 0, None, Case, 2);
    row("letters whose other case isn't there", "ßµƒ", "ßµƒ", 0, None, 0, 0);
    row("no whole word in front", "concat cat", "cat", 0, None, Whole, 7);
    row("no whole word behind", "cats cat", "cat", 0, None, Whole, 5);
    row("whole word and the case", "Cat cat", "cat", 0, None, Whole | Case, 4);
    row("words of letters of the page", "catÿ \u0192cat cat1 cat_ cat", "cat", 0, None, Whole, 20);
    row("whole word before signs", "(cat)", "cat", 0, None, Whole, 1);
    row("whole word across lines", "a\r\ncat\r\nb", "cat", 0, None, Whole, 3);
    row("a word before the start counts", "concat", "cat", 3, None, Whole, -1);
    row("a word behind the end counts", "cats", "cat", 0, 3, Whole, -1);
    row("signs have no words", "x++y", "++", 0, None, Whole, 1);
    row("line end", "ab\r\ncd", "b\nc", 0, None, 0, 1);
    row("composed", "é", QString::fromUtf16(u"e\u0301"), 0, None, 0, 0);
    row("not in the page", "?o", "Ж", 0, None, 0, -1);
    row("blanks", "a  b", "  ", 0, None, 0, 1);
    row("zero", QStringLiteral("a\0b"), QStringLiteral("\0b"), 0, None, 0, 1);
    row("a hard case", QString(61'440, u'a'), QString(30'000, u'a') + u'b', 0, None, 0, -1);
}

void TestRichText::find()
{
    QFETCH(QString, text);
    QFETCH(QString, wanted);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(int, options);
    QFETCH(int, position);
    TextBoardRTF buffer;
    buffer.setText(text);
    buffer.setSelStart(1);
    buffer.setSelLength(1);
    const qsizetype found =
        buffer.Find(wanted, start, end < 0 ? std::nullopt : std::optional<qsizetype>(end), options);
    QCOMPARE(found, position);
    QCOMPARE(buffer.SelStart(), position < 0 ? 1 : position);
    if (position >= 0)
        QVERIFY(buffer.SelText().compare(
                    wanted.normalized(QString::NormalizationForm_C).replace("\n", "\r\n"),
                    Qt::CaseInsensitive) == 0);
}

void TestRichText::unreadableFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "missing"
                             << "No such file or directory";
    QTest::newRow("folder") << "folder"
                            << "Is a directory";
    QTest::newRow("pipe") << "pipe"
                          << "Not a regular file";
    QTest::newRow("device") << "/dev/zero"
                            << "Not a regular file";
    QTest::newRow("too large") << "large"
                               << "The file is larger than 256 MB";
    QTest::newRow("no name") << ""
                             << "No such file or directory";
}

void TestRichText::unreadableFiles()
{
    QFETCH(QString, name);
    QVERIFY(QDir(Folder.path()).mkdir("folder"));
    QCOMPARE(mkfifo(QFile::encodeName(Folder.filePath("pipe")).constData(), 0600), 0);
    QFile large(Folder.filePath("large"));
    QVERIFY(large.open(QIODevice::WriteOnly));
    QVERIFY(large.resize((qint64(256) << 20) + 1));
    const QString path = name.isEmpty() ? name : QDir(Folder.path()).filePath(name);
    for (const Kind kind : {Kind::RichText, Kind::PlainText}) {
        TextBoardRTF buffer;
        buffer.setText("before");
        QTEST(buffer.LoadFile(path, kind).value_or("read"), "reason");
        QCOMPARE(buffer.Text(), "");
    }
}

void TestRichText::savingKeepsPermissionsAndLinks()
{
    const QString path = fileOf("old");
    const QString link = Folder.filePath("link");
    constexpr auto Permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser |
                                 QFile::WriteUser | QFile::ReadOther;
    QVERIFY(QFile::setPermissions(path, Permissions));
    QVERIFY(QFile::link("document", link));
    TextBoardRTF buffer;
    buffer.setText("new");
    QCOMPARE(buffer.SaveFile(link, Kind::PlainText), std::nullopt);
    QCOMPARE(contentsOf(path), "new");
    QCOMPARE(QFile::permissions(path), Permissions);
    QCOMPARE(QFile::symLinkTarget(link), path);
    QCOMPARE(files(), QStringList({"document", "link"}));
}

void TestRichText::aSaveThatFailsLeavesTheFileAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isDiskFull");
    QTest::newRow("full disk") << "document" << true;
    QTest::newRow("full disk, new file") << "new" << true;
    QTest::newRow("missing folder") << "missing/document" << false;
    QTest::newRow("file as a folder") << "document/document" << false;
    QTest::newRow("folder") << "folder" << false;
    QTest::newRow("pipe") << "pipe" << false;
    QTest::newRow("no name") << "" << false;
}

void TestRichText::aSaveThatFailsLeavesTheFileAlone()
{
    QFETCH(QString, name);
    QFETCH(bool, isDiskFull);
    const QString path = fileOf("old");
    QVERIFY(QDir(Folder.path()).mkdir("folder"));
    QCOMPARE(mkfifo(QFile::encodeName(Folder.filePath("pipe")).constData(), 0600), 0);
    const QStringList before = files();
    TextBoardRTF buffer;
    buffer.setText(QString(100'000, u'n'));
    for (const Kind kind : {Kind::RichText, Kind::PlainText}) {
        std::optional<FullDisk> fullDisk;
        if (isDiskFull)
            fullDisk.emplace();
        const auto reason = buffer.SaveFile(name.isEmpty() ? name : Folder.filePath(name), kind);
        fullDisk.reset();
        QVERIFY(reason && !reason->isEmpty());
        QCOMPARE(contentsOf(path), "old");
        QCOMPARE(files(), before);
    }
}

QTEST_GUILESS_MAIN(TestRichText)
#include "tst_richtext.moc"
