// The settings tree as tables: its keys, the custom colours, and what follows from the screen. Data
// and plain look-ups only; no store and no window.
#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <optional>

/// The key above all others, and those below it in the order of their creation.
inline constexpr QStringView SettingsRoot = u"Software\\Zendova";
inline constexpr std::array<QStringView, 13> SettingsKeys{
    u"Bars",      u"FontMap", u"CustomColors", u"CustomLabels", u"Last",  u"MRU",  u"CFMRU",
    u"CFMEditor", u"FB",      u"Options",      u"TextBoard",    u"Views", u"Temp",
};

/// The whole path of a key of SettingsKeys, or of the root for "".
QString SettingsPath(QStringView key);

/// One of the forty custom colours, named 1 to 40 in the tree: its label, and its number with blue
/// in the highest of three bytes and red in the lowest.
struct CustomColorDefault
{
    QStringView label;
    qint32 stored;
};

inline constexpr std::array<CustomColorDefault, 40> CustomColorDefaults{{
    {u"Medium Blue", 0xCD0000},
    {u"Midnight Blue", 0x701919},
    {u"Forest Green", 0x228B22},
    {u"Dark Slate Gray", 0x4F4F2F},
    {u"Medium Sea Green", 0x71B33C},
    {u"Royal Blue", 0xE16941},
    {u"Dark Slate Blue", 0x8B3D48},
    {u"Indigo", 0x82004B},
    {u"Dark Olive Green", 0x2F6B55},
    {u"Cadet Blue", 0xA09E5F},
    {u"Cornflower", 0xED9564},
    {u"Slate Blue", 0xCD5A6A},
    {u"Light Slate Gray", 0x998877},
    {u"Sky Blue", 0xEBCE87},
    {u"Dark Red", 0x00008B},
    {u"Dark Magenta", 0x8B008B},
    {u"Saddle Brown", 0x13458B},
    {u"Dark Sea Green", 0x8BBC8F},
    {u"Light Green", 0x90EE90},
    {u"Pale Green", 0x98FB98},
    {u"Sienna", 0x2D52A0},
    {u"Brown", 0x2A2AA5},
    {u"Pale Turquoise", 0xEEEEAF},
    {u"Light Steel Blue", 0xDEC4B0},
    {u"Powder Blue", 0xE6E0B0},
    {u"Firebrick", 0x2297E2},
    {u"Tan", 0x8CB4D2},
    {u"Light Gray", 0xD3D3D3},
    {u"Crimson", 0x3C14DC},
    {u"Gainsboro", 0xDCDCDC},
    {u"Pale Golden Rod", 0xAAE8EE},
    {u"Wheat", 0xB3DEF5},
    {u"Beige", 0xDCF5F5},
    {u"White Smoke", 0xF5F5F5},
    {u"Salmon", 0x7280FA},
    {u"Linen", 0xE6F0FA},
    {u"Bisque", 0xC4E4FF},
    {u"Lavender Blush", 0xF5F0FF},
    {u"Corn Silk", 0xDCF8FF},
    {u"Ivory", 0xF0FFFF},
}};

/// Widths of the toolbar bands, in twips: values MainBand1Wdth and on, TBBand1Wdth and on, and
/// FMBand1Wdth and on of the key Bars.
inline constexpr std::array<qint32, 4> MainBandWidths{945, 6240, 2310, 1230};
inline constexpr std::array<qint32, 5> TBBandWidths{1920, 1575, 2055, 1230, 2880};
inline constexpr std::array<qint32, 3> FMBandWidths{1635, 5310, 4470};

/// FontMap size and font size in points that suit a screen.
struct ScreenDefault
{
    int SizeIndex;
    int FontSize;

    bool operator==(const ScreenDefault &) const = default;
};

/// The row for a screen this many pixels wide; nothing at exactly 1901 and below 650, where neither
/// value is to be set.
std::optional<ScreenDefault> DefaultsForScreenWidth(int pixels);
