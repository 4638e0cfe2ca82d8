// Damaged and hostile symbol fonts: they give nothing or a copy of no great size, never a fault
// (the sanitizers look on).
#include "platform/SymbolEncoding.h"
#include "tests/support/Files.h"

#include <QtTest>
#include <ft2build.h>
#include FT_FREETYPE_H

namespace {

QByteArray fontFile(const char *name)
{
    return contentOf(QString(ZENDOVA_TEST_FONTS "/") + name);
}

/// Where the character map begins. The entries of the directory, from 12 on, hold a table's name,
/// checksum, offset and length, of 4 bytes each.
qsizetype mapAt(const QByteArray &font)
{
    return qFromBigEndian<quint32>(font.data() + font.indexOf("cmap") + 8);
}

/// All tables but the map are the whole file: harmless to read, but a copy would be many times as
/// big.
QByteArray bombOf(QByteArray font)
{
    const int tables = qFromBigEndian<quint16>(font.data() + 4);
    for (char *entry = font.data() + 12; entry < font.data() + 12 + 16 * tables; entry += 16) {
        if (QByteArray(entry, 4) == "cmap")
            continue;
        qToBigEndian<quint32>(0, entry + 8);
        qToBigEndian(static_cast<quint32>(font.size()), entry + 12);
    }
    return font;
}

/// What a reader of fonts finds for a character.
FT_UInt glyphOf(const QByteArray &font, FT_ULong character)
{
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    FT_UInt glyph = 0;
    if (FT_Init_FreeType(&library) == 0 &&
        FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte *>(font.data()),
                           static_cast<FT_Long>(font.size()), 0, &face) == 0 &&
        FT_Select_Charmap(face, FT_ENCODING_UNICODE) == 0)
        glyph = FT_Get_Char_Index(face, character);
    FT_Done_FreeType(library);
    return glyph;
}

} // namespace

class TestSymbolEncoding : public QObject
{
    Q_OBJECT

private slots:
    void refuses()
    {
        QVERIFY(symbolFontAsUnicode(Symbol, 0));
        QVERIFY(!symbolFontAsUnicode(bombOf(Symbol), 0));
        QVERIFY(!symbolFontAsUnicode(fontFile("latin.ttf"), 0)); // no symbol map
        QVERIFY(!symbolFontAsUnicode(fontFile("liar.ttf"), 0));  // a map longer than its table
        const qsizetype segments = mapAt(Symbol) + 12 + 6;
        for (const auto &[at, bytes] :
             {std::pair(segments, "\xFF\xFE"),
              {segments - 10, "\x7F\xFF\xFF\xFF"}, // map outside its table
              {12 + 12, "\xFF\xFF\xFF\xFF"}})      // length that wraps around
            QVERIFY(!symbolFontAsUnicode(QByteArray(Symbol).replace(at, qstrlen(bytes), bytes), 0));
        // Each cut is a buffer of its own, so that the sanitizer sees a read past its end.
        for (qsizetype length = 0; length < Symbol.size() - 4; ++length)
            QVERIFY(!symbolFontAsUnicode(QByteArray(Symbol.data(), length), 0));
    }

    /// A copy has a list of glyphs for each of its segments, so it is what is changed here.
    void segments()
    {
        const QByteArray copy = symbolFontAsUnicode(Symbol, 0).value_or(QByteArray());
        const FT_UInt glyphA = glyphOf(copy, 'A');
        QVERIFY(glyphA > 0);
        const qsizetype subtable = mapAt(copy) + 20;
        const auto numberAt = [&](qsizetype at) {
            return qFromBigEndian<quint16>(copy.data() + at);
        };
        QByteArray changed = copy;
        const auto put = [&](qsizetype at, quint16 number) {
            qToBigEndian(number, changed.data() + at);
        };
        const qsizetype twice = numberAt(subtable + 6), ends = subtable + 14;
        qsizetype place = 0; // of the segment of U+F020 to U+F0FF
        while (place < twice && numberAt(ends + place) != 0xF0FF)
            place += 2;
        QVERIFY(place < twice);
        const qsizetype delta = ends + 2 + 2 * twice + place, offset = delta + twice;

        // An offset of FFFF stands for no glyphs: the plain codes are taken.
        put(offset, 0xFFFF);
        auto again = symbolFontAsUnicode(changed, 0);
        QVERIFY(again);
        QCOMPARE(glyphOf(*again, 0xF041), glyphA);

        // A glyph of 0 stays 0, whatever is added to the others.
        changed = copy;
        put(delta, 1);
        put(offset + numberAt(offset) + 2 * ('A' - ' '), 0);
        qsizetype plain = 0; // and of the plain letters
        while (numberAt(ends + plain) < 'A')
            plain += 2;
        put(ends + 2 + 3 * twice + plain, 0xFFFF);
        again = symbolFontAsUnicode(changed, 0);
        QVERIFY(again);
        QCOMPARE(glyphOf(*again, 0xF041), 0U);
        QCOMPARE(glyphOf(*again, 0xF042), glyphOf(copy, 'B') + 1);
    }

private:
    const QByteArray Symbol = fontFile("symbol.ttf");
};

QTEST_APPLESS_MAIN(TestSymbolEncoding)
#include "tst_symbolencoding.moc"
