// The catalog against the test fonts: what it lists, and whether painted text shows the glyphs of
// the asked font and no others.
#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "tests/support/Files.h"
#include "tests/support/TestFonts.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QTest>

namespace {

constexpr QPoint origin(8, 48);

/// A character painted as a text control would.
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

QFont fontOf(const QString &family)
{
    return FontCatalog::current().font(family);
}

QFont fontOf(const QString &family, bool bold, bool italic)
{
    QFont font = fontOf(family);
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
        // Neither the damaged file, nor a replaced name whose replacement is not installed or is
        // just the common text font.
        QStringList listed;
        for (const FontFamily &family : FontCatalog::current().families())
            listed += QString("%1 %2").arg(family.name).arg(family.fontType);
        listed.sort();
        QCOMPARE(
            listed.join(", "),
            QString("Arial 4, Zt \"One\", Two 4, Zt Absurd 1, Zt Bitmap 1, Zt Blend 2, "
                    "Zt Bold Only 4, Zt Cyrillic 4, Zt Dense 1, Zt First 4, Zt Four 4, "
                    "Zt Gaps 4, Zt Gone 24 4, Zt Italic Only 4, Zt Latin 4, Zt Liar 4, "
                    "Zt Maker [Foundry] 4, Zt Mixed 2, Zt Old Light 4, Zt Outline 2, "
                    "Zt Second 4, Zt Symbol 4, Zt Tall 1, Zt Test 24 4, Zt Twin 4, Zt Variable 4, "
                    "Zt Variable Light 4, Zt Vast 4, Zt Wide 4, Zt Wide Condensed 4, "
                    "Zt Wide Extra Light 4, Zt Wide Light 4, torn 4"));
        QVERIFY(FontCatalog::current().contains("ZT LATIN"));
    }

    void shows()
    {
        // A family and its number in make_fonts.py.
        for (const auto &[family, font] : {std::pair("Zt Latin", 1),
                                           {"Zt Gaps", 2},
                                           {"Zt Bold Only", 4},
                                           {"ZT TEST 24", 5},
                                           {"Zt Outline", 6},
                                           {"Zt Bitmap", 7},
                                           {"torn", 0},
                                           {"Zt Liar", 12},
                                           {"Zt Maker [Foundry]", 14},
                                           {"Zt \"One\", Two", 15},
                                           {"Zt First", 17},
                                           {"Zt Second", 18},
                                           {"Zt Mixed", 19},
                                           {"Zt Absurd", 20},
                                           {"Zt Twin", 22},
                                           {"Arial", 1},
                                           {"Not There", 1}}) {
            const GlyphPicture glyph = shown(fontOf(family), u'A', font == 7 || font == 20 ? 4 : 7);
            QCOMPARE(glyph, (GlyphPicture{.code = font ? 'A' : 0, .font = font}));
        }
    }

    void styles()
    {
        for (const int style : {0, 1, 2, 3}) {
            const QFont font = fontOf("Zt Four", style & 1, style & 2);
            QCOMPARE(shown(font, u'A'), (GlyphPicture{.code = 'A', .font = 8 + style}));
        }
        const FontCatalog &catalog = FontCatalog::current();
        for (const FontFamily &family : catalog.families()) {
            QCOMPARE(catalog.builtInBold(family.name), family.name == "Zt Bold Only");
            QCOMPARE(catalog.builtInItalic(family.name), family.name == "Zt Italic Only");
        }
    }

    void facesBeyondFourStyles()
    {
        fontOf("Zt Wide Condensed"); // which could lend its faces to all others
        // Regular and bold: numbers in make_fonts.py; the variable font's are made of its 16.
        for (const auto &[family, regular, bold] : {std::tuple("Zt Wide", 23, 23),
                                                    {"Zt Wide Condensed", 24, 25},
                                                    {"Zt Wide Light", 26, 29},
                                                    {"Zt Wide Extra Light", 27, 27},
                                                    {"Zt Variable", 32, 64},
                                                    {"Zt Variable Light", 16, 16},
                                                    {"Zt Old Light", 28, 28}}) {
            QCOMPARE(shown(fontOf(family), u'A'), (GlyphPicture{.code = 'A', .font = regular}));
            QCOMPARE(shown(fontOf(family, true, false), u'A').font, bold);
        }
    }

    void traits()
    {
        const FontCatalog &catalog = FontCatalog::current();
        QStringList told;
        for (std::size_t i = 0; i < catalog.families().size(); ++i) {
            const FontTraits traits = catalog.traits(static_cast<int>(i));
            if (traits.weight != 400 || traits.italic || traits.symbol)
                told += QString("%1 %2%3%4")
                            .arg(catalog.families()[i].name)
                            .arg(traits.weight)
                            .arg(traits.italic ? " italic" : "", traits.symbol ? " symbol" : "");
        }
        told.sort();
        QCOMPARE(told.join(", "),
                 QString("Zt Bold Only 700, Zt Italic Only 400 italic, Zt Liar 400 symbol, "
                         "Zt Old Light 300, Zt Symbol 400 symbol, Zt Variable Light 300, "
                         "Zt Wide Extra Light 200, Zt Wide Light 300"));
    }

    /// One and the same box for every code, whatever the size and style: no other font's glyphs.
    void cannotBeDrawn()
    {
        for (const char *family : {"Zt Gone 24", "Zt Dense", "Zt Tall", "Zt Vast"})
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

    void everyCodeOfASymbolFont()
    {
        for (int code = 32; code < 256; ++code) {
            const GlyphPicture expected{.code = code, .font = 3};
            const QChar character = CodePage::toUnicode(static_cast<quint8>(code));
            QCOMPARE(shown(fontOf("Zt Symbol"), character), expected);
            QCOMPARE(shown(fontOf("Zt Symbol"), QChar(0xF000 + code)), expected);
        }
    }

    void lendsNoGlyphs()
    {
        fontOf("Zt Outline");
        for (const char16_t character : {u'\u4E2D', u'\uFFFD', u'\u0416'}) // that no font has
            QVERIFY(shown(QFont("sans-serif"), character).font != 6);
    }

    void borrowsNoGlyphs()
    {
        const GlyphPicture missing{.font = 2, .missing = true};
        QCOMPARE(shown(fontOf("Zt Gaps"), u'B'), missing);
        QCOMPARE(shown(fontOf("Zt Gaps"), u'È'), missing);
        QCOMPARE(shown(fontOf("Zt Gaps"), u'\u009D'), (GlyphPicture{.code = 0x9D, .font = 2}));
        // The program's own text does, from a font that has them.
        QCOMPARE(shown(QFont("sans-serif"), u'Ж'), (GlyphPicture{.code = 0x16, .font = 21}));
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
    writeFile(folder.filePath("absurd.bdf"),
              bitmap("Absurd")
                  .replace("FONTBOUNDINGBOX 16 16", "FONTBOUNDINGBOX 32767 32767")
                  .replace("STARTPROPERTIES 7", "STARTPROPERTIES 8\nPIXEL_SIZE 0"));

    const TestFonts testFonts(folder.path());
    FontCatalog catalog;
    QGuiApplication application(argc, argv);
    TestFontCatalog test;
    return testFonts.isValid() && QFile::remove(gone) ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontcatalog.moc"
