// By which family and style a face is known in a list of families of four styles. Reads
// fontconfig's rows, opens no file.
#pragma once

#include <QString>
#include <fontconfig/fontconfig.h>

/// Both belong to the row. Empty where it has none.
struct FaceName
{
    const char *family = "";
    const char *style = "";
};

/// The family of four styles that a face belongs to, and its style there. fontconfig lists the
/// typographic family ("DejaVu Sans", with the style "Condensed Bold") before the old one ("DejaVu
/// Sans Condensed", "Bold"), and after both what a font for the Macintosh says, which may be the
/// typographic family again; so the style tells which family is the old one. The old family of a
/// variable font is that of the font as it stands, of no use to its other named styles: they go by
/// the typographic one.
FaceName faceNameOf(const FcPattern *row);

/// A named style of a variable font, and the row of the same face as it stands.
bool isNamedStyleOf(const FcPattern *row, const FcPattern *whole);

/// The first of the names, which is the typographic one if there is one.
const char *typographicFamilyOf(const FcPattern *row);

/// What a style says beyond the four: "Semi Bold Italic" gives "Semi Bold", "Bold" gives nothing.
QString restOfStyle(const char *style);
