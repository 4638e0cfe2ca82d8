// The buffer's files, its selection with the attributes, and the search. The formats of documents
// are the reader's and the writer's.
#include "textboard/TextBoardRTF.h"

#include "platform/CodePage.h"
#include "platform/RegularFile.h"
#include "textboard/RichTextReader.h"
#include "textboard/RichTextWriter.h"

#include <array>
#include <cmath>
#include <numeric>

namespace {

constexpr qint64 MaxFileSize = qint64(256) << 20;

/// Every line end as CR LF.
QByteArray withLineEnds(QByteArrayView bytes)
{
    QByteArray result;
    result.reserve(bytes.size() + bytes.size() / 16);
    const auto isEnd = [](char byte) { return byte == '\r' || byte == '\n'; };
    for (auto at = bytes.begin(); at != bytes.end();) {
        const auto stop = std::find_if(at, bytes.end(), isEnd);
        result.append(at, stop - at);
        if (stop == bytes.end())
            break;
        result += "\r\n";
        at = stop + 1;
        if (*stop == '\r' && at != bytes.end() && *at == '\n')
            ++at;
    }
    return result;
}

QByteArray codesOf(const QString &text)
{
    // More question marks than before stand for what isn't in the page and has to be fitted.
    const QByteArray codes = CodePage::toBytes(text);
    const bool isInPage = codes.count('?') == text.count(u'?');
    return withLineEnds(isInPage ? codes : CodePage::toBytes(CodePage::fit(text)));
}

/// The nearest place that is in the text and not within a line end.
qsizetype snapped(const QByteArray &codes, qsizetype place)
{
    place = std::clamp(place, qsizetype(0), codes.size());
    return place < codes.size() && codes[place] == '\n' ? place - 1 : place;
}

RichText uniformText(QByteArray codes)
{
    RichText text;
    text.Codes = std::move(codes);
    const CharacterFormat format{.Font = text.fontPlace(DefaultFontName.toString(), false)};
    text.Formats.append(text.Codes.size() + 1, format);
    text.Alignments.append(text.Codes.size() + 1, 0);
    return text;
}

// Search

bool isInPage(QStringView text)
{
    return std::ranges::all_of(
        text, [](QChar character) { return CodePage::toCode(character.unicode()).has_value(); });
}

using CodeTable = std::array<char, 256>;

/// What stands for a letter in either case, so that a final sigma is a sigma too. The dotted and
/// the dotless i are one: which of them is the other case of an I depends on the language of the
/// text.
char32_t foldedCase(QChar character)
{
    constexpr char16_t CapitalDotted = 0x130, SmallDotless = 0x131;
    if (character == CapitalDotted || character == SmallDotless)
        return U'i';
    return character.toCaseFolded().unicode();
}

/// Each code's folded case, if that is in the code page; otherwise the code itself.
CodeTable foldedCases()
{
    CodeTable table;
    for (int code = 0; code < 256; ++code) {
        const char32_t folded = foldedCase(CodePage::toUnicode(quint8(code)));
        table[std::size_t(code)] = char(CodePage::toCode(folded).value_or(quint8(code)));
    }
    return table;
}

CodeTable asTheyAre()
{
    CodeTable table;
    std::iota(table.begin(), table.end(), char(0));
    return table;
}

bool isWordCharacter(char code)
{
    const QChar character = CodePage::toUnicode(static_cast<quint8>(code));
    return character.isLetter() || character.isMark() || character.isDigit() || character == u'_';
}

/// A word goes on across this place of the text.
bool isInsideWord(const QByteArray &codes, qsizetype place)
{
    return place > 0 && place < codes.size() && isWordCharacter(codes[place - 1]) &&
           isWordCharacter(codes[place]);
}

/// For every beginning of the pattern the length of the longest shorter beginning that it ends in,
/// by which a search never goes back in the text (Knuth, Morris and Pratt).
std::vector<qsizetype> borders(const QByteArray &pattern)
{
    std::vector<qsizetype> lengths(std::size_t(pattern.size()) + 1, 0);
    qsizetype border = 0;
    for (qsizetype i = 1; i < pattern.size(); ++i) {
        while (border > 0 && pattern[i] != pattern[border])
            border = lengths[std::size_t(border)];
        border += pattern[i] == pattern[border];
        lengths[std::size_t(i) + 1] = border;
    }
    return lengths;
}

} // namespace

