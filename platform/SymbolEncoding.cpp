// Reads the table directory and the symbol subtable with every access checked, and writes the face
// anew with a character map of our own. All numbers in the format are big-endian.
#include "platform/SymbolEncoding.h"

#include "platform/CodePage.h"
#include "platform/SfntWriter.h"

#include <QtEndian>
#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace {

using sfnt::append;
using sfnt::tag;

/// Reads numbers at offsets. A read outside the data gives 0 and is remembered in failed(), so that
/// one question at the end of a step serves all its reads.
class Reader
{
public:
    explicit Reader(QByteArrayView data) : Data(data) {}

    quint16 u16(quint64 at) { return read<quint16>(at); }
    quint32 u32(quint64 at) { return read<quint32>(at); }
    quint64 size() const { return static_cast<quint64>(Data.size()); }
    bool failed() const { return Failed; }

    std::optional<QByteArrayView> part(quint64 at, quint64 length) const
    {
        if (at > size() || length > size() - at)
            return std::nullopt;
        return Data.sliced(static_cast<qsizetype>(at), static_cast<qsizetype>(length));
    }

private:
    template<typename Number>
    Number read(quint64 at)
    {
        if (at > size() || sizeof(Number) > size() - at) {
            Failed = true;
            return 0;
        }
        return qFromBigEndian<Number>(Data.data() + at);
    }

    QByteArrayView Data;
    bool Failed = false;
};

/// "cmap" subtable format 4: segments of codes, each with an offset into a list of glyphs or a
/// number to add to the code. It tells its own length, which must fit its place.
class SegmentMap
{
public:
    explicit SegmentMap(QByteArrayView subtable) : Source(subtable)
    {
        Length = Source.u16(2);
        Segments = Source.u16(6) / 2;
        Valid = Source.u16(0) == 4 && Length <= Source.size() && Segments > 0 &&
                16 + 8 * Segments <= Length && !Source.failed();
    }

    bool valid() const { return Valid; }

    /// The glyph of a code, 0 if it has none; nothing if the table points outside itself.
    std::optional<quint16> glyph(quint16 code)
    {
        for (quint64 segment = 0; segment < Segments; ++segment) {
            const quint64 ends = 14, starts = 16 + 2 * Segments;
            if (code > Source.u16(ends + 2 * segment))
                continue;
            const quint16 start = Source.u16(starts + 2 * segment);
            if (code < start)
                return 0;
            const quint16 delta = Source.u16(starts + 2 * (Segments + segment));
            const quint64 offsetAt = starts + 2 * (2 * Segments + segment);
            const quint16 offset = Source.u16(offsetAt);
            if (offset == 0 || offset == 0xFFFF)
                return static_cast<quint16>(offset == 0 ? code + delta : 0);
            const quint64 glyphAt = offsetAt + offset + 2 * quint64(code - start);
            if (glyphAt + 2 > Length)
                return std::nullopt;
            const quint16 glyph = Source.u16(glyphAt);
            return static_cast<quint16>(glyph == 0 ? 0 : glyph + delta);
        }
        return 0;
    }

private:
    Reader Source;
    quint64 Length = 0;
    quint64 Segments = 0;
    bool Valid = false;
};

/// The glyphs by the characters that shall show them.
using GlyphMap = std::map<quint16, quint16>;

std::optional<GlyphMap> readSymbolGlyphs(QByteArrayView cmap)
{
    Reader reader(cmap);
    const int subtables = reader.u16(2);
    for (int i = 0; i < subtables && !reader.failed(); ++i) {
        const quint64 record = 4 + 8 * static_cast<quint64>(i);
        if (reader.u16(record) != 3 || reader.u16(record + 2) != 0)
            continue;
        const quint64 offset = reader.u32(record + 4);
        if (reader.failed() || offset > reader.size())
            return std::nullopt;
        SegmentMap symbols(cmap.sliced(static_cast<qsizetype>(offset)));
        if (!symbols.valid())
            return std::nullopt;
        GlyphMap glyphs;
        for (quint16 code = 32; code < 256; ++code) {
            auto glyph = symbols.glyph(0xF000 + code);
            if (glyph == 0)
                glyph = symbols.glyph(code);
            if (!glyph)
                return std::nullopt;
            if (*glyph == 0)
                continue;
            glyphs[0xF000 + code] = *glyph;
            glyphs[CodePage::toUnicode(static_cast<quint8>(code)).unicode()] = *glyph;
        }
        return glyphs.empty() ? std::nullopt : std::optional(glyphs);
    }
    return std::nullopt;
}

