// The list of installed fonts, made once at start-up, from which every font picker is filled, and
// the rules for reading its entries. Touches the font catalog and the shared font tables, no
// window.
#pragma once

#include "core/GlobalDeclarations.h"

#include <QString>
#include <QStringView>
#include <vector>

/// A sorted list of entries: the face name directly followed by the font's type in decimal
/// ("Arial4"), and with it the font's column in FontLF and FontTM. The order is that of the
/// case-folded code points of the whole entry, digit included; equal entries keep their order.
class FontList
{
public:
    void clear();
    void add(const QString &entry, int column);

    /// To be called after the last add() and before the first look.
    void sort();

    int count() const { return static_cast<int>(Entries.size()); }

    /// `index` is 0..count()-1.
    const QString &entry(int index) const { return at(index).text; }
    int column(int index) const { return at(index).column; }

private:
    struct Entry
    {
        QString text;
        int column;
    };

    const Entry &at(int index) const { return Entries[static_cast<std::size_t>(index)]; }

    std::vector<Entry> Entries;
};

enum class FontClass { TrueType, System };

/// The class by the last character of an entry: TrueType for exactly "4", whatever stands before.
FontClass fontClass(QStringView entry);

/// The key of the class's picture in the image lists: "TT" or "SF".
QString fontIconKey(FontClass fontClass);

/// The entry less its last character.
QString fontFaceName(QStringView entry);

/// Clears the list and the tables and fills them from the font catalog.
void LoadFontList(FontList &list);

/// Takes one font into the list and the tables. Always 1, to go on. Throws std::overflow_error
/// when FontCount passes 32,767, which ends the program.
int FontEnumProc(const LogicalFont &logicalFont, const TextMetric &textMetric, int fontType,
                 FontList &list);

/// Adds 1 to a font counter. Throws std::overflow_error past 32,767.
void countFont(qint16 &counter);
