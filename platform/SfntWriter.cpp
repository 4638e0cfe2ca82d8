// The directory with its checksums, and the few tables that are written from nothing.
#include "platform/SfntWriter.h"

#include <utility>

namespace sfnt {

namespace {

quint32 checksum(QByteArrayView padded)
{
    quint32 sum = 0;
    for (qsizetype at = 0; at + 4 <= padded.size(); at += 4)
        sum += qFromBigEndian<quint32>(padded.data() + at);
    return sum;
}

QByteArray shorts(std::initializer_list<int> numbers)
{
    QByteArray bytes;
    for (const int number : numbers)
        append(bytes, static_cast<quint16>(number));
    return bytes;
}

QByteArray utf16(const QString &text)
{
    QByteArray bytes;
    for (const QChar character : text)
        append(bytes, character.unicode());
    return bytes;
}

/// Format 13: every character of a group has the same glyph, here number 1. It has the picture of
/// glyph 0, since the toolkit takes a font for one of Latin script by the characters it maps.
QByteArray writeMissingMap()
{
    constexpr std::pair<quint32, quint32> groups[] = {
        {0x0020, 0x024F}, {0x02C6, 0x02DC}, {0x2000, 0x2122}, {0xF020, 0xF0FF}};
    constexpr quint32 count = std::size(groups);
    QByteArray cmap = shorts({0, 1, 3, 10, 0, 12, 13, 0});
    for (const quint32 number : {16 + 12 * count, 0U, count})
        append(cmap, number);
    for (const auto &[first, last] : groups)
        for (const quint32 number : {first, last, 1U})
            append(cmap, number);
    return cmap;
}

} // namespace

QByteArray writeFont(quint32 version, const std::vector<Table> &tables)
{
    const auto count = static_cast<quint16>(tables.size());
    quint16 power = 0;
    while (2 << power <= count)
        ++power;
    const auto range = static_cast<quint16>(16 << power);
    QByteArray font;
    append(font, version);
    for (const quint16 number :
         {count, range, power, static_cast<quint16>(directoryEntrySize * count - range)})
        append(font, number);
    QByteArray body;
    qsizetype adjustmentAt = -1;
    const qsizetype bodyAt = directoryHeaderSize + directoryEntrySize * count;
    for (const auto &[name, data] : tables) {
        const auto length = static_cast<quint32>(data.size());
        QByteArray padded = data.toByteArray();
        padded.append((4 - length % 4) % 4, '\0');
        if (name == tag("head") && length >= 12) {
            padded.replace(8, 4, QByteArray(4, '\0'));
            adjustmentAt = bodyAt + body.size() + 8;
        }
        append(font, name);
        append(font, checksum(padded));
        append(font, static_cast<quint32>(bodyAt + body.size()));
        append(font, length);
        body += padded;
    }
    font += body;
    if (adjustmentAt >= 0)
        qToBigEndian<quint32>(0xB1B0AFBA - checksum(font), font.data() + adjustmentAt);
    return font;
}

QByteArray writeNames(const QString &family, const QString &style)
{
    // Windows, Unicode, English; numbers 1, 2, 4 and 6 are family, style, full and PostScript name.
    const QByteArray texts[] = {utf16(family), utf16(style), utf16(family + u' ' + style),
                                utf16(QString(family).remove(u' '))};
    constexpr std::array<int, 4> numbers = {1, 2, 4, 6};
    QByteArray names = shorts({0, 4, 6 + 4 * 12}), storage;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        names += shorts({3, 1, 0x409, numbers[i], static_cast<int>(texts[i].size()),
                         static_cast<int>(storage.size())});
        storage += texts[i];
    }
    return names + storage;
}

QByteArray missingGlyphFont(const QString &family)
{
    constexpr int em = 1000, advance = 600, left = 60, right = 540, top = 700, stroke = 50;
    // Two contours of four corners, the inner one the other way round, so that it is a hole. The
    // first bytes after the header are the contours' ends and the length of the instructions.
    QByteArray box = shorts({2, left, 0, right, top, 3, 7, 0});
    box += QByteArray(8, '\x01'); // on the curve, both coordinates in two bytes
    const int inner = right - left - 2 * stroke, innerTop = top - 2 * stroke;
    box += shorts({left, 0, right - left, 0, stroke - (right - left), inner, 0, -inner});
    box += shorts({0, top, 0, -top, stroke, 0, innerTop, 0});
    const QByteArray glyphs = box + box;
    const int half = static_cast<int>(box.size()) / 2;

    const QByteArray head = shorts({1, 0, 1, 0, 0,    0, 0x5F0F, 0x3CF5, 3, em, 0, 0, 0, 0,
                                    0, 0, 0, 0, left, 0, right,  top,    0, 8,  2, 0, 0});
    const QByteArray hhea =
        shorts({1, 0, 800, -200, 0, advance, left, em - right, right, 1, 0, 0, 0, 0, 0, 0, 0, 1});
    const QByteArray maxp = shorts({1, 0, 2, 8, 2, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0});
    const QByteArray hmtx = shorts({advance, left, left});
    const QByteArray loca = shorts({0, half, 2 * half});
    const QByteArray post = shorts({3, 0, 0, 0, -100, 50, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    const QByteArray cmap = writeMissingMap(), name = writeNames(family, QStringLiteral("Regular"));
    return writeFont(0x00010000, {{tag("cmap"), cmap},
                                  {tag("glyf"), glyphs},
                                  {tag("head"), head},
                                  {tag("hhea"), hhea},
                                  {tag("hmtx"), hmtx},
                                  {tag("loca"), loca},
                                  {tag("maxp"), maxp},
                                  {tag("name"), name},
                                  {tag("post"), post}});
}

} // namespace sfnt
