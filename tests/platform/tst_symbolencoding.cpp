// Damaged and hostile symbol fonts: they give nothing or a copy of no great size, never a fault
// (the sanitizers look on).
#include "platform/SymbolEncoding.h"
#include "tests/support/Files.h"

#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

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

} // namespace

class TestSymbolEncoding : public QObject
{
    Q_OBJECT

private slots:
    void refuses();
    void truncatedAnywhere();
    void mutated();

private:
    const QByteArray Symbol = fontFile("symbol.ttf");
};

void TestSymbolEncoding::refuses()
{
    QVERIFY(symbolFontAsUnicode(Symbol, 0));
    QVERIFY(!symbolFontAsUnicode(bombOf(Symbol), 0));
    QVERIFY(!symbolFontAsUnicode(fontFile("latin.ttf"), 0)); // no symbol map
    QVERIFY(!symbolFontAsUnicode(fontFile("liar.ttf"), 0));  // a map longer than its table
    const qsizetype segments = mapAt(Symbol) + 12 + 6;
    for (const auto &[at, bytes] : {std::pair(segments, "\xFF\xFE"),
                                    {segments - 10, "\x7F\xFF\xFF\xFF"}, // map outside its table
                                    {12 + 12, "\xFF\xFF\xFF\xFF"}}) {    // length that wraps around
        const QByteArray changed = QByteArray(Symbol).replace(at, qstrlen(bytes), bytes);
        QVERIFY2(!symbolFontAsUnicode(changed, 0), qPrintable(QString::number(at)));
    }
}

void TestSymbolEncoding::truncatedAnywhere()
{
    // Each cut is a buffer of its own, so that the sanitizer sees a read past its end.
    for (qsizetype length = 0; length < Symbol.size() - 4; ++length)
        QVERIFY2(!symbolFontAsUnicode(QByteArray(Symbol.data(), length), 0),
                 qPrintable(QString::number(length)));
}

void TestSymbolEncoding::mutated()
{
    QRandomGenerator random(20);
    int readable = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray changed = Symbol;
        // The directory and the character map are what is read.
        for (int i = 0; i < 1 + round % 4; ++i) {
            const int offset = random.bounded(200);
            changed[random.bounded(2) ? offset : mapAt(Symbol) + offset % 80] =
                static_cast<char>(random.bounded(256));
        }
        const auto copy = symbolFontAsUnicode(changed, 0);
        readable += copy.has_value();
        QVERIFY(!copy || copy->size() <= 2 * Symbol.size() + 4096);
    }
    QVERIFY(readable > 0 && readable < 3000);
}

QTEST_APPLESS_MAIN(TestSymbolEncoding)
#include "tst_symbolencoding.moc"
