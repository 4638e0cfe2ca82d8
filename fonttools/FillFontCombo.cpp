// From the entries of the list to the rows of a font picker.
#include "fonttools/FillFontCombo.h"

#include "fonttools/FontLoadProcedure.h"
#include "platform/controls/FontCombo.h"

std::vector<FontItem> FontItemsOf(const FontList &list)
{
    std::vector<FontItem> items;
    items.reserve(static_cast<std::size_t>(list.count()));
    for (int i = 0; i < list.count(); ++i) {
        const QString &entry = list.entry(i);
        items.push_back({.Text = fontFaceName(entry), .IconKey = fontIconKey(fontClass(entry))});
    }
    return items;
}

void FillFontCombo(FontCombo &combo, const FontList &list)
{
    combo.setItems(FontItemsOf(list));
}
