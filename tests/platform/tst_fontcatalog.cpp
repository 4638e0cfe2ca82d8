// The catalog against the test fonts: what it lists, and whether painted text shows the glyphs of
// the asked font and no others.
#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "tests/support/TestFonts.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QTest>

namespace {

constexpr QPoint origin(8, 48);

QImage blankPicture()
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// A character painted as a text control would.
GlyphPicture shown(QFont font, QChar character, int cell = 7)
{
    font.setPixelSize(cell == 7 ? 32 : 16);
    QImage image = blankPicture();
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(origin, QString(character));
    painter.end();
    return readGlyph(image, origin, cell);
}

GlyphPicture shown(const QString &family, QChar character)
{
    return shown(FontCatalog::current().font(family), character);
}

QChar character(int code)
{
    return CodePage::toUnicode(static_cast<quint8>(code));
}

} // namespace

class TestFontCatalog : public QObject
{
    Q_OBJECT

private slots:
    void lists_data();
    void lists();
    void listsNothingElse();
    void builtInStyles();
    void shows_data();
    void shows();
    void stylesUseTheirOwnFaces();
    void everyCodeOfASymbolFont_data();
    void everyCodeOfASymbolFont();
    void missingCodesAreNotBorrowed();
    void bitmapFont();
    void programTextFindsOtherFonts();
    void unreadableFileShowsATextFont();
    void tornFileDoesNoHarm();
};

void TestFontCatalog::lists_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("fontType");
    QTest::newRow("TrueType") << "Zt Latin" << 4;
    QTest::newRow("several styles, one entry") << "Zt Four" << 4;
    QTest::newRow("variable, without its wrapper") << "Zt Variable" << 4;
    QTest::newRow("first of a collection") << "Zt First" << 4;
    QTest::newRow("second of a collection") << "Zt Second" << 4;
    QTest::newRow("CFF outlines") << "Zt Outline" << 2;
    QTest::newRow("bitmap") << "Zt Bitmap" << 1;
    QTest::newRow("CFF and bitmap") << "Zt Mixed" << 2;
    QTest::newRow("comma and quotes") << "Zt \"One\", Two" << 4;
    QTest::newRow("brackets") << "Zt Maker [Foundry]" << 4;
    QTest::newRow("replaced by configuration") << "Arial" << 4;
}

void TestFontCatalog::lists()
{
    QFETCH(QString, family);
    QFETCH(int, fontType);
    int found = 0;
    for (const FontFamily &entry : FontCatalog::current().families()) {
        if (entry.name != family)
            continue;
        ++found;
        QCOMPARE(entry.fontType, fontType);
    }
    QCOMPARE(found, 1);
    QVERIFY(FontCatalog::current().contains(family.toUpper()));
}

void TestFontCatalog::listsNothingElse()
{
    // Neither the damaged file (the torn one has tables enough to count as a font), nor a replaced
    // name whose replacement is not installed or is just the common text font.
    QStringList names;
    for (const FontFamily &entry : FontCatalog::current().families())
        names += entry.name;
    names.sort();
    QCOMPARE(names, QStringList({"Arial",
                                 "Zt \"One\", Two",
                                 "Zt Bitmap",
                                 "Zt Bold Only",
                                 "Zt Cyrillic",
                                 "Zt First",
                                 "Zt Four",
                                 "Zt Gaps",
                                 "Zt Gone 24",
                                 "Zt Italic Only",
                                 "Zt Latin",
                                 "Zt Liar",
                                 "Zt Maker [Foundry]",
                                 "Zt Mixed",
                                 "Zt Outline",
                                 "Zt Second",
                                 "Zt Symbol",
                                 "Zt Test 24",
                                 "Zt Twin",
                                 "Zt Variable",
                                 "torn"}));
    QVERIFY(!FontCatalog::current().contains(QStringLiteral("Courier New")));
}

void TestFontCatalog::builtInStyles()
{
    const FontCatalog &catalog = FontCatalog::current();
    QStringList bold, italic;
    for (const FontFamily &family : catalog.families()) {
        if (catalog.builtInBold(family.name))
            bold += family.name;
        if (catalog.builtInItalic(family.name))
            italic += family.name;
    }
    QCOMPARE(bold, QStringList("Zt Bold Only"));
    QCOMPARE(italic, QStringList("Zt Italic Only"));
    QVERIFY(!catalog.builtInBold(QStringLiteral("Not There")));
}

void TestFontCatalog::shows_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("font");
    QTest::newRow("text font of the program") << "Zt Latin" << 1;
    QTest::newRow("added when asked for") << "Zt Gaps" << 2;
    QTest::newRow("bold only") << "Zt Bold Only" << 4;
    QTest::newRow("name ends in a digit") << "Zt Test 24" << 5;
    QTest::newRow("other case") << "zt test 24" << 5;
    QTest::newRow("CFF") << "Zt Outline" << 6;
    QTest::newRow("regular of four") << "Zt Four" << 8;
    QTest::newRow("symbol font whose map lies") << "Zt Liar" << 12;
    QTest::newRow("brackets") << "Zt Maker [Foundry]" << 14;
    QTest::newRow("comma and quotes") << "Zt \"One\", Two" << 15;
    QTest::newRow("variable") << "Zt Variable" << 16;
    QTest::newRow("first of a collection") << "Zt First" << 17;
    QTest::newRow("second of a collection") << "Zt Second" << 18;
    QTest::newRow("outlines before bitmaps") << "Zt Mixed" << 19;
    QTest::newRow("replaced") << "Arial" << 1;
    QTest::newRow("named in two languages") << "Zt Twin" << 22;
    QTest::newRow("not installed") << "Not There" << 1;
}

