// Families given to the toolkit and taken from it again: as rows of fontconfig under names of our
// own, so that the toolkit can neither mix up the faces of two families nor replace one by another.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <fontconfig/fontconfig.h>
#include <vector>

class FontRows;

class ToolkitFonts
{
public:
    /// The rows must outlive this. What is done here needs QGuiApplication.
    explicit ToolkitFonts(const FontRows &rows) : Rows(rows) {}

    /// A family is known by a number of its owner's. It shows under these names: where it was not
    /// given, or can't be drawn, with missing glyphs.
    static QStringList namesOf(int family);

    bool has(int family) const { return Given.contains(family); }
    /// Gives the faces of the four styles among these rows. `name` is what the user's rules for the
    /// drawing of a family know it by. Faces that can't be drawn without harm are left out.
    void give(int family, const QString &name, const std::vector<int> &rows);
    /// No font of these families may be shown any more. Those not given are passed over.
    void takeBack(const std::vector<int> &families);

private:
    /// What the toolkit was given of a family.
    struct Faces
    {
        std::vector<FcPattern *> rows; ///< of the lean configuration
        std::vector<int> fonts;        ///< the toolkit's numbers of those that it has as data
    };

    void addFace(int row, int family, const QString &name, bool bold, bool italic);
    void letToolkitReadAnew();

    const FontRows &Rows;
    QHash<int, Faces> Given;
    int MissingFont = -1; ///< the toolkit's number of the font that stands for those not given
};
