// Bytes are decoded as late as possible, so that those of one character come together.
#include "textboard/PendingCharacters.h"

#include <utility>

namespace {

constexpr qsizetype Block = 4096;
constexpr int Utf8 = 65001;

/// A character of UTF-8 (RFC 3629) goes on behind these bytes.
bool isCutUtf8(const QByteArray &bytes)
{
    constexpr int Longest = 4;
    for (qsizetype n = 1; n < Longest && n <= bytes.size(); ++n) {
        const auto byte = static_cast<quint8>(bytes[bytes.size() - n]);
        if ((byte & 0xC0) != 0x80) // the first of a character
            return n < (byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1);
    }
    return false;
}

} // namespace

bool PendingCharacters::isFull() const
{
    const bool isCut =
        IsHalf || (Page == Utf8 && isCutUtf8(Bytes)) ||
        (Bytes.isEmpty() && !Characters.isEmpty() && Characters.back().isHighSurrogate());
    return Characters.size() + Bytes.size() >= Block && !isCut;
}

void PendingCharacters::add(quint8 byte, int page)
{
    Bytes += char(byte);
    Page = page;
    IsHalf = !IsHalf && DocumentCodePage::isLeadByte(page, byte);
}

void PendingCharacters::add(char32_t character, int page)
{
    decode(page);
    Characters += QChar::fromUcs4(character);
}

QString PendingCharacters::take(int page)
{
    decode(page);
    return std::exchange(Characters, {});
}

void PendingCharacters::decode(int page)
{
    if (Bytes.isEmpty())
        return;
    Characters += Decoder.decode(page, std::exchange(Bytes, {}));
    if (std::exchange(IsHalf, false))
        Characters += u'?';
}
