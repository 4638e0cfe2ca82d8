// Writes fonts in the OpenType container: a directory, then tables. Bytes in, bytes out. All
// numbers in the format are big-endian.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QtEndian>
#include <array>
#include <vector>

namespace sfnt {

constexpr qsizetype directoryHeaderSize = 12;
constexpr qsizetype directoryEntrySize = 16;

constexpr quint32 tag(const char (&name)[5])
{
    return quint32(quint8(name[0])) << 24 | quint32(quint8(name[1])) << 16 |
           quint32(quint8(name[2])) << 8 | quint8(name[3]);
}

template<typename Number>
void append(QByteArray &bytes, Number number)
{
    std::array<char, sizeof(Number)> raw;
    qToBigEndian(number, raw.data());
    bytes.append(raw.data(), raw.size());
}

struct Table
{
    quint32 tag;
    QByteArrayView data; ///< of somebody else, to be kept until the font is written
};

/// A font with these tables in this order, which has to be that of their names. Checksums are
/// computed. `version` is 0x00010000 for TrueType outlines, "OTTO" for CFF.
QByteArray writeFont(quint32 version, const std::vector<Table> &tables);

/// A "name" table with a family and one of the four styles ("Regular", "Bold Italic").
QByteArray writeNames(const QString &family, const QString &style);

/// A font whose only picture is a hollow box, for the characters of the Latin
/// alphabets and, as glyph 0, for all others: what stands for a font that can't be shown.
QByteArray missingGlyphFont(const QString &family);

} // namespace sfnt
