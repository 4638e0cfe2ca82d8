// Plain stretches, which are most of a document, are found by one table; the rest is read byte by
// byte, without recursion.
#include "textboard/RichTextScanner.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

/// Bytes that stand for themselves.
constexpr std::array<bool, 256> PlainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 1; byte < 0x80; ++byte)
        plain[byte] = std::string_view("\r\n\\{}").find(char(byte)) == std::string_view::npos;
    return plain;
}();

// No functions, whose addresses a search would call for each byte.
constexpr auto isPlain = [](char byte) { return PlainBytes[static_cast<quint8>(byte)]; };
constexpr auto isStructure = [](char byte) { return byte == '\\' || byte == '{' || byte == '}'; };
// Line ends are only for the looks of a document, and zeros only pad it.
constexpr auto isPadding = [](char byte) { return byte == '\r' || byte == '\n' || byte == '\0'; };

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// The value of a hexadecimal digit, or -1.
int hexDigit(char byte)
{
    if (isDigit(byte))
        return byte - '0';
    const char lower = char(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

bool RichTextScanner::begin()
{
    std::string_view source(At, std::size_t(Stop - At));
    if (source.starts_with("\xEF\xBB\xBF"))
        source.remove_prefix(3);
    source.remove_prefix(std::min(source.find_first_not_of(" \t\r\n"), source.size()));
    At = source.data();
    constexpr std::string_view Opening = "{\\rtf";
    return source.starts_with(Opening) &&
           (source.size() == Opening.size() || !isLetter(source[Opening.size()]));
}

RichTextToken RichTextScanner::next()
{
    const char *start = std::find_if_not(At, Stop, isPadding);
    At = std::find_if_not(start, Stop, isPlain);
    if (At != start)
        return {.Kind = RichTextToken::Stretch, .Text = {start, std::size_t(At - start)}};
    if (At == Stop)
        return {};
    switch (const char byte = *At++) {
    case '{':
        return {.Kind = RichTextToken::OpenGroup};
    case '}':
        return {.Kind = RichTextToken::CloseGroup};
    case '\\':
        if (At == Stop)
            return {};
        return isLetter(*At) ? readWord() : readSymbol();
    default:
        return {.Kind = RichTextToken::Byte, .Code = quint8(byte)};
    }
}

/// Reads a control word whose first letter is at hand, and the blank that ends it.
RichTextToken RichTextScanner::readWord()
{
    const char *start = At;
    At = std::find_if_not(At, Stop, isLetter);
    RichTextToken word{.Kind = RichTextToken::Word, .Text = {start, std::size_t(At - start)}};
    const bool isNegative = Stop - At > 1 && *At == '-' && isDigit(At[1]);
    if (isNegative)
        ++At;
    if (At != Stop && isDigit(*At)) {
        constexpr qint64 Largest = std::numeric_limits<int>::max();
        qint64 number = 0;
        for (; At != Stop && isDigit(*At); ++At)
            number = std::min(number * 10 + (*At - '0'), Largest);
        word.Number = int(isNegative ? -number : number);
    }
    if (At != Stop && *At == ' ')
        ++At;
    return word;
}

/// Reads what follows a backslash and is no control word.
RichTextToken RichTextScanner::readSymbol()
{
    const char symbol = *At++;
    if (isStructure(symbol))
        return {.Kind = RichTextToken::Stretch, .Text = {At - 1, 1}};
    if (symbol == '\'' && Stop - At >= 2 && hexDigit(At[0]) >= 0 && hexDigit(At[1]) >= 0) {
        At += 2;
        return {.Kind = RichTextToken::Byte,
                .Code = quint8(hexDigit(At[-2]) << 4 | hexDigit(At[-1]))};
    }
    return {.Kind = RichTextToken::Symbol, .Code = quint8(symbol == '\r' ? '\n' : symbol)};
}

void RichTextScanner::skipBytes(qsizetype count)
{
    At += std::clamp(count, qsizetype(0), qsizetype(Stop - At));
}

void RichTextScanner::skipRestOfGroup()
{
    for (qsizetype depth = 1; (At = std::find_if(At, Stop, isStructure)) != Stop;) {
        if (*At == '}' && --depth == 0)
            return;
        depth += *At == '{';
        if (*At++ != '\\' || At == Stop)
            continue;
        if (!isLetter(*At))
            ++At;
        else if (const RichTextToken word = readWord(); word.Text == "bin")
            skipBytes(word.Number.value_or(0));
    }
}

void RichTextScanner::skipNextGroup()
{
    At = std::find_if_not(At, Stop, isPadding);
    if (At == Stop || *At != '{')
        return;
    ++At;
    skipRestOfGroup();
    skipBytes(1);
}
