// Fills font pickers from the list of installed fonts, the same way in every window.
#pragma once

#include "platform/controls/FontItems.h"

class FontCombo;
class FontList;

/// One row for each entry, in the list's order: the face name, and the picture of its class.
std::vector<FontItem> FontItemsOf(const FontList &list);

/// Nothing is selected afterwards.
void FillFontCombo(FontCombo &combo, const FontList &list);
