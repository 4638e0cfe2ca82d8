// What the keys of a US keyboard give and where they lie in its picture, and the characters that no
// key gives. Tables alone: no window, no font. Places are in twips, within the picture and within
// the panel.
#pragma once

#include "platform/Twips.h"

#include <QString>
#include <array>
#include <span>

/// The picture's size, for which it is drawn.
constexpr double KeyboardWidth = 10665;
constexpr double KeyboardHeight = 5070;

/// A key that types a character, and the place of the character on it.
struct CharacterKey
{
    TwipRect Place;
    int Unshifted = 0; ///< codes
    int Shifted = 0;
};
constexpr int KeyCount = 47;
/// Row by row, from the grave accent to the slash.
extern const std::array<CharacterKey, KeyCount> CharacterKeys;

/// What assistive tools are told of such a key: code, character and the keys that type it.
QString SpokenKey(int index, bool shifted);

/// A key that types no character, and its place.
struct NamedKey
{
    const char *Name;
    TwipRect Place;
};
std::span<const NamedKey> NamedKeys();

/// The panel has so many slots, of which the first stays empty; slot n holds code n + 126.
constexpr int SpecialSlots = 130;
constexpr int SpecialColumns = 13;
constexpr int SpecialCode(int slot)
{
    return slot + 126;
}
/// Empty for the first.
TwipRect SpecialPlace(int slot);
/// The keys that type the code, and what assistive tools are told of the slot.
QString SpecialKeystroke(int slot);
QString SpokenSpecial(int slot);
