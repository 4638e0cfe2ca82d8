// Makes the rows that the toolkit sees, and lets it read them.
#include "platform/ToolkitFonts.h"

#include "platform/FaceCheck.h"
#include "platform/FontRows.h"
#include "platform/SfntWriter.h"
#include "platform/SymbolEncoding.h"

#include <QFile>
#include <QFontDatabase>
#include <algorithm>
#include <optional>
#include <utility>

namespace {

const QString missingFamily = QStringLiteral("Zendova missing glyphs");

/// What the toolkit calls a family of the catalog. No user's rule knows the name, so none replaces
/// it, and it has no brackets, in which the toolkit would look for the maker's name.
QString toolkitName(int index)
{
    return QStringLiteral("Zendova family %1").arg(index);
}

/// Adds the font and gives the toolkit's number of it: below 0 when the file cannot be read or is
/// not what it says.
int addSymbolFont(const QString &fileName, int face, const QByteArray &names)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const auto font = symbolFontAsUnicode(file.readAll(), face, names);
    return font ? QFontDatabase::addApplicationFontFromData(*font) : -1;
}

/// The row of a face under our names for family and style, without weight and slant.
FcPatternPtr rowForToolkit(const FcPattern *face, const QString &ownName, const QString &style,
                           const QString &family)
{
    FcPatternPtr own(FcPatternDuplicate(face));
    // The toolkit groups by maker, and weighs width and weight: they are of no use within one
    // family, and lead to a wrong face. Which languages a face is for does not count where no
    // other font may help out, and would be most of the work of reading the row.
    for (const char *object :
         {FC_FAMILY, FC_FAMILYLANG, FC_STYLE, FC_STYLELANG, FC_FULLNAME, FC_FULLNAMELANG,
          FC_FOUNDRY, FC_WEIGHT, FC_WIDTH, FC_SLANT, FC_LANG, FC_CHARSET, FC_CAPABILITY})
        FcPatternDel(own.get(), object);
    // None rather than no set of characters: the toolkit looks into it for every font that may help
    // out, and takes for granted that it is there.
    FcCharSet *none = FcCharSetCreate();
    FcPatternAddCharSet(own.get(), FC_CHARSET, none);
    FcCharSetDestroy(none);
    FcPatternAddString(own.get(), FC_FAMILY, fcBytes(ownName.toUtf8().constData()));
    FcPatternAddString(own.get(), FC_STYLE, fcBytes(style.toUtf8().constData()));
    FcPatternAddInteger(own.get(), FC_WIDTH, FC_WIDTH_NORMAL);
    // Behind our name the user's rules for the drawing of a family (hints, smooth edges) still know
    // its own.
    FcPatternAddString(own.get(), FC_FAMILY, fcBytes(family.toUtf8().constData()));
    return own;
}

} // namespace

QStringList ToolkitFonts::namesOf(int family)
{
    return {toolkitName(family), missingFamily};
}

void ToolkitFonts::give(int family, const QString &name, const std::vector<int> &rows)
{
    Given.insert(family, {});
    const auto styles = Rows.fourStyles(rows);
    for (std::size_t style = 0; style < styles.size(); ++style) {
        if (!styles[style])
            continue;
        // A family without a regular face has its bold one in that place, which stays bold: else
        // the toolkit would make it bolder still.
        const bool bold = style & 1 || Rows.isBold(*styles[style]);
        const bool italic = style & 2 || isSlanted(Rows[*styles[style]]);
        for (const int row : Rows.sizes(rows, *styles[style]))
            addFace(row, family, name, bold, italic);
    }
    letToolkitReadAnew();
}

void ToolkitFonts::takeBack(const std::vector<int> &families)
{
    FcFontSet *fonts = FcConfigGetFonts(FcConfigGetCurrent(), FcSetSystem);
    for (const int family : families) {
        const Faces gone = Given.take(family);
        for (const int font : gone.fonts)
            QFontDatabase::removeApplicationFont(font);
        for (FcPattern *row : gone.rows) {
            fonts->nfont = static_cast<int>(
                std::remove(fonts->fonts, fonts->fonts + fonts->nfont, row) - fonts->fonts);
            FcPatternDestroy(row);
        }
    }
    letToolkitReadAnew();
}

/// The toolkit reads its configuration anew after a font of the application is taken away, and only
/// then. Ours is one that is always wanted.
void ToolkitFonts::letToolkitReadAnew()
{
    const QByteArray missing = sfnt::missingGlyphFont(missingFamily);
    if (MissingFont < 0)
        MissingFont = QFontDatabase::addApplicationFontFromData(missing);
    QFontDatabase::removeApplicationFont(MissingFont);
    MissingFont = QFontDatabase::addApplicationFontFromData(missing);
}

void ToolkitFonts::addFace(int row, int family, const QString &name, bool bold, bool italic)
{
    const FcPattern *face = Rows[row];
    FcFontSet *fonts = FcConfigGetFonts(FcConfigGetCurrent(), FcSetSystem);
    FcChar8 *path = nullptr;
    if (!fonts || FcPatternGetString(face, FC_FILE, 0, &path) != FcResultMatch)
        return;
    const auto *encoded = reinterpret_cast<const char *>(path);
    const QString ownName = toolkitName(family);
    const int place = numberOf(face, FC_INDEX, 0);
    const QString style = bold     ? italic ? QStringLiteral("Bold Italic") : QStringLiteral("Bold")
                              : italic ? QStringLiteral("Italic")
                                   : QStringLiteral("Regular");
    const auto sizes = isScalable(face) ? std::vector<int>() : drawableSizes(encoded, place);
    if (isScalable(face) ? !hasDrawableOutlines(encoded, place) : sizes.empty())
        return;
    Faces &given = Given[family];
    const int symbols = flagOf(face, FC_SYMBOL)
                            ? addSymbolFont(QFile::decodeName(encoded), place & 0xFFFF,
                                            sfnt::writeNames(ownName, style))
                            : -1;
    if (symbols >= 0) {
        given.fonts.push_back(symbols);
        return;
    }
    FcPatternPtr own = rowForToolkit(face, ownName, style, name);
    FcPatternAddInteger(own.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(own.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    // The sizes that fontconfig tells are those that the font's properties claim.
    const auto hand = [&](FcPatternPtr added) {
        if (FcFontSetAdd(fonts, added.get()))
            given.rows.push_back(added.release());
    };
    for (const int size : sizes) {
        FcPatternPtr sized(FcPatternDuplicate(own.get()));
        FcPatternDel(sized.get(), FC_PIXEL_SIZE);
        FcPatternAddDouble(sized.get(), FC_PIXEL_SIZE, size);
        hand(std::move(sized));
    }
    if (sizes.empty())
        hand(std::move(own));
}
