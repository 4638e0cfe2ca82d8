// The rewritten character map: what it maps, and that damaged or hostile files give nothing or a
// font that can be read, never a fault (the sanitizers look on).
#include "platform/CodePage.h"
#include "platform/SymbolEncoding.h"

#include <QFile>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QRawFont>
#include <QTest>
#include <QtEndian>

namespace {

QByteArray fontFile(const char *name)
{
    QFile file(QStringLiteral(ZENDOVA_TEST_FONTS "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Where a table's bytes begin; by the directory, which starts at 12.
qsizetype tableAt(const QByteArray &font, const char *name)
{
    const int count = qFromBigEndian<quint16>(font.data() + 4);
    for (int i = 0; i < count; ++i)
        if (font.sliced(12 + 16 * i, 4) == name)
            return qFromBigEndian<quint32>(font.data() + 12 + 16 * i + 8);
    return -1;
}

quint32 sumOf(const QByteArray &bytes)
{
    quint32 sum = 0;
    for (qsizetype i = 0; i < bytes.size(); i += 4)
        sum += qFromBigEndian<quint32>(bytes.data() + i);
    return sum;
}

/// The font as the only face of a collection that says it has two.
QByteArray collectionOf(const QByteArray &font)
{
    QByteArray header("ttcf\0\1\0\0\0\0\0\2\0\0\0\x14\xFF\xFF\xFF\0", 20);
    QByteArray moved = font;
    const int count = qFromBigEndian<quint16>(font.data() + 4);
    for (int i = 0; i < count; ++i) {
        char *offset = moved.data() + 12 + 16 * i + 8;
        qToBigEndian<quint32>(qFromBigEndian<quint32>(offset) + 20, offset);
    }
    return header + moved;
}

} // namespace

class TestSymbolEncoding : public QObject
{
    Q_OBJECT

private slots:
    void mapsCodesAndCharacters();
    void keepsTheFontWhole();
    void takesAFaceOfACollection();
    void refuses_data();
    void refuses();
    void truncatedAnywhere();
    void mutated();
};

void TestSymbolEncoding::mapsCodesAndCharacters()
{
    const QByteArray original = fontFile("symbol.ttf");
    const auto copy = symbolFontAsUnicode(original, 0);
    QVERIFY(copy);
    const QRawFont before(original, 32), after(*copy, 32);
    QVERIFY(after.isValid());
    for (int code = 32; code < 256; ++code) {
        const auto expected = before.glyphIndexesForString(QString(QChar(0xF000 + code)));
        QVERIFY(expected.value(0) != 0);
        const QChar character = CodePage::toUnicode(static_cast<quint8>(code));
        QCOMPARE(after.glyphIndexesForString(QString(character)), expected);
        QCOMPARE(after.glyphIndexesForString(QString(QChar(0xF000 + code))), expected);
    }
    QVERIFY(!after.supportsCharacter(QChar(0x100)));
}

void TestSymbolEncoding::keepsTheFontWhole()
{
    const QByteArray original = fontFile("symbol.ttf");
    const QByteArray copy = symbolFontAsUnicode(original, 0).value_or(QByteArray());
    // The whole file sums up to the format's magic number, each table to what the directory says.
    QCOMPARE(sumOf(copy), 0xB1B0AFBAu);
    const QRawFont before(original, 32), after(copy, 32);
    for (const char *name : {"glyf", "loca", "hmtx", "name", "OS/2"})
        QCOMPARE(after.fontTable(name), before.fontTable(name));
    const int count = qFromBigEndian<quint16>(copy.data() + 4);
    for (int i = 0; i < count; ++i) {
        const char *entry = copy.data() + 12 + 16 * i;
        if (QByteArray(entry, 4) == "head")
            continue;
        const auto at = qFromBigEndian<quint32>(entry + 8);
        const auto length = (qFromBigEndian<quint32>(entry + 12) + 3) / 4 * 4;
        QCOMPARE(sumOf(copy.sliced(at, length)), qFromBigEndian<quint32>(entry + 4));
    }
}

void TestSymbolEncoding::takesAFaceOfACollection()
{
    const QByteArray original = fontFile("symbol.ttf");
    QCOMPARE(symbolFontAsUnicode(collectionOf(original), 0), symbolFontAsUnicode(original, 0));
    QVERIFY(!symbolFontAsUnicode(collectionOf(original), 1));
    QVERIFY(!symbolFontAsUnicode(collectionOf(original), 2));
    QVERIFY(!symbolFontAsUnicode(collectionOf(original), -1));
}

void TestSymbolEncoding::refuses_data()
{
    QTest::addColumn<QByteArray>("font");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("This is no font at all.");
    QTest::newRow("bitmap font") << fontFile("bitmap.bdf");
    QTest::newRow("no symbol map") << fontFile("latin.ttf");
    QTest::newRow("map longer than its table") << fontFile("liar.ttf");

    const QByteArray symbol = fontFile("symbol.ttf");
    const qsizetype subtable = tableAt(symbol, "cmap") + 12;
    const auto with = [&](qsizetype at, const QByteArray &bytes) {
        QByteArray changed = symbol;
        return changed.replace(at, bytes.size(), bytes);
    };
    QTest::newRow("another format") << with(subtable, QByteArray("\0\6", 2));
    QTest::newRow("no segments") << with(subtable + 6, QByteArray("\0\0", 2));
    QTest::newRow("more segments than there is room") << with(subtable + 6, "\xFF\xFE");
    // The offsets of the segments to their glyphs come after three lists of segments.
    const int doubledSegments = qFromBigEndian<quint16>(symbol.data() + subtable + 6);
    QTest::newRow("glyphs outside the map")
        << with(subtable + 16 + 3 * doubledSegments, QByteArray("\xFF\x00", 2));
    QTest::newRow("map outside the table") << with(subtable - 4, "\x7F\xFF\xFF\xFF");
    QTest::newRow("more tables than there are") << with(4, "\xFF\xFF");
    QTest::newRow("table outside the file") << with(12 + 8, "\xFF\xFF\xFF\xF0");
    QTest::newRow("table that wraps around") << with(12 + 12, "\xFF\xFF\xFF\xFF");

    // All tables are the whole file: harmless to read, but a copy would be many times as big.
    QByteArray bomb = symbol;
    const int count = qFromBigEndian<quint16>(symbol.data() + 4);
    for (int i = 0; i < count; ++i) {
        if (symbol.sliced(12 + 16 * i, 4) == "cmap")
            continue;
        qToBigEndian<quint32>(0, bomb.data() + 12 + 16 * i + 8);
        qToBigEndian(static_cast<quint32>(symbol.size()), bomb.data() + 12 + 16 * i + 12);
    }
    QTest::newRow("copy would grow") << bomb;
}

void TestSymbolEncoding::refuses()
{
    QFETCH(QByteArray, font);
    QVERIFY(!symbolFontAsUnicode(font, 0));
}

void TestSymbolEncoding::truncatedAnywhere()
{
    // Each cut is a buffer of its own, so that the sanitizer sees a read past its end.
    const QByteArray symbol = fontFile("symbol.ttf");
    for (qsizetype length = 0; length < symbol.size() - 4; ++length) {
        const QByteArray cut(symbol.data(), length);
        QVERIFY2(!symbolFontAsUnicode(cut, 0), qPrintable(QString::number(length)));
    }
}

void TestSymbolEncoding::mutated()
{
    const QByteArray symbol = fontFile("symbol.ttf");
    const qsizetype cmap = tableAt(symbol, "cmap");
    QRandomGenerator random(20);
    int readable = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray changed = symbol;
        // The directory and the character map are what is read.
        for (int i = 0; i < 1 + round % 4; ++i) {
            const qsizetype at =
                random.bounded(2) ? random.bounded(200) : cmap + random.bounded(80);
            changed[at] = static_cast<char>(random.bounded(256));
        }
        const auto copy = symbolFontAsUnicode(changed, 0);
        readable += copy.has_value();
        QVERIFY(!copy || copy->size() <= 2 * symbol.size() + 4096);
    }
    QVERIFY(readable > 0 && readable < 3000);
}

QTEST_MAIN(TestSymbolEncoding)
#include "tst_symbolencoding.moc"
