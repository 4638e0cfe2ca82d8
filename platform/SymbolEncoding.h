// Makes the codes of a symbol-encoded font readable as Unicode text. Bytes in, bytes out: it knows
// the file format (OpenType: table directory, collections, "cmap" formats 4) and nothing else.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

/// A copy of one face whose "cmap" table (platform 3, encoding 0: codes at U+F000 + code) also maps
/// the Unicode characters of the code page, so that code c of the text shows the glyph of
/// U+F000 + c, or of c itself where the font has it there. Codes 32..255 are mapped, no others.
/// `font` is a whole file, a collection included; `face` counts from 0. Gives nothing when the data
/// is no such font, is damaged, or shares its bytes among tables so often that a copy would grow.
/// `names`, unless empty, takes the place of the "name" table.
std::optional<QByteArray> symbolFontAsUnicode(QByteArrayView font, int face,
                                              const QByteArray &names = {});
