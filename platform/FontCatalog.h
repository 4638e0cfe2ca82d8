// Every installed font family, read from fontconfig once, and the toolkit's fonts made from them.
// The toolkit's own font database grows with the square of its families, so it is given a lean
// configuration with the desktop's text fonts only, and any other family when it is first shown.
// Knows no window and no list.
#pragma once

#include "platform/FontType.h"

#include <QFont>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

class FontRows;
class ToolkitFonts;

struct FontFamily
{
    QString name;
    int fontType = RASTER_FONTTYPE;
};

/// What the face shown for "regular" is like. No font file is opened for it.
struct FontTraits
{
    int weight = 400; ///< 1..1000, regular 400, bold 700
    bool italic = false;
    bool symbol = false; ///< Microsoft symbol encoding
    bool fixedPitch = false;
};

class FontCatalog
{
public:
    /// Reads the fonts, by the user's configuration (FONTCONFIG_FILE is honoured), and makes the
    /// lean configuration current. To be called before QGuiApplication. Never fails: a machine
    /// without fonts or without a configuration gives an empty catalog.
    FontCatalog();
    ~FontCatalog();
    FontCatalog(const FontCatalog &) = delete;
    FontCatalog &operator=(const FontCatalog &) = delete;

    /// The one catalog of the process, which must exist.
    static FontCatalog &current();

    /// One entry a family of four styles (regular, bold, italic, bold italic), so that every face
    /// can be picked: "DejaVu Sans Condensed" is one beside "DejaVu Sans". A style of a variable
    /// font or of a bigger family is named after it ("Inter Semi Bold"). In fontconfig's order,
    /// followed by those named after styles, and by those of Arial, Times New Roman and
    /// Courier New that are not installed but that the configuration replaces by a family of their
    /// own (not just by the common text font).
    const std::vector<FontFamily> &families() const { return Families; }

    /// Case does not matter in a family name, here and below.
    bool contains(const QString &family) const { return indexOf(family).has_value(); }

    /// `index` is a place in families().
    FontTraits traits(int index) const;

    /// The family has bold faces only (demibold and heavier), or slanted ones only.
    bool builtInBold(const QString &family) const;
    bool builtInItalic(const QString &family) const;

    /// A font that shows this family and borrows no glyph from another, in the application's size.
    /// Its bold and italic are the faces of this very family. The toolkit learns of it at the first
    /// call, so QGuiApplication must exist. The font names the family otherwise than the catalog
    /// does: never read a name back from it. Where a family can't be loaded, it shows missing
    /// glyphs; a family that is not there shows in a text font.
    QFont font(const QString &family);

    /// The toolkit knows the family, as somebody has asked for its font.
    bool isLoaded(const QString &family) const;
    /// For a family that is shown at any time: it is never given back.
    void keep(const QString &family);
    /// Takes families from the toolkit, with the memory that they hold; those not loaded, or to be
    /// kept, are passed over. No font of the others may be shown any more: the next call of font()
    /// loads the family anew.
    void giveBack(const QStringList &families);

private:
    struct Entry
    {
        std::vector<int> rows; ///< the family's faces, by their place in fontconfig's list
    };

    std::optional<int> indexOf(const QString &family) const;
    const std::vector<int> &rowsOf(const QString &family) const;
    const std::vector<int> &rowsAt(int index) const
    {
        return Entries[static_cast<std::size_t>(index)].rows;
    }
    void readFamilies();
    int entryFor(const QString &name);
    void splitFamilies();
    void addReplacedFamilies();
    std::vector<int> installedFor(const char *generic) const;
    std::vector<int> textRows(const std::vector<int> &installed) const;
    std::vector<int> scriptRows(const std::vector<int> &textRows,
                                const std::vector<int> &preferred) const;
    void useLeanConfiguration();

    std::unique_ptr<FontRows> Table;
    std::unique_ptr<ToolkitFonts> Toolkit;
    std::vector<FontFamily> Families;
    std::vector<Entry> Entries; ///< beside Families
    QHash<QString, int> IndexByName;
    QSet<int> Kept; ///< families that are not given back
};