TextBoardRTF::TextBoardRTF(std::function<bool(const QString &)> isSymbolFont)
    : IsSymbolFont(std::move(isSymbolFont)), Contents(uniformText({}))
{
}

// Files

std::optional<QString> TextBoardRTF::LoadFile(const QString &path, FileKind kind)
{
    setContents(uniformText({}));
    const RegularFile::Reading file = RegularFile::read(path, MaxFileSize);
    if (file.Fault != RegularFile::Fault::None)
        return file.Reason;
    if (kind == FileKind::PlainText) {
        setContents(uniformText(withLineEnds(file.Bytes)));
        return std::nullopt;
    }
    auto contents = readRichText(file.Bytes);
    if (!contents)
        return QStringLiteral("Not valid rich text");
    setContents(std::move(*contents));
    return std::nullopt;
}

std::optional<QString> TextBoardRTF::SaveFile(const QString &path, FileKind kind) const
{
    return RegularFile::write(path, kind == FileKind::PlainText ? Contents.Codes : TextRTF());
}

// Text and selection

QString TextBoardRTF::Text() const
{
    return CodePage::fromBytes(Contents.Codes);
}

void TextBoardRTF::setText(const QString &text)
{
    setContents(uniformText(codesOf(text)));
}

void TextBoardRTF::Truncate(qsizetype length)
{
    RichText contents = std::exchange(Contents, {});
    length = snapped(contents.Codes, length);
    contents.Codes.truncate(length);
    contents.Codes.squeeze();
    contents.Formats.truncate(length + 1);
    contents.Alignments.truncate(length + 1);
    setContents(std::move(contents));
}

QByteArray TextBoardRTF::TextRTF() const
{
    return writeRichText(Contents);
}

void TextBoardRTF::setContents(RichText contents)
{
    Contents = std::move(contents);
    Start = 0;
    Length = 0;
}

void TextBoardRTF::setSelStart(qsizetype start)
{
    Start = snapped(Contents.Codes, start);
    Length = 0;
}

void TextBoardRTF::setSelLength(qsizetype length)
{
    length = std::clamp(length, qsizetype(0), TextLength() - Start);
    Length = snapped(Contents.Codes, Start + length) - Start;
}

QString TextBoardRTF::SelText() const
{
    return CodePage::fromBytes(QByteArrayView(Contents.Codes).sliced(Start, Length));
}

// Attributes of the selection

template<class Property>
auto TextBoardRTF::common(Property property) const
{
    const bool isAtEnd = Start > 0 && Start == TextLength();
    const qsizetype from = isAtEnd ? Start - 1 : Start;
    return Contents.Formats.common(from, from + std::max(Length, qsizetype(1)), property);
}

template<class Change>
void TextBoardRTF::changeFormats(Change change)
{
    // Who changes everything changes the end as well.
    const bool isWhole = Start == 0 && Length == TextLength();
    Contents.Formats.change(Start, Start + Length + isWhole, change);
}

std::optional<QString> TextBoardRTF::SelFontName() const
{
    const auto place = common([](const CharacterFormat &format) { return format.Font; });
    return place ? std::optional(Contents.font(*place).Name) : std::nullopt;
}

void TextBoardRTF::setSelFontName(const QString &name)
{
    const quint32 place = Contents.fontPlace(name, IsSymbolFont && IsSymbolFont(name));
    changeFormats([place](CharacterFormat &format) { format.Font = place; });
}

