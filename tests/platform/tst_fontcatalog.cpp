// The catalog against the test fonts: what it lists, and whether painted text shows the glyphs of
// the asked font and no others.
#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "tests/support/Files.h"
#include "tests/support/TestFonts.h"

#include <QtGui>
#include <QtTest>

namespace {

constexpr QPoint origin(8, 48);

QImage painted(QFont font, QChar character, int pixels)
{
    font.setPixelSize(pixels);
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(origin, QString(character));
    painter.end();
    return image;
}

/// `cell` as for readGlyph.
GlyphPicture shown(const QFont &font, QChar character, int cell = 7)
{
    return readGlyph(painted(font, character, cell == 7 ? 32 : 16), origin, cell);
}

QFont fontOf(const QString &family, bool bold = false, bool italic = false)
{
    QFont font = FontCatalog::current().font(family);
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

/// A file of tests/fonts with another name of the same length in it, as TrueType fonts hold names
/// and as others do.
QByteArray renamed(const char *file, const QByteArray &from, const QByteArray &to)
{
    const auto wide = [](const QByteArray &latin) {
        QByteArray bytes;
        for (const char letter : latin)
            bytes.append('\0').append(letter);
        return bytes;
    };
    return contentOf(QDir(ZENDOVA_TEST_FONTS).filePath(file))
        .replace(wide(from), wide(to))
        .replace(from, to);
}

} // namespace

class TestFontCatalog : public QObject
{
    Q_OBJECT

private slots:
    void lists()
    {
        // Name, type, and the number of the font whose glyph is shown (see make_fonts.py); then
        // what is not regular. Neither the damaged file, nor a replaced name whose replacement is
        // not installed or is just the common text font.
        const FontCatalog &catalog = FontCatalog::current();
        QStringList listed;
        for (std::size_t i = 0; i < catalog.families().size(); ++i) {
            const auto &[name, type] = catalog.families()[i];
            const GlyphPicture glyph = shown(fontOf(name), u'A', type == 1 ? 4 : 7);
            const FontTraits traits = catalog.traits(static_cast<int>(i));
            listed +=
                QString("%1 %2 %3").arg(name).arg(type).arg(glyph.code == 'A' ? glyph.font : 0) +
                (traits.weight == 400 ? "" : QString(" %1").arg(traits.weight)) +
                (traits.italic ? " italic" : "") + (traits.symbol ? " symbol" : "") +
                (catalog.builtInBold(name) ? " always bold" : "") +
                (catalog.builtInItalic(name) ? " always italic" : "");
        }
        listed.sort();
        const QString expected =
            "Arial 4 1, Zt \"One\", Two 4 15, Zt Absurd 1 20, Zt Bitmap 1 7, Zt Blend 2 19, "
            "Zt Bold Only 4 4 700 always bold, Zt Cyrillic 4 0, Zt Dense 1 0, Zt First 4 17, "
            "Zt Four 4 8, Zt Gaps 4 2, Zt Gone 24 4 0, Zt Italic Only 4 13 italic always italic, "
            "Zt Latin 4 1, Zt Liar 4 12 symbol, Zt Maker [Foundry] 4 14, Zt Mixed 2 19, "
            "Zt Old Light 4 28 300, Zt Outline 2 6, Zt Roam 4 0, Zt Second 4 18, Zt Steep 1 0, "
            "Zt Symbol 4 3 symbol, Zt Tall 1 0, Zt Test 24 4 5, Zt Twin 4 22, Zt Variable 4 32, "
            "Zt Variable Light 4 16 300, Zt Vast 4 0, Zt Wide 4 23, Zt Wide Condensed 4 24, "
            "Zt Wide Extra Light 4 27 200, Zt Wide Light 4 26 300, torn 4 0";
        QCOMPARE(listed.join(", "), expected);
        // A name is found however it is written, and replaced where it is not there.
        QVERIFY(catalog.contains("ZT LATIN"));
        QCOMPARE(shown(fontOf("ZT TEST 24"), u'A').font, 5);
        QCOMPARE(shown(fontOf("Not There"), u'A').font, 1);
    }

    void styles()
    {
        for (const int style : {0, 1, 2, 3}) {
            const QFont font = fontOf("Zt Four", style & 1, style & 2);
            QCOMPARE(shown(font, u'A'), (GlyphPicture{.code = 'A', .font = 8 + style}));
        }
        fontOf("Zt Wide Condensed"); // which could lend its faces to all others
        // Regular and bold: numbers in make_fonts.py; the variable font's are made of its 16.
        const std::tuple<const char *, int, int> rows[] = {
            {"Zt Wide", 23, 23},       {"Zt Wide Condensed", 24, 25},
            {"Zt Wide Light", 26, 29}, {"Zt Wide Extra Light", 27, 27},
            {"Zt Variable", 32, 64},   {"Zt Variable Light", 16, 16},
            {"Zt Old Light", 28, 28}};
        for (const auto &[family, regular, bold] : rows) {
            QCOMPARE(shown(fontOf(family), u'A'), (GlyphPicture{.code = 'A', .font = regular}));
            QCOMPARE(shown(fontOf(family, true, false), u'A').font, bold);
        }
    }

