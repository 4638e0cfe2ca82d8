// The rows of the keyboard and of the panel.
#include "fonttools/KeyboardLayout.h"

#include "fontmap/CharInfo.h"

#include <string_view>

namespace {

constexpr double LabelSize = 435; // of one character
constexpr double KeyPitch = 720;  // from key to key

struct KeyRow
{
    double Top;
    double Left; ///< of the first character
    std::string_view Unshifted;
    std::string_view Shifted;
};
constexpr KeyRow Rows[] = {
    {1290, 240, "`1234567890-=", "~!@#$%^&*()_+"},
    {2010, 1320, "qwertyuiop[]\\", "QWERTYUIOP{}|"},
    {2730, 1320, "asdfghjkl;'", "ASDFGHJKL:\""},
    {3450, 1680, "zxcvbnm,./", "ZXCVBNM<>?"},
};

constexpr std::array<CharacterKey, KeyCount> keysOfRows()
{
    std::array<CharacterKey, KeyCount> keys;
    std::size_t next = 0;
    for (const KeyRow &row : Rows)
        for (std::size_t i = 0; i < row.Unshifted.size(); ++i)
            keys.at(next++) = {.Place = {row.Left + KeyPitch * static_cast<double>(i), row.Top,
                                         LabelSize, LabelSize},
                               .Unshifted = row.Unshifted[i],
                               .Shifted = row.Shifted[i]};
    return keys;
}

constexpr double FunctionRow = 330;
constexpr double SpaceRow = 4050;

/// The caps of one row are equally high.
constexpr NamedKey cap(const char *name, double left, double top, double width)
{
    return {name, {left, top, width, top == FunctionRow ? 540.0 : 675.0}};
}
constexpr NamedKey Named[] = {
    cap("Esc", 120, FunctionRow, 675),  cap("F1", 1410, FunctionRow, 675),
    cap("F2", 2130, FunctionRow, 675),  cap("F3", 2850, FunctionRow, 675),
    cap("F4", 3570, FunctionRow, 675),  cap("F5", 4545, FunctionRow, 675),
    cap("F6", 5265, FunctionRow, 675),  cap("F7", 5985, FunctionRow, 675),
    cap("F8", 6705, FunctionRow, 675),  cap("F9", 7680, FunctionRow, 675),
    cap("F10", 8400, FunctionRow, 675), cap("F11", 9120, FunctionRow, 675),
    cap("F12", 9840, FunctionRow, 675), cap("Backspace", 9480, 1170, 1035),
    cap("Tab", 120, 1890, 1035),        cap("Caps Lock", 120, 2610, 1035),
    cap("Enter", 9120, 2610, 1395),     cap("Shift", 120, 3330, 1395),
    cap("Shift", 8760, 3330, 1755),     cap("Ctrl", 120, SpaceRow, 1035),
    cap("Alt", 1920, SpaceRow, 1035),   cap("Space", 3000, SpaceRow, 4635),
    cap("Alt", 7680, SpaceRow, 1035),   cap("Ctrl", 9480, SpaceRow, 1035),
};

QString spoken(int code, const QString &keystroke)
{
    return QString::number(code) + ", " + CharacterOf(code) + ", " + keystroke;
}

} // namespace

constexpr std::array<CharacterKey, KeyCount> CharacterKeys = keysOfRows();

QString SpokenKey(int index, bool shifted)
{
    const CharacterKey &key = CharacterKeys.at(static_cast<std::size_t>(index));
    const QString plain = CharacterOf(key.Unshifted);
    return shifted ? spoken(key.Shifted, "Shift+" + plain) : spoken(key.Unshifted, plain);
}

std::span<const NamedKey> NamedKeys()
{
    return Named;
}

TwipRect SpecialPlace(int slot)
{
    constexpr double first = 105;
    constexpr double pitch = 480;
    if (slot == 0)
        return {};
    return {first + pitch * (slot % SpecialColumns),
            first + pitch * static_cast<double>(slot / SpecialColumns), LabelSize, LabelSize};
}

QString SpecialKeystroke(int slot)
{
    return DefaultCharTexts(SpecialCode(slot))[KeystrokeRow];
}

QString SpokenSpecial(int slot)
{
    return slot == 0 ? "Empty" : spoken(SpecialCode(slot), SpecialKeystroke(slot));
}
