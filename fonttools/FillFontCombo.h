// Fills a font picker from the list of installed fonts, the same way in every window.
#pragma once

class FontCombo;
class FontList;

/// One row for each entry, in the list's order: the face name, and the picture of its class.
/// Nothing is selected afterwards.
void FillFontCombo(FontCombo &combo, const FontList &list);
