// The Western page by its one irregular stretch, the others by the decoders of the toolkit, and the
// fitting of other text to the page in force.
#include "platform/CodePage.h"

#include <QList>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <numeric>

namespace {

constexpr int FirstOwn = 0x80; // the codes below are those of ASCII in all pages
constexpr int FirstPrinting = 0xA0;

/// Codes 80 to 9F hex of the Western page; all others are the characters of the same number.
constexpr std::array<char16_t, FirstPrinting - FirstOwn> Irregular = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Page
{
    int Number = CodePage::Western;
    std::array<char16_t, 256> Characters{}; ///< by code
    std::array<quint8, 256> Codes{};        ///< sorted by their characters

    constexpr void sortCodes()
    {
        std::iota(Codes.begin(), Codes.end(), quint8(0));
        std::ranges::sort(Codes, {}, [this](quint8 code) { return Characters[code]; });
    }
};

constexpr Page westernPage()
{
    Page page;
    std::iota(page.Characters.begin(), page.Characters.end(), char16_t(0));
    std::ranges::copy(Irregular, page.Characters.begin() + FirstOwn);
    page.sortCodes();
    return page;
}

constexpr Page WesternPage = westernPage();
constinit Page Current = WesternPage;

/// Decoders give the replacement character for what a page leaves undefined, or something of the
/// private area.
constexpr bool isDefined(char16_t character)
{
    return character != 0xFFFD && !(character >= 0xE000 && character < 0xF900);
}

/// Undefined codes from A0 hex on take the control characters that no other code has. The page with
/// the fewest letters, 874, needs all of them but U+0085, which would end a line.
void fillGaps(Page &page)
{
    char16_t next = FirstOwn;
    const auto isTaken = [&page](char16_t control) {
        return control == 0x85 ||
               std::ranges::find(page.Characters, control) != page.Characters.end();
    };
    for (char16_t &character : page.Characters) {
        if (isDefined(character))
            continue;
        while (isTaken(next))
            ++next;
        character = next;
    }
}

std::optional<Page> decodedPage(int number)
{
    QStringDecoder decoder(QByteArray("windows-" + QByteArray::number(number)).constData());
    if (!decoder.isValid())
        return std::nullopt;
    Page page = WesternPage;
    page.Number = number;
    for (std::size_t code = FirstOwn; code < page.Characters.size(); ++code) {
        const char byte = static_cast<char>(code);
        const QString character = decoder.decode(QByteArrayView(&byte, 1));
        page.Characters[code] = character.size() == 1 ? character.front().unicode() : 0xFFFD;
    }
    fillGaps(page);
    page.sortCodes();
    return page;
}

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
/// mark of byte order, selectors of variants, the soft hyphen where the page lacks it.
bool showsNothing(char32_t character)
{
    const bool selectsVariant = character == 0x034F || (character >= 0xFE00 && character <= 0xFE0F);
    return selectsVariant ||
           (QChar::category(character) == QChar::Other_Format && !CodePage::toCode(character));
}

QString spelling(char32_t character);

/// A letter with those of its accents that it can have in the page: composed with them, or in front
/// of those that are characters of their own there.
QString accented(const QList<uint> &letterAndMarks)
{
    QString letter = spelling(letterAndMarks.front());
    QString marks;
    for (const char32_t mark : letterAndMarks.sliced(1)) {
        const QString text = QString::fromUcs4(&mark, 1);
        const QString composed = (letter + text).normalized(QString::NormalizationForm_C);
        if (composed.size() == 1 && CodePage::toCode(composed.front().unicode()))
            letter = composed;
        else if (CodePage::toCode(mark))
            marks += text;
    }
    return letter.isEmpty() ? QString() : letter + marks;
}

/// What stands for a character in the page: itself, its letter with fewer accents, or the plain
/// characters that it is made of. Empty if there is nothing.
QString spelling(char32_t character)
{
    if (const auto code = CodePage::toCode(character))
        return CodePage::toUnicode(*code);
    const auto sign = std::ranges::lower_bound(Signs, character, {}, &Sign::Character);
    if (sign != Signs.end() && sign->Character == character)
        return QString::fromUtf16(sign->Plain);
    const QList<uint> letter =
        QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_D).toUcs4();
    if (letter.size() > 1 && std::all_of(letter.begin() + 1, letter.end(),
                                         [](char32_t part) { return QChar::isMark(part); }))
        return accented(letter);
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

int CodePage::number()
{
    return Current.Number;
}

bool CodePage::use(int page)
{
    if (page == Western) {
        Current = WesternPage;
        return true;
    }
    if (page != 874 && (page < 1250 || page > 1258))
        return false;
    const std::optional<Page> decoded = decodedPage(page);
    if (decoded)
        Current = *decoded;
    return decoded.has_value();
}

QChar CodePage::toUnicode(quint8 code)
{
    return Current.Characters[code];
}

std::optional<quint8> CodePage::toCode(char32_t character)
{
    if (character < FirstOwn ||
        (character < Current.Characters.size() && Current.Characters[character] == character))
        return static_cast<quint8>(character);
    const auto characterOf = [](quint8 code) -> char32_t { return Current.Characters[code]; };
    const auto found = std::ranges::lower_bound(Current.Codes, character, {}, characterOf);
    if (found == Current.Codes.end() || characterOf(*found) != character)
        return std::nullopt;
    return *found;
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
    if (std::ranges::all_of(text, [](QChar c) { return toCode(c.unicode()).has_value(); }))
        return text.toString();
    QString result;
    result.reserve(text.size());
    for (const char32_t character :
         text.toString().normalized(QString::NormalizationForm_C).toUcs4()) {
        const bool isLostMark = QChar::isMark(character) && !toCode(character);
        if (showsNothing(character) || (isLostMark && !result.isEmpty()))
            continue;
        const QString fitting = spelling(character);
        result += fitting.isEmpty() ? QStringLiteral("?") : fitting;
    }
    return result;
}