std::optional<double> TextBoardRTF::SelFontSize() const
{
    const auto size = common([](const CharacterFormat &format) { return format.HalfPoints; });
    return size ? std::optional(*size / 2.0) : std::nullopt;
}

void TextBoardRTF::setSelFontSize(double points)
{
    if (!(points > 0))
        return;
    const auto size = quint16(std::clamp(std::nearbyint(points * 2), 1.0, double(MaxHalfPoints)));
    changeFormats([size](CharacterFormat &format) { format.HalfPoints = size; });
}

std::optional<ColorValue> TextBoardRTF::SelColor() const
{
    return common([](const CharacterFormat &format) { return format.Color; });
}

void TextBoardRTF::setSelColor(ColorValue color)
{
    changeFormats([color](CharacterFormat &format) { format.Color = color & 0xFFFFFF; });
}

std::optional<bool> TextBoardRTF::style(CharacterStyle bit) const
{
    return common([bit](const CharacterFormat &format) { return (format.Styles & bit) != 0; });
}

void TextBoardRTF::setStyle(CharacterStyle bit, bool on)
{
    changeFormats([bit, on](CharacterFormat &format) {
        format.Styles = quint8(on ? format.Styles | bit : format.Styles & ~bit);
    });
}

std::optional<int> TextBoardRTF::SelAlignment() const
{
    return Contents.Alignments.common(Start, Start + std::max(Length, qsizetype(1)),
                                      [](ParagraphAlignment alignment) { return int(alignment); });
}

void TextBoardRTF::setSelAlignment(int alignment)
{
    if (alignment < 0 || alignment > 2)
        return;
    const QByteArrayView codes = Contents.Codes;
    const qsizetype from = codes.first(Start).lastIndexOf('\n') + 1;
    // The last place that is selected: of a selection up to the text's end that is the end.
    const bool isToEnd = Start + Length == codes.size();
    const qsizetype last = Length == 0 || isToEnd ? Start + Length : Start + Length - 1;
    const qsizetype lineEnd = codes.indexOf('\n', last);
    const qsizetype to = lineEnd < 0 ? codes.size() + 1 : lineEnd + 1;
    Contents.Alignments.change(from, to, [alignment](ParagraphAlignment &value) {
        value = ParagraphAlignment(alignment);
    });
}

// Search

qsizetype TextBoardRTF::Find(const QString &text, qsizetype start, std::optional<qsizetype> end,
                             int options)
{
    const QString composed = isInPage(text) ? text : text.normalized(QString::NormalizationForm_C);
    if (!isInPage(composed))
        return -1; // it would match the question mark that stands for it
    const CodeTable form = options & MatchCase ? asTheyAre() : foldedCases();
    const auto inForm = [&form](char code) { return form[static_cast<quint8>(code)]; };

    const QByteArray &codes = Contents.Codes;
    QByteArray inItsForm = withLineEnds(CodePage::toBytes(composed));
    std::ranges::transform(inItsForm, inItsForm.begin(), inForm);
    if (inItsForm.isEmpty())
        return -1;
    const QByteArray pattern = inItsForm;
    const std::vector<qsizetype> shorter = borders(pattern);
    const qsizetype stop = std::min(end.value_or(codes.size()), codes.size());
    qsizetype matching = 0;
    for (qsizetype at = std::max(start, qsizetype(0)); at < stop; ++at) {
        const char code = inForm(codes[at]);
        while (matching > 0 && pattern[matching] != code)
            matching = shorter[std::size_t(matching)];
        matching += pattern[matching] == code;
        if (matching < pattern.size())
            continue;
        const qsizetype found = at + 1 - matching;
        if (!(options & WholeWord) ||
            (!isInsideWord(codes, found) && !isInsideWord(codes, at + 1))) {
            Start = found;
            Length = matching;
            return found;
        }
        matching = shorter[std::size_t(matching)];
    }
    return -1;
}
