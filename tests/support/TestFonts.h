// The small fonts of tests/fonts as the only fonts that exist, and reading back which glyph of
// which of them a picture shows. make_fonts.py beside the fonts tells what the pictures mean.
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <QTemporaryDir>

/// To be made before FontCatalog, which is to be made before the application. sans-serif, serif and
/// monospace are "Zt Latin". Arial is replaced by it too, as by a family of its own; Times New
/// Roman by one that is not there; Courier New has only the common text font.
class TestFonts
{
public:
    /// Points fontconfig (FONTCONFIG_FILE) to a configuration and a cache in a temporary folder.
    /// `fontFolder` holds the fonts: tests/fonts if empty.
    explicit TestFonts(const QString &fontFolder = {});

    bool isValid() const { return Valid; }

private:
    QTemporaryDir Folder;
    bool Valid = false;
};

struct GlyphPicture
{
    int code = 0;         ///< 0 where nothing is drawn, and in the missing glyph
    int font = 0;         ///< the font's number in make_fonts.py
    bool missing = false; ///< the font's own glyph for a missing character

    bool operator==(const GlyphPicture &) const = default;
};

/// Reads the glyph drawn with its origin (left end of the base line) at `origin`, dark on light.
/// `cell` is the width of one cell of its grid in pixels: 7 for a font of 32 pixels.
GlyphPicture readGlyph(const QImage &image, QPoint origin, int cell = 7);

/// For failure messages: "code 41, font 2".
char *toString(const GlyphPicture &glyph);
