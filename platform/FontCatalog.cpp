// Reads fontconfig's rows (one a face), groups them by families of four styles, picks the few that
// the toolkit is to know from the start, and adds others to the toolkit when they are asked for:
// as rows of fontconfig under names of our own, so that the toolkit can neither mix up the faces of
// two families nor replace one by another.
#include "platform/FontCatalog.h"

#include "platform/FaceCheck.h"
#include "platform/FaceName.h"
#include "platform/SfntWriter.h"
#include "platform/SymbolEncoding.h"

#include <QFile>
#include <QFontDatabase>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <iterator>
#include <tuple>
#include <unordered_set>

namespace {

FontCatalog *currentCatalog = nullptr;

template<typename T, void (*destroy)(T *)>
struct Destroyer
{
    void operator()(T *object) const { destroy(object); }
};
using Config = std::unique_ptr<FcConfig, Destroyer<FcConfig, FcConfigDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyer<FcFontSet, FcFontSetDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPattern, FcPatternDestroy>>;
using LangSet = std::unique_ptr<FcLangSet, Destroyer<FcLangSet, FcLangSetDestroy>>;
using StrSet = std::unique_ptr<FcStrSet, Destroyer<FcStrSet, FcStrSetDestroy>>;
using StrList = std::unique_ptr<FcStrList, Destroyer<FcStrList, FcStrListDone>>;

/// Languages, one for each script that a file name may be written in; the last is that of emoji.
constexpr auto scriptLanguages = std::to_array<const char *>(
    {"en",    "vi",    "ru", "el", "ar", "he", "th", "hi",      "bn", "pa",
     "gu",    "or",    "ta", "te", "kn", "ml", "si", "my",      "lo", "km",
     "zh-cn", "zh-tw", "ja", "ko", "ka", "hy", "am", "und-zsye"});

const QString missingFamily = QStringLiteral("Zendova missing glyphs");

/// What the toolkit calls a family of the catalog. No user's rule knows the name, so none replaces
/// it, and it has no brackets, in which the toolkit would look for the maker's name.
QString toolkitName(int index)
{
    return QStringLiteral("Zendova family %1").arg(index);
}

constexpr auto genericFamilies = std::to_array<const char *>({"sans-serif", "serif", "monospace"});

const FcChar8 *bytes(const char *text)
{
    return reinterpret_cast<const FcChar8 *>(text);
}

QString textOf(const FcPattern *row, const char *object, int place = 0)
{
    FcChar8 *text = nullptr;
    if (FcPatternGetString(row, object, place, &text) != FcResultMatch)
        return {};
    return QString::fromUtf8(reinterpret_cast<const char *>(text));
}

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

bool hasFormat(const FcPattern *row, const char *format)
{
    FcChar8 *own = nullptr;
    return FcPatternGetString(row, FC_FONTFORMAT, 0, &own) == FcResultMatch &&
           qstrcmp(reinterpret_cast<const char *>(own), format) == 0;
}

int fontTypeOf(const FcPattern *row)
{
    if (hasFormat(row, "TrueType"))
        return TRUETYPE_FONTTYPE;
    return isScalable(row) ? DEVICE_FONTTYPE : RASTER_FONTTYPE;
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

QString familyNameOf(const FcPattern *row)
{
    return QString::fromUtf8(faceNameOf(row).family);
}

QString keyOf(const QString &family)
{
    return family.toCaseFolded();
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

/// The rows of a configuration in a set of our own, which keeps them when the configuration gives
/// its fonts up.
FontSet rowsOfConfiguration(FcConfig *config)
{
    FontSet own(FcFontSetCreate());
    const FcFontSet *fonts = config ? FcConfigGetFonts(config, FcSetSystem) : nullptr;
    for (int row = 0; fonts && row < fonts->nfont; ++row) {
        FcPatternReference(fonts->fonts[row]);
        FcFontSetAdd(own.get(), fonts->fonts[row]);
    }
    return own;
}

} // namespace

/// The user's configuration and all its rows, which lie in fontconfig's mapped cache files. The
/// configuration becomes the toolkit's lean one in the end.
struct FontCatalog::Rows
{
    Config config{FcInitLoadConfigAndFonts()};
    FontSet set = rowsOfConfiguration(config.get());

    /// What the toolkit was given of a family.
    struct Loaded
    {
        std::vector<FcPattern *> faces; ///< rows of the lean configuration
        std::vector<int> fonts;         ///< the toolkit's numbers of those that it has as data
    };
    QHash<int, Loaded> loaded; ///< by the family's index

    std::vector<bool> calledBold = std::vector<bool>(static_cast<std::size_t>(count()));
    QHash<QString, QStringList> rulesRun;

    int count() const { return set->nfont; }
    FcPattern *operator[](int row) const { return set->fonts[row]; }

    /// The families that the configuration puts in the place of one, best first, the name itself
    /// included.
    const QStringList &configured(const QString &family)
    {
        // Running the rules is the dearest part of start-up, and some names are asked for twice.
        const auto known = rulesRun.constFind(family);
        return known == rulesRun.constEnd() ? *rulesRun.insert(family, runRules(family)) : *known;
    }

    QStringList runRules(const QString &family) const
    {
        const Pattern pattern(FcPatternCreate());
        FcPatternAddString(pattern.get(), FC_FAMILY, bytes(family.toUtf8().constData()));
        FcConfigSubstitute(config.get(), pattern.get(), FcMatchPattern);
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
    auto distance(int row, bool bold, bool italic) const
    {
        const FcPattern *face = set->fonts[row];
        const int slant = numberOf(face, FC_SLANT, FC_SLANT_ROMAN);
        return std::tuple(std::abs(numberOf(face, FC_WIDTH, FC_WIDTH_NORMAL) - FC_WIDTH_NORMAL),
                          std::abs(slant - (italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN)),
                          !bold && isBold(row),
                          std::abs(weightOf(face) - (bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR)),
                          formatRank(face), row);
    }

    /// The face that a style resolves to. `family` must not be empty.
    int face(const std::vector<int> &family, bool bold, bool italic) const
    {
        if (family.size() == 1)
            return family.front();
        return *std::ranges::min_element(family, {},
                                         [&](int row) { return distance(row, bold, italic); });
    }

    int weight(int row) const { return weightOf(set->fonts[row]); }
    int width(int row) const { return numberOf(set->fonts[row], FC_WIDTH, FC_WIDTH_NORMAL); }
    bool slanted(int row) const { return isSlanted(set->fonts[row]); }

    /// The bold face of a light family may be a medium.
    bool isBold(int row) const
    {
        return weight(row) >= FC_WEIGHT_DEMIBOLD || calledBold[static_cast<std::size_t>(row)];
    }

    /// What the faces of two files may have in common: they differ in kind, or in size if bitmaps.
    bool sameStyle(int row, int other) const
    {
        return weight(row) == weight(other) && width(row) == width(other) &&
               slanted(row) == slanted(other);
    }

    /// The faces of the four styles of a family: regular, bold, italic, bold italic. No number
    /// where it lacks one; regular is always there. `family` must not be empty.
    std::array<std::optional<int>, 4> fourStyles(const std::vector<int> &family) const
    {
        const int regular = face(family, false, false);
        std::array<std::optional<int>, 4> styles{regular};
        for (const std::size_t style : {1, 2, 3}) {
            const bool bold = style & 1, italic = style & 2;
            for (const int row : family)
                if (row != regular && slanted(row) == italic && width(row) == width(regular) &&
                    isBold(row) == bold &&
                    (!styles[style] ||
                     distance(row, bold, italic) < distance(*styles[style], bold, italic)))
                    styles[style] = row;
        }
        return styles;
    }

    /// The face, and where it is a bitmap its other sizes too.
    std::vector<int> sizes(const std::vector<int> &family, int face) const
    {
        if (isScalable(set->fonts[face]))
            return {face};
        std::vector<int> rows;
        std::ranges::copy_if(family, std::back_inserter(rows), [&](int row) {
            return !isScalable(set->fonts[row]) && sameStyle(row, face);
        });
        return rows;
    }

    const FcLangSet *languages(int row) const
    {
        FcLangSet *languages = nullptr;
        FcPatternGetLangSet(set->fonts[row], FC_LANG, 0, &languages);
        return languages;
    }

    /// The family is written for this language or for another territory's kind of it.
    bool speaks(int row, const FcChar8 *language) const
    {
        const FcLangSet *own = languages(row);
        return own && FcLangSetHasLang(own, language) != FcLangDifferentLang;
    }
};

FontCatalog::FontCatalog() : Table(std::make_unique<Rows>())
{
    Q_ASSERT(!currentCatalog);
    currentCatalog = this;
    readFamilies();
    splitFamilies();
    addReplacedFamilies();
    useLeanConfiguration();
}

FontCatalog::~FontCatalog()
{
    currentCatalog = nullptr;
}

FontCatalog &FontCatalog::current()
{
    Q_ASSERT(currentCatalog);
    return *currentCatalog;
}

void FontCatalog::readFamilies()
{
    Rows &rows = *Table;
    IndexByName.reserve(rows.count());
    const FcPattern *whole = nullptr;
    for (int row = 0; row < rows.count(); ++row) {
        // A variable font comes once as a whole, which is this, and once for each named style.
        if (flagOf(rows[row], FC_VARIABLE))
            continue;
        FaceName face = faceNameOf(rows[row]);
        // fontconfig leaves out one or the other family of some named styles. They come right after
        // the font as it stands, which has both.
        if (whole && isNamedStyleOf(rows[row], whole))
            face.family = typographicFamilyOf(whole);
        else
            whole = rows[row];
        const QString name = QString::fromUtf8(face.family);
        if (name.isEmpty())
            continue;
        rows.calledBold[static_cast<std::size_t>(row)] = qstrnicmp(face.style, "Bold", 4) == 0;
        const auto index = static_cast<std::size_t>(entryFor(name));
        Entries[index].rows.push_back(row);
        Families[index].fontType = std::max(Families[index].fontType, fontTypeOf(rows[row]));
    }
}

/// The place of a family, a new one at the end if it is not there.
int FontCatalog::entryFor(const QString &name)
{
    const QString key = keyOf(name);
    auto found = IndexByName.find(key);
    if (found == IndexByName.end()) {
        found = IndexByName.insert(key, static_cast<int>(Families.size()));
        Families.push_back({name});
        Entries.emplace_back();
    }
    return *found;
}

/// Gives the faces that no style of their family shows a family of their own, named by their style:
/// those of fonts without an old family name, and the named styles of variable fonts.
void FontCatalog::splitFamilies()
{
    const Rows &rows = *Table;
    const std::size_t whole = Families.size();
    for (std::size_t index = 0; index < whole; ++index) {
        if (Entries[index].rows.size() < 2)
            continue;
        const std::vector<int> family = Entries[index].rows;
        const auto styles = rows.fourStyles(family);
        std::vector<int> kept;
        for (const int row : family) {
            const bool shown = std::ranges::any_of(styles, [&](const std::optional<int> &style) {
                return style && rows.sameStyle(*style, row);
            });
            const QString rest = shown ? QString() : restOfStyle(faceNameOf(rows[row]).style);
            const QString name = Families[index].name;
            if (rest.isEmpty() || name.endsWith(rest, Qt::CaseInsensitive)) {
                kept.push_back(row);
                continue;
            }
            const auto own = static_cast<std::size_t>(entryFor(name + u' ' + rest));
            Entries[own].rows.push_back(row);
            Families[own].fontType = std::max(Families[own].fontType, fontTypeOf(rows[row]));
        }
        if (kept.size() == family.size())
            continue;
        Entries[index].rows = kept;
        Families[index].fontType = RASTER_FONTTYPE;
        for (const int row : kept)
            Families[index].fontType = std::max(Families[index].fontType, fontTypeOf(rows[row]));
    }
}

std::optional<int> FontCatalog::indexOf(const QString &family) const
{
    const auto found = IndexByName.find(keyOf(family));
    return found == IndexByName.end() ? std::nullopt : std::optional(*found);
}

const std::vector<int> &FontCatalog::rowsOf(const QString &family) const
{
    static const std::vector<int> none;
    const auto index = indexOf(family);
    return index ? Entries[static_cast<std::size_t>(*index)].rows : none;
}

void FontCatalog::addReplacedFamilies()
{
    if (Families.empty())
        return;
    QList<QStringList> generic;
    for (const char *name : genericFamilies)
        generic += Table->configured(QString::fromLatin1(name)).mid(0, 2);
    for (const QString &name : {QStringLiteral("Arial"), QStringLiteral("Times New Roman"),
                                QStringLiteral("Courier New")}) {
        if (contains(name))
            continue;
        const QStringList candidates = Table->configured(name);
        for (qsizetype i = 0; i < candidates.size() && !contains(name); ++i) {
            // From here on the list is what any unknown name would be given.
            if (generic.contains(candidates.mid(i, 2)))
                break;
            const auto found = indexOf(candidates[i]);
            if (!found)
                continue;
            const auto index = static_cast<std::size_t>(*found);
            IndexByName.insert(keyOf(name), static_cast<int>(Families.size()));
            Families.push_back({name, Families[index].fontType});
            Entries.push_back({Entries[index].rows});
        }
    }
}

/// The installed families that stand for a generic one, best first.
std::vector<int> FontCatalog::installedFor(const char *generic) const
{
    std::vector<int> installed;
    for (const QString &name : Table->configured(QString::fromLatin1(generic)))
        if (const auto index = indexOf(name))
            installed.push_back(*index);
    if (!installed.empty())
        return installed;
    // A full match looks at every face, so it is for configurations that name no installed family.
    const Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, bytes(generic));
    FcConfigSubstitute(Table->config.get(), pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(Table->config.get(), pattern.get(), &result));
    if (match)
        if (const auto index = indexOf(familyNameOf(match.get())))
            installed.push_back(*index);
    return installed;
}

/// Regular and bold of a generic family, out of those that stand for it. The user's language comes
/// before the order of the configuration, as in a match.
std::vector<int> FontCatalog::textRows(const std::vector<int> &installed) const
{
    if (installed.empty())
        return {};
    const StrSet locale(FcGetDefaultLangs());
    const StrList languages(FcStrListCreate(locale.get()));
    const FcChar8 *language = FcStrListNext(languages.get());
    const auto speaking = std::ranges::find_if(installed, [&](int index) {
        return language && Table->speaks(rowsAt(index).front(), language);
    });
    const std::vector<int> &faces =
        rowsAt(speaking == installed.end() ? installed.front() : *speaking);
    std::vector<int> chosen = Table->sizes(faces, Table->face(faces, false, false));
    std::ranges::copy(Table->sizes(faces, Table->face(faces, true, false)),
                      std::back_inserter(chosen));
    return chosen;
}

/// A face for each script that the given rows lack, so that file names and the like can be read.
/// At most one row a script, whatever the number of families; `preferred` ones are tried first.
std::vector<int> FontCatalog::scriptRows(const std::vector<int> &textRows,
                                         const std::vector<int> &preferred) const
{
    const LangSet missing(FcLangSetCreate());
    for (const char *script : scriptLanguages)
        FcLangSetAdd(missing.get(), bytes(script));
    const auto strikeOut = [&](int row) {
        for (const char *script : scriptLanguages)
            if (const FcLangSet *own = Table->languages(row);
                own && FcLangSetHasLang(own, bytes(script)) == FcLangEqual)
                FcLangSetDel(missing.get(), bytes(script));
    };
    std::ranges::for_each(textRows, strikeOut);

    std::vector<int> chosen;
    // What once was of no use stays so, and most families speak the same languages as another.
    std::unordered_set<FcChar32> seen;
    const auto addIfUseful = [&](int index) {
        const int row = rowsAt(index).front();
        const FcLangSet *own = Table->languages(row);
        if (!own || !seen.insert(FcLangSetHash(own)).second ||
            FcLangSetCompare(own, missing.get()) != FcLangEqual)
            return;
        chosen.push_back(Table->face(rowsAt(index), false, false));
        strikeOut(row);
    };
    std::ranges::for_each(preferred, addIfUseful);
    for (int index = 0; index < static_cast<int>(Families.size()); ++index)
        addIfUseful(index);
    return chosen;
}

/// The same rules without any font folder, and the chosen rows alone. The one configuration is
/// changed, since reading the rules a second time costs as much as the first.
void FontCatalog::useLeanConfiguration()
{
    Rows &rows = *Table;
    std::vector<int> chosen, sansSerif;
    for (const char *generic : genericFamilies) {
        const std::vector<int> installed = installedFor(generic);
        std::ranges::copy(textRows(installed), std::back_inserter(chosen));
        if (sansSerif.empty())
            sansSerif = installed;
    }
    std::ranges::copy(scriptRows(chosen, sansSerif), std::back_inserter(chosen));
    if (!rows.config)
        rows.config.reset(FcConfigCreate());
    FcConfig *lean = rows.config.get();
    constexpr auto noFolders =
        "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM "
        "\"urn:fontconfig:fonts.dtd\"><fontconfig><reset-dirs/></fontconfig>";
    FcConfigParseAndLoadFromMemory(lean, bytes(noFolders), FcFalse);
    // Else fontconfig would some day notice a changed font folder and load everything.
    FcConfigSetRescanInterval(lean, 0);
    FcConfigBuildFonts(lean);
    FcFontSet *fonts = FcConfigGetFonts(lean, FcSetSystem);
    std::ranges::sort(chosen);
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    // The row itself, not its file: a file would be opened and all its characters counted.
    for (const int row : chosen)
        if (fonts)
            FcFontSetAdd(fonts, FcPatternDuplicate(rows[row]));
    FcConfigSetCurrent(lean);
}

FontTraits FontCatalog::traits(int index) const
{
    const FcPattern *face = (*Table)[Table->face(rowsAt(index), false, false)];
    return {.weight = FcWeightToOpenType(weightOf(face)),
            .italic = isSlanted(face),
            .symbol = flagOf(face, FC_SYMBOL),
            .fixedPitch = numberOf(face, FC_SPACING, FC_PROPORTIONAL) >= FC_MONO};
}

bool FontCatalog::builtInBold(const QString &family) const
{
    const std::vector<int> &faces = rowsOf(family);
    return !faces.empty() && std::ranges::all_of(faces, [&](int row) {
        return weightOf((*Table)[row]) >= FC_WEIGHT_DEMIBOLD;
    });
}

bool FontCatalog::builtInItalic(const QString &family) const
{
    const std::vector<int> &faces = rowsOf(family);
    return !faces.empty() &&
           std::ranges::all_of(faces, [&](int row) { return isSlanted((*Table)[row]); });
}

QFont FontCatalog::font(const QString &family)
{
    QStringList names = {family};
    if (const auto index = indexOf(family)) {
        names = {toolkitName(*index), missingFamily};
        if (!isLoaded(family))
            load(*index);
    }
    QFont font;
    // As a list: in a single name the toolkit takes a comma for a separator. It shows the second
    // where it can't load the first, before it would ask fontconfig for another.
    font.setFamilies(names);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

bool FontCatalog::isLoaded(const QString &family) const
{
    const auto index = indexOf(family);
    return index && Table->loaded.contains(*index);
}

void FontCatalog::giveBack(const QStringList &families)
{
    if (families.isEmpty())
        return;
    FcFontSet *fonts = FcConfigGetFonts(FcConfigGetCurrent(), FcSetSystem);
    for (const QString &family : families) {
        const Rows::Loaded gone = Table->loaded.take(indexOf(family).value_or(-1));
        for (const int font : gone.fonts)
            QFontDatabase::removeApplicationFont(font);
        for (FcPattern *face : gone.faces) {
            fonts->nfont = static_cast<int>(
                std::remove(fonts->fonts, fonts->fonts + fonts->nfont, face) - fonts->fonts);
            FcPatternDestroy(face);
        }
    }
    letToolkitReadAnew();
}

/// Gives the toolkit the faces of the four styles.
void FontCatalog::load(int index)
{
    Table->loaded.insert(index, {});
    const std::vector<int> &family = rowsAt(index);
    const auto styles = Table->fourStyles(family);
    for (std::size_t style = 0; style < styles.size(); ++style) {
        if (!styles[style])
            continue;
        // A family without a regular face has its bold one in that place, which stays bold: else
        // the toolkit would make it bolder still.
        const bool bold = style & 1 || Table->isBold(*styles[style]);
        const bool italic = style & 2 || Table->slanted(*styles[style]);
        for (const int row : Table->sizes(family, *styles[style]))
            addToToolkit(row, index, bold, italic);
    }
    letToolkitReadAnew();
}

/// The toolkit reads its configuration anew after a font of the application is taken away, and only
/// then. Ours is one that is always wanted.
void FontCatalog::letToolkitReadAnew()
{
    const QByteArray missing = sfnt::missingGlyphFont(missingFamily);
    if (MissingFont < 0)
        MissingFont = QFontDatabase::addApplicationFontFromData(missing);
    QFontDatabase::removeApplicationFont(MissingFont);
    MissingFont = QFontDatabase::addApplicationFontFromData(missing);
}

void FontCatalog::addToToolkit(int row, int index, bool bold, bool italic)
{
    const FcPattern *face = (*Table)[row];
    FcFontSet *fonts = FcConfigGetFonts(FcConfigGetCurrent(), FcSetSystem);
    FcChar8 *path = nullptr;
    if (!fonts || FcPatternGetString(face, FC_FILE, 0, &path) != FcResultMatch)
        return;
    const auto *encoded = reinterpret_cast<const char *>(path);
    const QString name = toolkitName(index);
    const int place = numberOf(face, FC_INDEX, 0);
    const QString style = bold     ? italic ? QStringLiteral("Bold Italic") : QStringLiteral("Bold")
                              : italic ? QStringLiteral("Italic")
                                   : QStringLiteral("Regular");
    const auto sizes = isScalable(face) ? std::vector<int>() : drawableSizes(encoded, place);
    if (isScalable(face) ? !hasDrawableOutlines(encoded, place) : sizes.empty())
        return;
    Rows::Loaded &given = Table->loaded[index];
    const int symbols = flagOf(face, FC_SYMBOL)
                            ? addSymbolFont(QFile::decodeName(encoded), place & 0xFFFF,
                                            sfnt::writeNames(name, style))
                            : -1;
    if (symbols >= 0) {
        given.fonts.push_back(symbols);
        return;
    }
    FcPattern *own = FcPatternDuplicate(face);
    // The toolkit groups by maker, and weighs width and weight: they are of no use within one
    // family, and lead to a wrong face. Which languages a face is for does not count where no
    // other font may help out, and would be most of the work of reading the row.
    for (const char *object :
         {FC_FAMILY, FC_FAMILYLANG, FC_STYLE, FC_STYLELANG, FC_FULLNAME, FC_FULLNAMELANG,
          FC_FOUNDRY, FC_WEIGHT, FC_WIDTH, FC_SLANT, FC_LANG, FC_CHARSET, FC_CAPABILITY})
        FcPatternDel(own, object);
    // None rather than no set of characters: the toolkit looks into it for every font that may help
    // out, and takes for granted that it is there.
    FcCharSet *none = FcCharSetCreate();
    FcPatternAddCharSet(own, FC_CHARSET, none);
    FcCharSetDestroy(none);
    FcPatternAddString(own, FC_FAMILY, bytes(name.toUtf8().constData()));
    FcPatternAddString(own, FC_STYLE, bytes(style.toUtf8().constData()));
    FcPatternAddInteger(own, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(own, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddInteger(own, FC_WIDTH, FC_WIDTH_NORMAL);
    // The user's rules for the drawing of a family (hints, smooth edges) still know it.
    FcPatternAddString(own, FC_FAMILY,
                       bytes(Families[static_cast<std::size_t>(index)].name.toUtf8().constData()));
    // The sizes that fontconfig tells are those that the font's properties claim.
    const auto give = [&](FcPattern *added) {
        if (FcFontSetAdd(fonts, added))
            given.faces.push_back(added);
    };
    for (const int size : sizes) {
        FcPattern *sized = FcPatternDuplicate(own);
        FcPatternDel(sized, FC_PIXEL_SIZE);
        FcPatternAddDouble(sized, FC_PIXEL_SIZE, size);
        give(sized);
    }
    if (sizes.empty())
        give(own);
    else
        FcPatternDestroy(own);
}
