// The colours from which those of the FontMap are chosen: three palettes of blocks on one grid, how
// the keys move there, and the user's own forty colours in the settings. No window, no painting.
#pragma once

#include "platform/ColorValue.h"
#include "platform/Twips.h"

#include <QString>
#include <array>
#include <vector>

/// A palette, by the number under which the record of a colour keeps it.
enum PaletteRef { PresetPalette, SystemPalette, CustomPalette };
inline constexpr int PaletteCount = 3;
/// As the user reads it.
inline QString PaletteName(int palette)
{
    constexpr std::array<const char *, PaletteCount> names{"Preset", "System", "Custom"};
    return names.at(static_cast<std::size_t>(palette));
}

struct PaletteColor
{
    ColorValue Color = 0;
    QString Label;

    bool operator==(const PaletteColor &) const = default;
};
/// The colours of the blocks. Blocks count from 1, the first is the first here.
using ColorPalette = std::vector<PaletteColor>;

/// 48 colours, whose labels are their numbers from 1.
ColorPalette PresetColors();
/// References to the 25 colours of the desktop.
ColorPalette SystemColors();

/// The custom colours as the settings have them. A colour that can't be read is the one of the
/// first run; throws ConversionError where one is a text that is no number.
ColorPalette ReadCustomColors();
/// Writes all in one transaction.
void WriteCustomColors(const ColorPalette &custom);
/// What the first run writes.
ColorPalette FirstCustomColors();
/// What a reset makes of them. One entry differs from the first run's.
ColorPalette ResetCustomColors();
/// True if they differ from the first run's. After a reset they do.
bool AreCustomColorsChanged(const ColorPalette &custom);

/// The name of a block's colour: its label, with "#" before a number.
QString PaletteColorName(int palette, const PaletteColor &color);

inline constexpr int PaletteColumns = 8;
/// Place of block n within its palette, twips.
TwipRect PaletteBlockPlace(int n);
/// Where a key (Qt::Key) leads from block n of so many.
int MoveInPalette(int n, int key, int count);