/// One format 4 subtable, known as the symbol map and as the Unicode map alike: the toolkit shows
/// codes that text would hide, such as AD hex, only in a font that has a symbol map.
QByteArray writeCmap(const GlyphMap &glyphs)
{
    struct Segment
    {
        quint16 first;
        quint16 last;
        qsizetype glyphsBefore;
    };
    std::vector<Segment> segments;
    QByteArray glyphList;
    for (const auto &[code, glyph] : glyphs) {
        if (segments.empty() || segments.back().last + 1 != code)
            segments.push_back({code, code, glyphList.size() / 2});
        segments.back().last = code;
        append(glyphList, glyph);
    }
    // The format asks for a last segment that maps FFFF hex to no glyph.
    segments.push_back({0xFFFF, 0xFFFF, 0});
    const auto count = static_cast<quint16>(segments.size());

    QByteArray subtable;
    quint16 power = 0;
    while (2 << power <= count)
        ++power;
    const auto range = static_cast<quint16>(2 << power);
    const std::array<quint16, 7> header = {4,
                                           static_cast<quint16>(16 + 8 * count + glyphList.size()),
                                           0,
                                           static_cast<quint16>(2 * count),
                                           range,
                                           power,
                                           static_cast<quint16>(2 * count - range)};
    for (const quint16 number : header)
        append(subtable, number);
    for (const Segment &segment : segments)
        append(subtable, segment.last);
    append(subtable, quint16(0));
    for (const Segment &segment : segments)
        append(subtable, segment.first);
    for (const Segment &segment : segments)
        append(subtable, quint16(segment.first == 0xFFFF ? 1 : 0));
    for (quint16 i = 0; i < count; ++i) {
        // Counted from the place of the offset itself.
        const auto offset = 2 * (count - i + segments[i].glyphsBefore);
        append(subtable, static_cast<quint16>(i + 1 == count ? 0 : offset));
    }
    subtable += glyphList;

    QByteArray cmap;
    constexpr quint32 subtableOffset = 20;
    append(cmap, quint16(0));
    append(cmap, quint16(2));
    for (const quint16 encoding : {quint16(0), quint16(1)}) {
        append(cmap, quint16(3));
        append(cmap, encoding);
        append(cmap, subtableOffset);
    }
    return cmap + subtable;
}

} // namespace

std::optional<QByteArray> symbolFontAsUnicode(QByteArrayView font, int face,
                                              const QByteArray &names)
{
    Reader reader(font);
    quint64 directory = 0;
    if (reader.u32(0) == tag("ttcf")) {
        if (face < 0 || static_cast<quint32>(face) >= reader.u32(8))
            return std::nullopt;
        directory = reader.u32(12 + 4 * static_cast<quint64>(face));
    }
    const quint32 version = reader.u32(directory);
    if (version != 0x00010000 && version != tag("OTTO") && version != tag("true"))
        return std::nullopt;

    std::vector<sfnt::Table> tables;
    quint64 copied = 0;
    const quint64 count = reader.u16(directory + 4);
    for (quint64 i = 0; i < count; ++i) {
        const quint64 entry = directory + sfnt::directoryHeaderSize + i * sfnt::directoryEntrySize;
        const quint32 name = reader.u32(entry);
        const auto data = reader.part(reader.u32(entry + 8), reader.u32(entry + 12));
        // Tables may share bytes, so the sum can pass the size, but not by much in an honest font.
        if (reader.failed() || !data || (copied += data->size()) > 2 * reader.size())
            return std::nullopt;
        // A signature is of no use on changed data.
        if (name != tag("DSIG"))
            tables.push_back({name, *data});
    }
    const auto cmap = std::ranges::find(tables, tag("cmap"), &sfnt::Table::tag);
    const auto glyphs = cmap == tables.end() ? std::nullopt : readSymbolGlyphs(cmap->data);
    if (!glyphs)
        return std::nullopt;
    const QByteArray ownCmap = writeCmap(*glyphs);
    cmap->data = ownCmap;
    const auto name = std::ranges::find(tables, tag("name"), &sfnt::Table::tag);
    if (name != tables.end() && !names.isEmpty())
        name->data = names;
    return writeFont(version, tables);
}
