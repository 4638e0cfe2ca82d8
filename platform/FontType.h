// The kinds of files that a font family may have.
#pragma once

/// What kind of files a family has, in the flags of the Win32 font enumeration (wingdi.h). A family
/// with several kinds has the first of these that it has: TrueType, other outlines, bitmaps.
enum FontType { RASTER_FONTTYPE = 1, DEVICE_FONTTYPE = 2, TRUETYPE_FONTTYPE = 4 };
