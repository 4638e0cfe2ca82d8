// Code page 1252 by its one irregular stretch, 80 to 9F hex, and the fitting of other text to it.
#include "platform/CodePage.h"

#include <QList>
#include <algorithm>
#include <array>

namespace {

constexpr int firstIrregular = 0x80;

/// Codes 80 to 9F hex; all others are the characters of the same number.
constexpr std::array<char16_t, 32> irregular = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Sign
{
    char16_t Character;
    const char16_t *Plain;
};

/// Signs without a decomposition that have a plain one in the page, by their numbers.
constexpr std::array<Sign, 17> Signs = {{
    {0x1680, u" "},      // ogham space mark
    {0x2010, u"-"},      // hyphen
    {0x2011, u"-"},      // non-breaking hyphen
    {0x2012, u"\u2013"}, // figure dash
    {0x2015, u"\u2014"}, // horizontal bar
    {0x201B, u"\u2018"}, // reversed quotation marks
    {0x201F, u"\u201C"},
    {0x2028, u" "}, // line separator, where it is none
    {0x2029, u" "},
    {0x2032, u"'"}, // primes, single and double
    {0x2033, u"\""},
    {0x2034, u"'''"},
    {0x2035, u"`"},
    {0x2043, u"-"}, // hyphen bullet
    {0x2044, u"/"}, // fraction slash
    {0x2212, u"-"}, // minus
    {0x2215, u"/"}, // division slash
}};

/// Joins, parts or turns what stands beside it, and shows nothing: marks of direction, joiners, the
/// mark of byte order, selectors of variants. The soft hyphen is one too, but is in the page.
bool showsNothing(char32_t character)
{
    const bool selectsVariant = character == 0x034F || (character >= 0xFE00 && character <= 0xFE0F);
    return selectsVariant ||
           (QChar::category(character) == QChar::Other_Format && !CodePage::toCode(character));
}

/// What stands for a character in the page: itself, or what is left of its decomposition without
/// the accents. Taken step by step, so that "ǖ" becomes "ü" and not "u". Empty if there is nothing.
QString spelling(char32_t character)
{
    if (const auto code = CodePage::toCode(character))
        return CodePage::toUnicode(*code);
    const auto sign = std::ranges::lower_bound(Signs, character, {}, &Sign::Character);
    if (sign != Signs.end() && sign->Character == character)
        return QString::fromUtf16(sign->Plain);
    QString result;
    for (const char32_t part : QChar::decomposition(character).toUcs4()) {
        if (QChar::isMark(part))
            continue;
        const QString partSpelling = spelling(part);
        if (partSpelling.isEmpty())
            return {};
        result += partSpelling;
    }
    return result;
}

} // namespace

QChar CodePage::toUnicode(quint8 code)
{
    const unsigned place = code - unsigned(firstIrregular);
    return place < irregular.size() ? QChar(irregular[place]) : QChar(code);
}

std::optional<quint8> CodePage::toCode(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<quint8>(character);
    const auto found = std::ranges::find(irregular, character);
    if (found == irregular.end())
        return std::nullopt;
    return static_cast<quint8>(firstIrregular + (found - irregular.begin()));
}

QString CodePage::fromBytes(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::ranges::transform(bytes, text.begin(),
                           [](char byte) { return toUnicode(static_cast<quint8>(byte)); });
    return text;
}

QByteArray CodePage::toBytes(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *to = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        *to++ = static_cast<char>(toCode(text[i].unicode()).value_or('?'));
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    bytes.truncate(to - bytes.data());
    return bytes;
}

QString CodePage::fit(QStringView text)
{
    QString result;
    result.reserve(text.size());
    for (const char32_t character :
         text.toString().normalized(QString::NormalizationForm_C).toUcs4()) {
        if (showsNothing(character) || (QChar::isMark(character) && !result.isEmpty()))
            continue;
        const QString fitting = spelling(character);
        result += fitting.isEmpty() ? QStringLiteral("?") : fitting;
    }
    return result;
}
