// The settings tree as tables: its keys, and what a repair writes where nothing is known better.
// Data and plain look-ups only; no store and no window.
#pragma once

#include "core/RegistryFunctions.h"

#include <QStringView>
#include <array>
#include <optional>
#include <variant>

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

/// A system colour as a setting: the high bit set, the system colour's index (0..24) below.
constexpr qint32 SystemColorReference(quint32 index)
{
    return static_cast<qint32>(0x80000000U | index);
}

/// A value whose default is the same everywhere. Those that follow from the screen, the window, the
/// user or the recent files are not here, nor are the tables above.
struct SettingDefault
{
    QStringView key;
    QStringView value;
    quint32 kind;
    std::variant<QStringView, qint32> standard;
};

inline constexpr std::array<SettingDefault, 39> SettingDefaults{{
    {u"", u"MV", REG_DWORD, 300},
    {u"", u"SV", REG_DWORD, 2},
    {u"FB", u"SampleText", REG_SZ, u"The Quick Brown Fox Jumped Over the Lazy Dog."},
    {u"CFMEditor", u"ListCols", REG_DWORD, 10},
    {u"CFMEditor", u"ShiftDir", REG_DWORD, 0},
    {u"Options", u"ZoomedLetter", REG_DWORD, 65},
    {u"Options", u"OFMapStart", REG_DWORD, 60},
    {u"TextBoard", u"FontName", REG_SZ, u"Arial"},
    {u"TextBoard", u"Bold", REG_DWORD, 0},
    {u"TextBoard", u"Italic", REG_DWORD, 0},
    {u"TextBoard", u"Underline", REG_DWORD, 0},
    {u"TextBoard", u"Strikeout", REG_DWORD, 0},
    {u"TextBoard", u"Alignment", REG_DWORD, 0},
    {u"TextBoard", u"FontColorIndex", REG_DWORD, 0},
    {u"TextBoard", u"FontColorName", REG_SZ, u"Black"},
    {u"Options", u"TXTLoadSet", REG_SZ, u"True"},
    {u"Options", u"ZUFUnLoadSet", REG_SZ, u"True"},
    {u"Options", u"CopyDialog", REG_SZ, u"True"},
    {u"Options", u"ExitWarning", REG_SZ, u"True"},
    {u"Options", u"OverwriteWarning", REG_SZ, u"True"},
    {u"Options", u"ColorScheme", REG_SZ, u"True"},
    {u"Options", u"ToolTips", REG_SZ, u"True"},
    {u"Options", u"VCPosition", REG_SZ, u"L"},
    {u"FontMap", u"ForeColor", REG_DWORD, SystemColorReference(8)},
    {u"FontMap", u"BackColor", REG_DWORD, SystemColorReference(5)},
    {u"FontMap", u"ForeColorIndex", REG_DWORD, 8},
    {u"FontMap", u"BackColorIndex", REG_DWORD, 5},
    {u"FontMap", u"ForeColorName", REG_SZ, u"Window Text"},
    {u"FontMap", u"BackColorName", REG_SZ, u"Window Background"},
    {u"FontMap", u"ForePaletteRef", REG_DWORD, 1},
    {u"FontMap", u"BackPaletteRef", REG_DWORD, 1},
    {u"FontMap", u"Hilite", REG_SZ, u"False"},
    {u"FontMap", u"Borders", REG_DWORD, 1},
    {u"FontMap", u"InitMap", REG_SZ, u"False"},
    {u"FontMap", u"InitMapPath", REG_SZ, u"None"},
    {u"Views", u"Zoom", REG_SZ, u"True"},
    {u"Views", u"Code", REG_SZ, u"True"},
    {u"Views", u"KeyStroke", REG_SZ, u"True"},
    {u"Views", u"ZoomSize", REG_SZ, u"72"},
}};

/// The standard of a row of the table, which must be there and of this kind.
QString DefaultText(QStringView key, QStringView value);
qint32 DefaultNumber(QStringView key, QStringView value);

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
