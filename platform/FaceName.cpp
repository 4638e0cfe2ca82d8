// Chooses among the names of a face, and takes styles apart.
#include "platform/FaceName.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <iterator>
#include <span>

namespace {

/// The high half of the index counts the named styles of a variable font.
int indexOf(const FcPattern *row)
{
    int index = 0;
    return FcPatternGetInteger(row, FC_INDEX, 0, &index) == FcResultMatch ? index : 0;
}

bool isNamedInstance(const FcPattern *row)
{
    return indexOf(row) >> 16 != 0;
}

const char *fileOf(const FcPattern *row)
{
    FcChar8 *file = nullptr;
    return FcPatternGetString(row, FC_FILE, 0, &file) == FcResultMatch
               ? reinterpret_cast<const char *>(file)
               : "";
}

/// The English strings among those of one kind, or all of them if none is English. Their number is
/// limited; a font has two or three.
class EnglishStrings
{
public:
    EnglishStrings(const FcPattern *row, const char *object, const char *languages)
    {
        for (const bool any : {false, true}) {
            FcChar8 *text = nullptr;
            for (int i = 0; Count < std::size(Strings) &&
                            FcPatternGetString(row, object, i, &text) == FcResultMatch;
                 ++i)
                if (any || isEnglish(row, languages, i))
                    Strings[Count++] = reinterpret_cast<const char *>(text);
            if (Count > 0)
                return;
        }
    }

    std::span<const char *const> all() const { return {Strings.data(), Count}; }

private:
    static bool isEnglish(const FcPattern *row, const char *languages, int place)
    {
        FcChar8 *language = nullptr;
        return FcPatternGetString(row, languages, place, &language) == FcResultMatch &&
               qstrncmp(reinterpret_cast<const char *>(language), "en", 2) == 0;
    }

    std::array<const char *, 8> Strings{};
    std::size_t Count = 0;
};

bool isOneOfFourStyles(const char *style)
{
    constexpr const char *names[] = {"Regular",      "Bold",   "Italic", "Bold Italic", "Oblique",
                                     "Bold Oblique", "Normal", "Roman",  "Book"};
    return std::ranges::any_of(names, [&](const char *name) { return qstricmp(style, name) == 0; });
}

} // namespace

FaceName faceNameOf(const FcPattern *row)
{
    const EnglishStrings families(row, FC_FAMILY, FC_FAMILYLANG);
    const auto names = families.all();
    if (names.empty())
        return {};
    const EnglishStrings own(row, FC_STYLE, FC_STYLELANG);
    const auto styles = own.all();
    const auto styleAt = [&](std::size_t i) { return styles.empty() ? "" : styles[i]; };
    if (isNamedInstance(row))
        return {names.front(), styleAt(0)};
    if (names.size() == styles.size())
        for (std::size_t i = names.size(); i-- > 0;)
            if (isOneOfFourStyles(styles[i]))
                return {names[i], styles[i]};
    return {names.back(), styleAt(styles.size() - 1)};
}

bool isNamedStyleOf(const FcPattern *row, const FcPattern *whole)
{
    return isNamedInstance(row) && indexOf(whole) == (indexOf(row) & 0xFFFF) &&
           qstrcmp(fileOf(row), fileOf(whole)) == 0;
}

const char *typographicFamilyOf(const FcPattern *row)
{
    const EnglishStrings families(row, FC_FAMILY, FC_FAMILYLANG);
    return families.all().empty() ? "" : families.all().front();
}

QString restOfStyle(const char *style)
{
    QStringList rest;
    for (const QString &word : QString::fromUtf8(style).split(u' ', Qt::SkipEmptyParts)) {
        const auto is = [](const QString &text, std::initializer_list<const char *> list) {
            return std::ranges::any_of(list, [&](const char *other) {
                return text.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
            });
        };
        const bool dropped =
            is(word, {"Regular", "Italic", "Oblique", "Normal", "Roman", "Book"}) ||
            (is(word, {"Bold"}) &&
             (rest.isEmpty() || !is(rest.last(), {"Semi", "Demi", "Extra", "Ultra"})));
        if (!dropped)
            rest += word;
    }
    return rest.join(u' ');
}