    /// One and the same box for every code, whatever the size and style: no other font's glyphs.
    void cannotBeDrawn()
    {
        for (const char *family :
             {"Zt Gone 24", "Zt Dense", "Zt Tall", "Zt Steep", "Zt Vast", "Zt Roam"})
            for (const int pixels : {11, 16, 32})
                for (const int style : {0, 1, 2, 3}) {
                    const QFont font = fontOf(family, style & 1, style & 2);
                    const QImage box = painted(font, u'A', pixels);
                    QImage empty = box;
                    empty.fill(Qt::white);
                    QVERIFY(box != empty);
                    for (int code = 33; code < 256; ++code)
                        QVERIFY2(code == 0xAD || painted(font, CodePage::toUnicode(quint8(code)),
                                                         pixels) == box,
                                 family);
                }
    }

    void neitherLendsNorBorrowsGlyphs()
    {
        fontOf("Zt Outline");
        for (const char16_t character : {u'\u4E2D', u'\uFFFD', u'\u0416'}) // that no font has
            QVERIFY(shown(QFont("sans-serif"), character).font != 6);
        const GlyphPicture missing{.font = 2, .missing = true};
        QCOMPARE(shown(fontOf("Zt Gaps"), u'B'), missing);
        QCOMPARE(shown(fontOf("Zt Gaps"), u'È'), missing);
        QCOMPARE(shown(fontOf("Zt Gaps"), u'\u009D'), (GlyphPicture{.code = 0x9D, .font = 2}));
        // The program's own text does, from a font that has them.
        QCOMPARE(shown(QFont("sans-serif"), u'Ж'), (GlyphPicture{.code = 0x16, .font = 21}));
        // There is one for each script, an upright regular one if any: see main.
        for (const auto &[script, family] : {std::pair(QFontDatabase::Hebrew, "Zt Test 24"),
                                             {QFontDatabase::Thai, "Zt Twin"},
                                             {QFontDatabase::Georgian, "Zt Italic Only"}})
            QCOMPARE(QFontDatabase::families(script), QStringList(family));
        // A font of signs has them by the plain codes and by its own.
        for (const char16_t character : {u'\u20AC', u'\uF080'})
            QCOMPARE(shown(fontOf("Zt Symbol"), character), (GlyphPicture{.code = 128, .font = 3}));
    }
};

int main(int argc, char *argv[])
{
    const QTemporaryDir folder;
    const QDir fonts(ZENDOVA_TEST_FONTS);
    for (const QString &name : fonts.entryList(QDir::Files))
        QFile::copy(fonts.filePath(name), folder.filePath(name));
    // Half a file has tables enough to count as a font. The other, under a new name of the same
    // length, is gone once the catalog was read.
    const QByteArray whole = contentOf(fonts.filePath("latin.ttf"));
    writeFile(folder.filePath("torn.ttf"), whole.first(whole.size() / 2));
    const QString gone =
        writeFile(folder.filePath("gone.ttf"), renamed("digits.ttf", "Test", "Gone"));
    const auto bitmap = [](const char *name) { return renamed("mixed.bdf", "Mixed", name); };
    // A family in two formats, as "Zt Mixed" is, read in the other order.
    writeFile(folder.filePath("blend-1.otf"), renamed("mixed.otf", "Mixed", "Blend"));
    writeFile(folder.filePath("blend-2.bdf"), bitmap("Blend"));
    // Eight bits a pixel; a glyph too high; and properties that contradict the glyphs.
    writeFile(folder.filePath("dense.bdf"), bitmap("Dense").replace("SIZE 16", "SIZE 0 16"));
    writeFile(folder.filePath("tall.bdf"), bitmap("Tall").replace("BBX 16 16", "BBX 16 300"));
    writeFile(folder.filePath("steep.bdf"), bitmap("Steep").replace("ASCENT 16", "ASCENT 20000"));
    // Too wide, and with tables of codes for the Macintosh alone.
    const QByteArray unicode("\0\0\0\3\0\0\0\x14\0\3\0\1", 12);
    const QByteArray macintosh("\0\1\0\0\0\0\0\x14\0\1\0\0", 12);
    writeFile(folder.filePath("roam.ttf"),
              renamed("vast.ttf", "Vast", "Roam").replace(unicode, macintosh));
    writeFile(folder.filePath("absurd.bdf"),
              bitmap("Absurd")
                  .replace("FONTBOUNDINGBOX 16 16", "FONTBOUNDINGBOX 32767 32767")
                  .replace("STARTPROPERTIES 7", "STARTPROPERTIES 8\nPIXEL_SIZE 0"));

    const TestFonts testFonts(folder.path());
    const QString configuration = qEnvironmentVariable("FONTCONFIG_FILE");
    QByteArray rules;
    for (const auto &[family, language] : {std::pair("Zt Bold Only", "th"),
                                           {"Zt Test 24", "he"},
                                           {"Zt Gaps", "he"},
                                           {"Zt Twin", "th"},
                                           {"Zt Italic Only", "ka"}})
        rules += "<match target='scan'><test name='family'><string>" + QByteArray(family) +
                 "</string></test><edit name='lang'><langset><string>" + language +
                 "</string></langset></edit></match>";
    writeFile(configuration,
              contentOf(configuration).replace("</fontconfig>", rules + "</fontconfig>"));
    FontCatalog catalog;
    QGuiApplication application(argc, argv);
    TestFontCatalog test;
    return testFonts.isValid() && QFile::remove(gone) ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontcatalog.moc"
