// The head of a document, whose tables hold only what the text uses, and its body run by run.
#include "textboard/RichTextWriter.h"

#include "platform/CodePage.h"
#include "textboard/DocumentCodePage.h"

#include <array>
#include <utility>

namespace {

constexpr std::array<const char *, 3> AlignmentWords = {"\\pard\\ql ", "\\pard\\qr ",
                                                        "\\pard\\qc "};

struct StyleWord
{
    CharacterStyle Style;
    const char *Word;
};

constexpr StyleWord StyleWords[] = {{BoldStyle, "\\b"},
                                    {ItalicStyle, "\\i"},
                                    {UnderlineStyle, "\\ul"},
                                    {StrikeThruStyle, "\\strike"}};

/// Codes that stand for themselves in a document.
constexpr std::array<bool, 256> PlainCodes = [] {
    std::array<bool, 256> plain{};
    for (int code = 0x20; code < 0x7F; ++code)
        plain[std::size_t(code)] = code != '\\' && code != '{' && code != '}';
    return plain;
}();

// No function, whose address a search would call for each byte.
constexpr auto isPlain = [](char code) { return PlainCodes[static_cast<quint8>(code)]; };

void appendHex(QByteArray &document, quint8 code)
{
    constexpr const char *Digits = "0123456789abcdef";
    document += "\\'";
    document += Digits[code >> 4];
    document += Digits[code & 0xF];
}

/// The numbers that a document gives to what it uses, in the order of their first use.
struct Numbering
{
    explicit Numbering(int first) : First(first) {}

    int First;
    std::vector<quint32> Used;
    QHash<quint32, int> Numbers;

    int numberOf(quint32 value)
    {
        if (const auto known = Numbers.constFind(value); known != Numbers.constEnd())
            return *known;
        const int number = First + int(Used.size());
        Numbers.insert(value, number);
        Used.push_back(value);
        return number;
    }
};

class Writer
{
public:
    explicit Writer(const RichText &text) : Text(text) {}

    QByteArray document()
    {
        appendHead();
        appendBody();
        return std::move(Document);
    }

private:
    void appendHead();
    void appendFontName(const QString &name);
    void appendBody();
    void appendFormat(const CharacterFormat &format);
    void appendCodes(const char *at, const char *end);

    const RichText &Text;
    Numbering Fonts{0};
    Numbering Colors{1}; // 0 is the automatic colour
    QByteArray Document;
};

void Writer::appendHead()
{
    for (const auto &run : Text.Formats) {
        Fonts.numberOf(run.Of.Font);
        Colors.numberOf(quint32(run.Of.Color));
    }
    Document.reserve(Text.Codes.size() + Text.Codes.size() / 8 + 1024);
    const int page = CodePage::number();
    Document += "{\\rtf1\\ansi\\ansicpg" + QByteArray::number(page) + "\\deff0\r\n{\\fonttbl";
    const int charset = DocumentCodePage::charsetOf(page);
    for (const quint32 place : Fonts.Used) {
        const RichFont &font = Text.font(place);
        Document += "{\\f" + QByteArray::number(Fonts.numberOf(place));
        Document += "\\fnil\\fcharset" + QByteArray::number(font.Symbol ? 2 : charset) + ' ';
        appendFontName(font.Name);
        Document += ";}";
    }
    Document += "}\r\n{\\colortbl ;";
    for (const quint32 color : Colors.Used) {
        Document += "\\red" + QByteArray::number(color & 0xFF);
        Document += "\\green" + QByteArray::number(color >> 8 & 0xFF);
        Document += "\\blue" + QByteArray::number(color >> 16 & 0xFF) + ';';
    }
    Document += "}\r\n";
}

void Writer::appendFontName(const QString &name)
{
    for (const QChar character : name) {
        const auto code = CodePage::toCode(character.unicode());
        if (!code) // a signed number of 16 bits, and what older readers show instead
            Document += "\\u" + QByteArray::number(qint16(character.unicode())) + '?';
        else if (isPlain(char(*code)) && *code != ';')
            Document += char(*code);
        else
            appendHex(Document, *code);
    }
}

void Writer::appendBody()
{
    auto format = Text.Formats.begin();
    auto alignment = Text.Alignments.begin();
    qsizetype formatLeft = 0;
    qsizetype alignmentLeft = 0;
    const char *at = Text.Codes.constData();
    const char *end = at + Text.Codes.size();
    for (qsizetype left = Text.Codes.size() + 1; left > 0;) {
        if (alignmentLeft == 0) {
            Document += AlignmentWords[alignment->Of];
            alignmentLeft = (alignment++)->Length;
        }
        if (formatLeft == 0) {
            appendFormat(format->Of);
            formatLeft = (format++)->Length;
        }
        const qsizetype step = std::min(formatLeft, alignmentLeft);
        const char *stop = at + std::min(step, qsizetype(end - at));
        appendCodes(at, stop);
        at = stop;
        formatLeft -= step;
        alignmentLeft -= step;
        left -= step;
    }
    Document += "\\par\r\n}\r\n";
}

void Writer::appendFormat(const CharacterFormat &format)
{
    Document += "\\plain\\f" + QByteArray::number(Fonts.numberOf(format.Font));
    Document += "\\fs" + QByteArray::number(format.HalfPoints);
    Document += "\\cf" + QByteArray::number(Colors.numberOf(quint32(format.Color)));
    for (const StyleWord &row : StyleWords)
        if (format.Styles & row.Style)
            Document += row.Word;
    Document += ' ';
}

void Writer::appendCodes(const char *at, const char *end)
{
    while (at != end) {
        const char *stop = std::find_if_not(at, end, isPlain);
        Document.append(at, stop - at);
        if (stop == end)
            return;
        switch (*stop) {
        case '\r':
            break;
        case '\n':
            Document += "\\par\r\n";
            break;
        case '\t':
            Document += "\\tab ";
            break;
        case '\\':
        case '{':
        case '}':
            Document += '\\';
            Document += *stop;
            break;
        default:
            appendHex(Document, static_cast<quint8>(*stop));
        }
        at = stop + 1;
    }
}

} // namespace

QByteArray writeRichText(const RichText &text)
{
    return Writer(text).document();
}
