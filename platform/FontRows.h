// The faces of all installed fonts as fontconfig's rows, one a face, by their place in its list:
// what each is like, and which of them stands for a style of a family. Opens no font file.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <optional>
#include <vector>

/// Frees what fontconfig gives.
template<typename T, void (*destroy)(T *)>
struct FcDestroyer
{
    void operator()(T *object) const { destroy(object); }
};
using FcConfigPtr = std::unique_ptr<FcConfig, FcDestroyer<FcConfig, FcConfigDestroy>>;
using FcFontSetPtr = std::unique_ptr<FcFontSet, FcDestroyer<FcFontSet, FcFontSetDestroy>>;
using FcPatternPtr = std::unique_ptr<FcPattern, FcDestroyer<FcPattern, FcPatternDestroy>>;

/// A name for fontconfig, as it wants it.
inline const FcChar8 *fcBytes(const char *text)
{
    return reinterpret_cast<const FcChar8 *>(text);
}

// What a row says of its face.
int numberOf(const FcPattern *row, const char *object, int otherwise);
bool flagOf(const FcPattern *row, const char *object);
int weightOf(const FcPattern *row); ///< in fontconfig's units
bool isSlanted(const FcPattern *row);
bool isScalable(const FcPattern *row);
int fontTypeOf(const FcPattern *row); ///< a FontType

/// The user's configuration and all its rows, which lie in fontconfig's mapped cache files. A
/// family is the places of its faces, and must not be empty.
class FontRows
{
public:
    FontRows();

    /// An empty one if fontconfig can't read the user's.
    FcConfig *config() const { return Config.get(); }
    int count() const { return Set->nfont; }
    FcPattern *operator[](int row) const { return Set->fonts[row]; }

    /// The families that the configuration puts in the place of one, best first, the name itself
    /// included.
    const QStringList &configured(const QString &family);

    /// For a face whose style is called bold, whatever its weight says.
    void setCalledBold(int row) { CalledBold[static_cast<std::size_t>(row)] = true; }
    /// The bold face of a light family may be a medium.
    bool isBold(int row) const;

    /// What the faces of two files may have in common: they differ in kind, or in size if bitmaps.
    bool sameStyle(int row, int other) const;

    /// The face that a style resolves to.
    int face(const std::vector<int> &family, bool bold, bool italic) const;
    /// The faces of the four styles of a family: regular, bold, italic, bold italic. No number
    /// where it lacks one; regular is always there.
    std::array<std::optional<int>, 4> fourStyles(const std::vector<int> &family) const;
    /// The face, and where it is a bitmap its other sizes too.
    std::vector<int> sizes(const std::vector<int> &family, int face) const;

    /// The languages that the face is for; none where its row says nothing of them.
    const FcLangSet *languages(int row) const;
    /// The family is written for this language or for another territory's kind of it.
    bool speaks(int row, const FcChar8 *language) const;

private:
    QStringList runRules(const QString &family) const;
    auto distance(int row, bool bold, bool italic) const;
    int width(int row) const;

    FcConfigPtr Config;
    FcFontSetPtr Set;
    std::vector<bool> CalledBold;
    QHash<QString, QStringList> RulesRun;
};
