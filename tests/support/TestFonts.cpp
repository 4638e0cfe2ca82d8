// Writes the fontconfig configuration of the tests, and samples the cells of a glyph.
#include "TestFonts.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

/// %1 the fonts, %2 the cache. The generic families come in as in a desktop's configuration: an
/// unknown name is given sans-serif, and that the text font.
const char configuration[] = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>%1</dir>
  <cachedir>%2</cachedir>
  <alias binding="same"><family>Arial</family><accept><family>Zt Latin</family></accept></alias>
  <alias binding="same">
    <family>Times New Roman</family><accept><family>Zt Absent</family></accept>
  </alias>
  <match target="pattern">
    <test qual="all" name="family" compare="not_eq"><string>sans-serif</string></test>
    <test qual="all" name="family" compare="not_eq"><string>serif</string></test>
    <test qual="all" name="family" compare="not_eq"><string>monospace</string></test>
    <edit name="family" mode="append_last"><string>sans-serif</string></edit>
  </match>
  <alias><family>sans-serif</family><prefer><family>Zt Latin</family></prefer></alias>
  <alias><family>serif</family><prefer><family>Zt Latin</family></prefer></alias>
  <alias><family>monospace</family><prefer><family>Zt Latin</family></prefer></alias>
</fontconfig>
)";

} // namespace

TestFonts::TestFonts(const QString &fontFolder)
{
    const QString fonts = fontFolder.isEmpty() ? QStringLiteral(ZENDOVA_TEST_FONTS) : fontFolder;
    const QString fileName = Folder.filePath(QStringLiteral("fonts.conf"));
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    const QString text = QString::fromLatin1(configuration)
                             .arg(fonts.toHtmlEscaped(), Folder.filePath(QStringLiteral("cache")));
    Valid = file.write(text.toUtf8()) > 0 && QFile::exists(fonts);
    qputenv("FONTCONFIG_FILE", QFile::encodeName(fileName));
}

GlyphPicture readGlyph(const QImage &image, QPoint origin, int cell)
{
    int bits = 0;
    for (int bit = 0; bit < 16; ++bit) {
        // The grid starts two sevenths of a cell to the right of the origin.
        const QPoint middle(origin.x() + bit % 4 * cell + (2 * cell + 3) / 7 + (cell - 1) / 2,
                            origin.y() - bit / 4 * cell - (cell + 1) / 2);
        if (image.valid(middle) && qGray(image.pixel(middle)) < 128)
            bits |= 1 << bit;
    }
    return {.code = bits & 0xFF, .font = bits >> 8 & 0x7F, .missing = (bits >> 15 & 1) == 1};
}

char *toString(const GlyphPicture &glyph)
{
    return qstrdup(qPrintable(QStringLiteral("code %1, font %2%3")
                                  .arg(glyph.code, 0, 16)
                                  .arg(glyph.font)
                                  .arg(glyph.missing ? QStringLiteral(", missing") : QString())));
}
