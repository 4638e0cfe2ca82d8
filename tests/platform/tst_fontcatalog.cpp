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

/// A character painted as a text control would. `cell` as for readGlyph.
GlyphPicture shown(QFont font, QChar character, int cell = 7)
{
    constexpr QPoint origin(8, 48);
    font.setPixelSize(cell == 7 ? 32 : 16);
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(origin, QString(character));
    painter.end();
    return readGlyph(image, origin, cell);
}

QFont fontOf(const QString &family)
{
    return FontCatalog::current().font(family);
}

} // namespace

class TestFontCatalog : public QObject
{
    Q_OBJECT

private slots:
    void lists();
    void shows_data();
    void shows();
    void styles();
    void everyCodeOfASymbolFont();
    void borrowsNoGlyphs();
};

void TestFontCatalog::lists()
{
    // Neither the damaged file, nor a replaced name whose replacement is not installed or is just
    // the common text font.
    QStringList listed;
    for (const FontFamily &family : FontCatalog::current().families())
        listed += QString("%1 %2").arg(family.name).arg(family.fontType);
    listed.sort();
    QCOMPARE(listed.join(", "),
             QString("Arial 4, Zt \"One\", Two 4, Zt Bitmap 1, Zt Bold Only 4, Zt Cyrillic 4, "
                     "Zt First 4, Zt Four 4, Zt Gaps 4, Zt Gone 24 4, Zt Italic Only 4, "
                     "Zt Latin 4, Zt Liar 4, Zt Maker [Foundry] 4, Zt Mixed 2, Zt Outline 2, "
                     "Zt Second 4, Zt Symbol 4, Zt Test 24 4, Zt Twin 4, Zt Variable 4, torn 4"));
    QVERIFY(FontCatalog::current().contains("ZT LATIN"));
}

void TestFontCatalog::shows_data()
{
    QTest::addColumn<int>("font"); // its number in make_fonts.py
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
                                       {"Zt Variable", 16},
                                       {"Zt First", 17},
                                       {"Zt Second", 18},
                                       {"Zt Mixed", 19},
                                       {"Zt Twin", 22},
                                       {"Arial", 1},
                                       {"Zt Gone 24", 1},
                                       {"Not There", 1}})
        QTest::newRow(family) << font;
}

void TestFontCatalog::shows()
{
    QFETCH(int, font);
    const QString family = QTest::currentDataTag();
    const GlyphPicture glyph = shown(fontOf(family), u'A', family == "Zt Bitmap" ? 4 : 7);
    QCOMPARE(glyph, (GlyphPicture{.code = font ? 'A' : 0, .font = font}));
}

void TestFontCatalog::styles()
{
    for (const int style : {0, 1, 2, 3}) {
        QFont font = fontOf("Zt Four");
        font.setBold(style & 1);
        font.setItalic(style & 2);
        QCOMPARE(shown(font, u'A'), (GlyphPicture{.code = 'A', .font = 8 + style}));
    }
    const FontCatalog &catalog = FontCatalog::current();
    for (const FontFamily &family : catalog.families()) {
        QCOMPARE(catalog.builtInBold(family.name), family.name == "Zt Bold Only");
        QCOMPARE(catalog.builtInItalic(family.name), family.name == "Zt Italic Only");
    }
}

void TestFontCatalog::everyCodeOfASymbolFont()
{
    for (int code = 32; code < 256; ++code) {
        const GlyphPicture expected{.code = code, .font = 3};
        const QChar character = CodePage::toUnicode(static_cast<quint8>(code));
        QCOMPARE(shown(fontOf("Zt Symbol"), character), expected);
        QCOMPARE(shown(fontOf("Zt Symbol"), QChar(0xF000 + code)), expected);
    }
}

void TestFontCatalog::borrowsNoGlyphs()
{
    const GlyphPicture missing{.font = 2, .missing = true};
    QCOMPARE(shown(fontOf("Zt Gaps"), u'B'), missing);
    QCOMPARE(shown(fontOf("Zt Gaps"), u'È'), missing);
    QCOMPARE(shown(fontOf("Zt Gaps"), u'\u009D'), (GlyphPicture{.code = 0x9D, .font = 2}));
    // The program's own text does, from a font that has them.
    QCOMPARE(shown(QFont("sans-serif"), u'Ж'), (GlyphPicture{.code = 0x16, .font = 21}));
}

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
    QByteArray renamed = contentOf(fonts.filePath("digits.ttf"));
    renamed.replace(QByteArray("\0T\0e\0s\0t", 8), QByteArray("\0G\0o\0n\0e", 8));
    const QString gone = writeFile(folder.filePath("gone.ttf"), renamed);

    const TestFonts testFonts(folder.path());
    FontCatalog catalog;
    QGuiApplication application(argc, argv);
    TestFontCatalog test;
    return testFonts.isValid() && QFile::remove(gone) ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontcatalog.moc"
