// Whether the toolkit can draw a face without harm. Knows files, not families.
#pragma once

#include <vector>

/// Opens a bitmap face (`index` counts the faces of a file), looks at the glyphs of all 224 codes
/// in all its sizes and gives the sizes, in pixels: none if a single one is not safe or the file
/// can't be opened.
std::vector<int> drawableSizes(const char *file, int index);

/// The same for a face of outlines, which has no sizes of its own. The high half of `index` is the
/// named style of a variable font.
bool hasDrawableOutlines(const char *file, int index);
