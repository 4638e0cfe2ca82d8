// What fontconfig's rows say, and the choice among them.
#include "platform/FontRows.h"

#include "platform/FontType.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <tuple>

namespace {

QString textOf(const FcPattern *row, const char *object, int place)
{
    FcChar8 *text = nullptr;
    if (FcPatternGetString(row, object, place, &text) != FcResultMatch)
        return {};
    return QString::fromUtf8(reinterpret_cast<const char *>(text));
}

bool hasFormat(const FcPattern *row, const char *format)
{
    FcChar8 *own = nullptr;
    return FcPatternGetString(row, FC_FONTFORMAT, 0, &own) == FcResultMatch &&
           qstrcmp(reinterpret_cast<const char *>(own), format) == 0;
}

/// Which of a family's kinds of file is taken first: 0 is best. CFF and Type 1 are told apart, as
/// a family often comes as both, and the toolkit chooses badly among styles of different makes.
int formatRank(const FcPattern *row)
{
    switch (fontTypeOf(row)) {
    case TRUETYPE_FONTTYPE:
        return 0;
    case DEVICE_FONTTYPE:
        return hasFormat(row, "CFF") ? 1 : 2;
    default:
        return 3;
    }
}

/// The rows of a configuration in a set of our own, which keeps them when the configuration gives
/// its fonts up.
FcFontSetPtr rowsOfConfiguration(FcConfig *config)
{
    FcFontSetPtr own(FcFontSetCreate());
    const FcFontSet *fonts = config ? FcConfigGetFonts(config, FcSetSystem) : nullptr;
    for (int row = 0; fonts && row < fonts->nfont; ++row) {
        FcPatternReference(fonts->fonts[row]);
        FcFontSetAdd(own.get(), fonts->fonts[row]);
    }
    return own;
}

} // namespace

int numberOf(const FcPattern *row, const char *object, int otherwise)
{
    int number = otherwise;
    return FcPatternGetInteger(row, object, 0, &number) == FcResultMatch ? number : otherwise;
}

bool flagOf(const FcPattern *row, const char *object)
{
    FcBool flag = FcFalse;
    return FcPatternGetBool(row, object, 0, &flag) == FcResultMatch && flag == FcTrue;
}

int weightOf(const FcPattern *row)
{
    return numberOf(row, FC_WEIGHT, FC_WEIGHT_REGULAR);
}

bool isSlanted(const FcPattern *row)
{
    return numberOf(row, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
}

bool isScalable(const FcPattern *row)
{
    return flagOf(row, FC_SCALABLE);
}

int fontTypeOf(const FcPattern *row)
{
    if (hasFormat(row, "TrueType"))
        return TRUETYPE_FONTTYPE;
    return isScalable(row) ? DEVICE_FONTTYPE : RASTER_FONTTYPE;
}

FontRows::FontRows()
    : Config(FcInitLoadConfigAndFonts())
    , Set(rowsOfConfiguration(Config.get()))
    , CalledBold(static_cast<std::size_t>(count()))
{
    if (!Config)
        Config.reset(FcConfigCreate());
}

const QStringList &FontRows::configured(const QString &family)
{
    // Running the rules is the dearest part of start-up, and some names are asked for twice.
    const auto known = RulesRun.constFind(family);
    return known == RulesRun.constEnd() ? *RulesRun.insert(family, runRules(family)) : *known;
}

QStringList FontRows::runRules(const QString &family) const
{
    const FcPatternPtr pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, fcBytes(family.toUtf8().constData()));
    FcConfigSubstitute(Config.get(), pattern.get(), FcMatchPattern);
    QStringList families;
    for (int i = 0;; ++i) {
        const QString name = textOf(pattern.get(), FC_FAMILY, i);
        if (name.isEmpty())
            return families;
        families += name;
    }
}

/// How far a face is from the wanted style, least is best. Width weighs most, so that no
/// narrow face stands in for a bold one; the kind of file decides between equal faces.
auto FontRows::distance(int row, bool bold, bool italic) const
{
    const FcPattern *face = Set->fonts[row];
    const int slant = numberOf(face, FC_SLANT, FC_SLANT_ROMAN);
    return std::tuple(std::abs(numberOf(face, FC_WIDTH, FC_WIDTH_NORMAL) - FC_WIDTH_NORMAL),
                      std::abs(slant - (italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN)),
                      !bold && isBold(row),
                      std::abs(weightOf(face) - (bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR)),
                      formatRank(face), row);
}

int FontRows::face(const std::vector<int> &family, bool bold, bool italic) const
{
    if (family.size() == 1)
        return family.front();
    return *std::ranges::min_element(family, {},
                                     [&](int row) { return distance(row, bold, italic); });
}

int FontRows::width(int row) const
{
    return numberOf(Set->fonts[row], FC_WIDTH, FC_WIDTH_NORMAL);
}

bool FontRows::isBold(int row) const
{
    return weightOf(Set->fonts[row]) >= FC_WEIGHT_DEMIBOLD ||
           CalledBold[static_cast<std::size_t>(row)];
}

bool FontRows::sameStyle(int row, int other) const
{
    return weightOf(Set->fonts[row]) == weightOf(Set->fonts[other]) && width(row) == width(other) &&
           isSlanted(Set->fonts[row]) == isSlanted(Set->fonts[other]);
}

std::array<std::optional<int>, 4> FontRows::fourStyles(const std::vector<int> &family) const
{
    const int regular = face(family, false, false);
    std::array<std::optional<int>, 4> styles{regular};
    for (const std::size_t style : {1, 2, 3}) {
        const bool bold = style & 1, italic = style & 2;
        for (const int row : family)
            if (row != regular && isSlanted(Set->fonts[row]) == italic &&
                width(row) == width(regular) && isBold(row) == bold &&
                (!styles[style] ||
                 distance(row, bold, italic) < distance(*styles[style], bold, italic)))
                styles[style] = row;
    }
    return styles;
}

std::vector<int> FontRows::sizes(const std::vector<int> &family, int face) const
{
    if (isScalable(Set->fonts[face]))
        return {face};
    std::vector<int> rows;
    std::ranges::copy_if(family, std::back_inserter(rows), [&](int row) {
        return !isScalable(Set->fonts[row]) && sameStyle(row, face);
    });
    return rows;
}

const FcLangSet *FontRows::languages(int row) const
{
    FcLangSet *languages = nullptr;
    FcPatternGetLangSet(Set->fonts[row], FC_LANG, 0, &languages);
    return languages;
}

bool FontRows::speaks(int row, const FcChar8 *language) const
{
    const FcLangSet *own = languages(row);
    return own && FcLangSetHasLang(own, language) != FcLangDifferentLang;
}