void TestFontCatalog::shows()
{
    QFETCH(QString, family);
    QFETCH(int, font);
    QCOMPARE(shown(family, u'A'), (GlyphPicture{.code = 'A', .font = font}));
}

void TestFontCatalog::stylesUseTheirOwnFaces()
{
    for (const bool bold : {false, true}) {
        for (const bool italic : {false, true}) {
            QFont font = FontCatalog::current().font(QStringLiteral("Zt Four"));
            font.setBold(bold);
            font.setItalic(italic);
            QCOMPARE(shown(font, u'A'),
                     (GlyphPicture{.code = 'A', .font = 8 + (bold ? 1 : 0) + (italic ? 2 : 0)}));
        }
    }
}

void TestFontCatalog::everyCodeOfASymbolFont_data()
{
    QTest::addColumn<int>("code");
    for (int code = 32; code < 256; ++code)
        QTest::addRow("%02X", code) << code;
}

void TestFontCatalog::everyCodeOfASymbolFont()
{
    QFETCH(int, code);
    const GlyphPicture expected{.code = code, .font = 3};
    const QFont font = FontCatalog::current().font(QStringLiteral("Zt Symbol"));
    QCOMPARE(shown(font, character(code)), expected);
    QCOMPARE(shown(font, QChar(0xF000 + code)), expected);
}

void TestFontCatalog::missingCodesAreNotBorrowed()
{
    const GlyphPicture missing{.font = 2, .missing = true};
    QCOMPARE(shown(QStringLiteral("Zt Gaps"), u'B'), missing);
    QCOMPARE(shown(QStringLiteral("Zt Gaps"), character(200)), missing);
    QCOMPARE(shown(QStringLiteral("Zt Gaps"), character(0x9D)),
             (GlyphPicture{.code = 0x9D, .font = 2}));
}

void TestFontCatalog::bitmapFont()
{
    const QFont font = FontCatalog::current().font(QStringLiteral("Zt Bitmap"));
    QCOMPARE(shown(font, u'K', 4), (GlyphPicture{.code = 'K', .font = 7}));
}

void TestFontCatalog::programTextFindsOtherFonts()
{
    // What the text font lacks comes from an installed font that has it, chosen at the start.
    QFont font(QStringLiteral("sans-serif"));
    QCOMPARE(shown(font, u'Ж'), (GlyphPicture{.code = 0x16, .font = 21}));
}

void TestFontCatalog::unreadableFileShowsATextFont()
{
    // The folder of the fonts is the temporary one that main() made.
    QVERIFY(QFile::remove(QString::fromLocal8Bit(qgetenv("ZT_FONTS")) + "/gone.ttf"));
    QCOMPARE(shown(QStringLiteral("Zt Gone 24"), u'A'), (GlyphPicture{.code = 'A', .font = 1}));
}

void TestFontCatalog::tornFileDoesNoHarm()
{
    QFont font = FontCatalog::current().font(QStringLiteral("torn"));
    for (const bool bold : {false, true}) {
        font.setBold(bold);
        QCOMPARE(shown(font, u'A').font, 0);
    }
    // And the next font is not disturbed.
    QCOMPARE(shown(QStringLiteral("Zt Latin"), u'A').font, 1);
}

int main(int argc, char *argv[])
{
    QTemporaryDir folder;
    const QDir fonts(QStringLiteral(ZENDOVA_TEST_FONTS));
    for (const QString &name : fonts.entryList(QDir::Files))
        QFile::copy(fonts.filePath(name), folder.filePath(name));
    // A font of the same length of name, to be removed once the catalog was read.
    QFile source(fonts.filePath(QStringLiteral("digits.ttf")));
    QFile target(folder.filePath(QStringLiteral("gone.ttf")));
    if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly))
        return 1;
    target.write(
        source.readAll().replace(QByteArray("\0T\0e\0s\0t", 8), QByteArray("\0G\0o\0n\0e", 8)));
    target.close();
    QFile whole(fonts.filePath(QStringLiteral("latin.ttf")));
    QFile torn(folder.filePath(QStringLiteral("torn.ttf")));
    if (!whole.open(QIODevice::ReadOnly) || !torn.open(QIODevice::WriteOnly))
        return 1;
    torn.write(whole.readAll().first(whole.size() / 2));
    torn.close();
    qputenv("ZT_FONTS", folder.path().toLocal8Bit());

    const TestFonts testFonts(folder.path());
    FontCatalog catalog;
    QGuiApplication application(argc, argv);
    TestFontCatalog test;
    return testFonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#include "tst_fontcatalog.moc"
