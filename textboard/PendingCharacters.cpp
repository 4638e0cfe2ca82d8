// Bytes are decoded as late as possible, so that those of one character come together.
#include "textboard/PendingCharacters.h"

#include <utility>

namespace {

constexpr qsizetype Block = 4096;

} // namespace

bool PendingCharacters::isFull() const
{
    const bool isCut =
        IsHalf || (Bytes.isEmpty() && !Characters.isEmpty() && Characters.back().isHighSurrogate());
    return Characters.size() + Bytes.size() >= Block && !isCut;
}

void PendingCharacters::add(quint8 byte, int page)
{
    Bytes += char(byte);
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
