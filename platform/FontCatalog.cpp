// Groups fontconfig's rows (one a face) by families of four styles, picks the few that the toolkit
// is to know from the start, and gives it others when they are asked for.
#include "platform/FontCatalog.h"

#include "platform/FaceName.h"
#include "platform/FontRows.h"
#include "platform/ToolkitFonts.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_set>

namespace {

FontCatalog *currentCatalog = nullptr;

using LangSet = std::unique_ptr<FcLangSet, FcDestroyer<FcLangSet, FcLangSetDestroy>>;
/// By what they hold: the hash of different sets is often the same.
struct LangSetHash
{
    std::size_t operator()(const FcLangSet *set) const { return FcLangSetHash(set); }
};
struct LangSetEqual
{
    bool operator()(const FcLangSet *a, const FcLangSet *b) const { return FcLangSetEqual(a, b); }
};
using StrSet = std::unique_ptr<FcStrSet, FcDestroyer<FcStrSet, FcStrSetDestroy>>;
using StrList = std::unique_ptr<FcStrList, FcDestroyer<FcStrList, FcStrListDone>>;

/// Languages, one for each script that a file name may be written in; the last is that of emoji.
constexpr auto scriptLanguages = std::to_array<const char *>(
    {"en",    "vi",    "ru", "el", "ar", "he", "th", "hi", "bn", "pa",
     "gu",    "or",    "ta", "te", "kn", "ml", "si", "my", "lo", "km",
     "zh-cn", "zh-tw", "ja", "ko", "ka", "hy", "am", "bo", "dv", "und-zsye"});

constexpr auto genericFamilies = std::to_array<const char *>({"sans-serif", "serif", "monospace"});

QString familyNameOf(const FcPattern *row)
{
    return QString::fromUtf8(faceNameOf(row).family);
}

QString keyOf(const QString &family)
{
    return family.toCaseFolded();
}

} // namespace

FontCatalog::FontCatalog()
    : Table(std::make_unique<FontRows>()), Toolkit(std::make_unique<ToolkitFonts>(*Table))
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
    FontRows &rows = *Table;
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
        if (qstrnicmp(face.style, "Bold", 4) == 0)
            rows.setCalledBold(row);
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
    const FontRows &rows = *Table;
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
    const FcPatternPtr pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, fcBytes(generic));
    FcConfigSubstitute(Table->config(), pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const FcPatternPtr match(FcFontMatch(Table->config(), pattern.get(), &result));
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
        FcLangSetAdd(missing.get(), fcBytes(script));
    const auto strikeOut = [&](int row) {
        for (const char *script : scriptLanguages)
            if (const FcLangSet *own = Table->languages(row);
                own && FcLangSetHasLang(own, fcBytes(script)) == FcLangEqual)
                FcLangSetDel(missing.get(), fcBytes(script));
    };
    std::ranges::for_each(textRows, strikeOut);

    std::vector<int> chosen, bolder;
    const auto add = [&](int index) {
        chosen.push_back(Table->face(rowsAt(index), false, false));
        strikeOut(rowsAt(index).front());
    };
    const auto isUseful = [&](const FcLangSet *own) {
        return FcLangSetCompare(own, missing.get()) == FcLangEqual;
    };
    // What once was of no use stays so, and most families speak the same languages as another.
    std::unordered_set<const FcLangSet *, LangSetHash, LangSetEqual> seen;
    const auto addIfUseful = [&](int index) {
        const FcLangSet *own = Table->languages(rowsAt(index).front());
        if (!own || seen.contains(own))
            return;
        if (!isUseful(own))
            seen.insert(own);
        else if (const int face = Table->face(rowsAt(index), false, false);
                 Table->isBold(face) || isSlanted((*Table)[face]))
            bolder.push_back(index);
        else
            add(index);
    };
    std::ranges::for_each(preferred, addIfUseful);
    for (int index = 0; index < static_cast<int>(Families.size()); ++index)
        addIfUseful(index);
    // Families that are always bold or slanted, where there is nothing else for a script.
    for (const int index : bolder)
        if (isUseful(Table->languages(rowsAt(index).front())))
            add(index);
    return chosen;
}

/// The same rules without any font folder, and the chosen rows alone. The one configuration is
/// changed, since reading the rules a second time costs as much as the first.
void FontCatalog::useLeanConfiguration()
{
    FontRows &rows = *Table;
    std::vector<int> chosen, sansSerif;
    for (const char *generic : genericFamilies) {
        const std::vector<int> installed = installedFor(generic);
        std::ranges::copy(textRows(installed), std::back_inserter(chosen));
        if (sansSerif.empty())
            sansSerif = installed;
    }
    std::ranges::copy(scriptRows(chosen, sansSerif), std::back_inserter(chosen));
    FcConfig *lean = rows.config();
    constexpr auto noFolders =
        "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM "
        "\"urn:fontconfig:fonts.dtd\"><fontconfig><reset-dirs/></fontconfig>";
    FcConfigParseAndLoadFromMemory(lean, fcBytes(noFolders), FcFalse);
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
        names = ToolkitFonts::namesOf(*index);
        if (!Toolkit->has(*index))
            Toolkit->give(*index, Families[static_cast<std::size_t>(*index)].name, rowsAt(*index));
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
    return index && Toolkit->has(*index);
}

void FontCatalog::keep(const QString &family)
{
    if (const auto index = indexOf(family))
        Kept.insert(*index);
}

void FontCatalog::giveBack(const QStringList &families)
{
    if (families.isEmpty())
        return;
    std::vector<int> known;
    for (const QString &family : families)
        if (const auto index = indexOf(family); index && !Kept.contains(*index))
            known.push_back(*index);
    Toolkit->takeBack(known);
}
