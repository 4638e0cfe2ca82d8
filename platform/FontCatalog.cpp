// Reads fontconfig's rows (one a face), groups them by family, picks the few that the toolkit is to
// know from the start, and adds others to the toolkit when they are asked for.
#include "platform/FontCatalog.h"

#include "platform/SymbolEncoding.h"

#include <QFile>
#include <QFontDatabase>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <set>
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

/// The first English name, or the first of any language.
QString familyNameOf(const FcPattern *row)
{
    FcChar8 *language = nullptr;
    for (int i = 0; FcPatternGetString(row, FC_FAMILYLANG, i, &language) == FcResultMatch; ++i)
        if (qstrncmp(reinterpret_cast<const char *>(language), "en", 2) == 0)
            return textOf(row, FC_FAMILY, i);
    return textOf(row, FC_FAMILY);
}

/// The toolkit takes "Name [Maker]" for the family "Name" of a foundry, whatever the font says.
bool looksLikeFoundry(const QString &name)
{
    const qsizetype open = name.indexOf(u'[');
    return open >= 0 && name.lastIndexOf(u']') > open;
}

QString keyOf(const QString &family)
{
    return family.toCaseFolded();
}

/// The toolkit's number of the font, or -1 when the file cannot be read or is not what it says.
int addSymbolFont(const QString &fileName, int face)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const auto font = symbolFontAsUnicode(file.readAll(), face);
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
    std::vector<bool> inToolkit = std::vector<bool>(static_cast<std::size_t>(count()));

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

    /// The face, and where it is a bitmap its other sizes too.
    std::vector<int> sizes(const std::vector<int> &family, int face) const
    {
        const FcPattern *chosen = set->fonts[face];
        if (isScalable(chosen))
            return {face};
        std::vector<int> rows;
        std::ranges::copy_if(family, std::back_inserter(rows), [&](int row) {
            const FcPattern *other = set->fonts[row];
            return !isScalable(other) && weightOf(other) == weightOf(chosen) &&
                   isSlanted(other) == isSlanted(chosen) &&
                   numberOf(other, FC_WIDTH, FC_WIDTH_NORMAL) ==
                       numberOf(chosen, FC_WIDTH, FC_WIDTH_NORMAL);
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
    const Rows &rows = *Table;
    IndexByName.reserve(rows.count());
    for (int row = 0; row < rows.count(); ++row) {
        // A variable font comes once as a whole, which is this, and once for each named style.
        if (flagOf(rows[row], FC_VARIABLE))
            continue;
        const QString name = familyNameOf(rows[row]);
        if (name.isEmpty())
            continue;
        const QString key = keyOf(name);
        auto found = IndexByName.find(key);
        if (found == IndexByName.end()) {
            found = IndexByName.insert(key, static_cast<int>(Families.size()));
            Families.push_back({name});
            Entries.emplace_back();
        }
        const auto index = static_cast<std::size_t>(*found);
        Entries[index].rows.push_back(row);
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
            Entries.push_back({Entries[index].rows, {}});
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

/// The user's rules without the user's font folders, and the text fonts.
/// The same rules without any font folder, and the chosen rows alone. The one configuration is
/// changed, since reading the rules a second time costs as much as the first.
void FontCatalog::useLeanConfiguration()
{
    Rows &rows = *Table;
    QString aliases;
    for (std::size_t i = 0; i < Families.size(); ++i) {
        if (!looksLikeFoundry(Families[i].name))
            continue;
        // Asked for under this name, the toolkit finds no such family, asks fontconfig for another
        // and takes the answer as it stands.
        Entries[i].toolkitName = QStringLiteral("Zendova family %1").arg(i);
        aliases += QStringLiteral("<match target=\"pattern\"><test name=\"family\"><string>%1"
                                  "</string></test><edit name=\"family\" mode=\"assign\" "
                                  "binding=\"strong\"><string>%2</string></edit></match>")
                       .arg(Entries[i].toolkitName, Families[i].name.toHtmlEscaped());
    }
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
    const QByteArray noFolders =
        QStringLiteral("<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM "
                       "\"urn:fontconfig:fonts.dtd\"><fontconfig>"
                       "<reset-dirs/>%1</fontconfig>")
            .arg(aliases)
            .toUtf8();
    FcConfigParseAndLoadFromMemory(lean, bytes(noFolders.constData()), FcFalse);
    // Else fontconfig would some day notice a changed font folder and load everything.
    FcConfigSetRescanInterval(lean, 0);
    FcConfigBuildFonts(lean);
    FcFontSet *fonts = FcConfigGetFonts(lean, FcSetSystem);
    for (const int row : chosen) {
        if (!fonts || rows.inToolkit[static_cast<std::size_t>(row)])
            continue;
        rows.inToolkit[static_cast<std::size_t>(row)] = true;
        // The row itself, not its file: a file would be opened and all its characters counted.
        FcFontSetAdd(fonts, FcPatternDuplicate(rows[row]));
    }
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
    QString name = family;
    if (const auto index = indexOf(family)) {
        Entry &entry = Entries[static_cast<std::size_t>(*index)];
        if (!entry.loaded) {
            entry.loaded = true;
            const QString known = load(entry.rows);
            if (entry.toolkitName.isEmpty())
                entry.toolkitName = known;
        }
        name = entry.toolkitName;
    }
    QFont font;
    // As a list: in a single name the toolkit takes a comma for a separator.
    font.setFamilies({name});
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

/// Gives the toolkit the faces that the four styles resolve to, unless it has them. Returns the
/// family's name there: fontconfig's rules may have renamed what stands in the file.
QString FontCatalog::load(const std::vector<int> &faces)
{
    Rows &rows = *Table;
    const int regular = rows.face(faces, false, false);
    QString name = familyNameOf(rows[regular]);
    std::set<int> needed;
    for (const bool bold : {false, true})
        for (const bool italic : {false, true})
            std::ranges::copy(rows.sizes(faces, rows.face(faces, bold, italic)),
                              std::inserter(needed, needed.end()));
    std::set<QString> added;
    for (const int row : needed) {
        if (rows.inToolkit[static_cast<std::size_t>(row)])
            continue;
        rows.inToolkit[static_cast<std::size_t>(row)] = true;
        FcChar8 *path = nullptr;
        FcPatternGetString(rows[row], FC_FILE, 0, &path);
        const QString file = QFile::decodeName(reinterpret_cast<const char *>(path));
        // The high half of the index is the named style of a variable font.
        const int place = numberOf(rows[row], FC_INDEX, 0) & 0xFFFF;
        int id = -1;
        if (flagOf(rows[row], FC_SYMBOL))
            id = addSymbolFont(file, place);
        if (id < 0) {
            if (!added.insert(file).second)
                continue;
            id = QFontDatabase::addApplicationFont(file);
        }
        const QStringList names = QFontDatabase::applicationFontFamilies(id);
        if (row == regular && !names.isEmpty() && !names.contains(name, Qt::CaseInsensitive))
            name = names.value(place, names.first());
    }
    return name;
}
