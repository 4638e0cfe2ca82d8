// The tables, and the custom colours' way to the settings and back.
#include "defaults/PaletteTables.h"

#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "platform/controls/MoveInGrid.h"

namespace {

/// 0xRRGGBB, row by row. Two neighbours of the fourth row are equal.
constexpr std::array<int, 48> Presets{
    0xFFFFFF, 0xFFC0C0, 0xFFE0C0, 0xFFFFC0, 0xC0FFC0, 0xC0FFFF, 0xC0C0FF, 0xFFC0FF, //
    0xE0E0E0, 0xFF8080, 0xFFC080, 0xFFFF80, 0x80FF80, 0x80FFFF, 0x8080FF, 0xFF80FF, //
    0xC0C0C0, 0xFF0000, 0xFF8000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, //
    0x808080, 0xC04000, 0xC04000, 0xC0C000, 0x00C000, 0x00C0C0, 0x0000C0, 0xC000C0, //
    0x404040, 0x800000, 0x804000, 0x808000, 0x008000, 0x008080, 0x000080, 0x800080, //
    0x000000, 0x400000, 0x804040, 0x404000, 0x004000, 0x004040, 0x000040, 0x400040,
};

/// By the index of the system colour. One is misspelt, and stands so in stored records of colours.
constexpr std::array<const char *, SystemColorCount> SystemNames{
    "Scroll Bars",
    "Desktop",
    "Active Title Bar",
    "Inactive Title Bar",
    "Menu Bar",
    "Window Background",
    "Window Frame",
    "Menu Text",
    "Window Text",
    "Active Title Bar Text",
    "Active Border",
    "Inactive Border",
    "Application Workspace",
    "Highlight",
    "Highlight Text",
    "Button Face",
    "Button Shadow",
    "Disbled Text",
    "Button Text",
    "Inactive Title Bar Text",
    "Button Highlight",
    "Button Dark Shadow",
    "Button Light Shadow",
    "ToolTip Text",
    "ToolTip Background",
};

constexpr std::size_t Firebrick = 25; // block 26
constexpr ColorValue FirebrickOfReset = RGBValue(0xB2, 0x22, 0x22);

constexpr QStringView ColorsKey = u"CustomColors";
constexpr QStringView LabelsKey = u"CustomLabels";

} // namespace

ColorPalette PresetColors()
{
    ColorPalette palette;
    for (const int rgb : Presets)
        palette.push_back({.Color = RGBValue(rgb >> 16, rgb >> 8 & 0xFF, rgb & 0xFF),
                           .Label = QString::number(palette.size() + 1)});
    return palette;
}

ColorPalette SystemColors()
{
    ColorPalette palette;
    for (int index = 0; index < SystemColorCount; ++index)
        palette.push_back({.Color = SystemColorValue(index),
                           .Label = SystemNames.at(static_cast<std::size_t>(index))});
    return palette;
}

ColorPalette ReadCustomColors()
{
    ColorPalette palette = FirstCustomColors();
    int number = 0;
    for (PaletteColor &entry : palette) {
        const QString name = QString::number(++number);
        const SettingValue color = RegReadValue(HKEY_CURRENT_USER, SettingsPath(ColorsKey), name);
        // Missing where no setting could ever be stored: the run goes on without.
        if (std::holds_alternative<std::monostate>(color))
            continue;
        entry.Color = toNumber(color, ColorsKey, name);
        entry.Label = toText(RegReadValue(HKEY_CURRENT_USER, SettingsPath(LabelsKey), name));
    }
    return palette;
}

void WriteCustomColors(const ColorPalette &custom)
{
    const auto oneTransaction = GroupRegWrites();
    int number = 0;
    for (const PaletteColor &entry : custom)
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(ColorsKey), QString::number(++number),
                      entry.Color, REG_DWORD);
    number = 0;
    for (const PaletteColor &entry : custom)
        RegWriteValue(HKEY_CURRENT_USER, SettingsPath(LabelsKey), QString::number(++number),
                      entry.Label, REG_SZ);
}

ColorPalette FirstCustomColors()
{
    ColorPalette palette;
    for (const CustomColorDefault &color : CustomColorDefaults)
        palette.push_back({.Color = color.stored, .Label = color.label.toString()});
    return palette;
}

ColorPalette ResetCustomColors()
{
    ColorPalette palette = FirstCustomColors();
    palette.at(Firebrick).Color = FirebrickOfReset;
    return palette;
}

bool AreCustomColorsChanged(const ColorPalette &custom)
{
    return custom != FirstCustomColors();
}

QString PaletteColorName(int palette, const PaletteColor &color)
{
    return palette == PresetPalette ? '#' + color.Label : color.Label;
}

TwipRect PaletteBlockPlace(int n)
{
    return {.Left = 255.0 + 615 * ((n - 1) % PaletteColumns),
            .Top = 255.0 + 435 * ((n - 1) / PaletteColumns),
            .Width = 420,
            .Height = 240};
}

int MoveInPalette(int n, int key, int count)
{
    return MoveInGrid(n, key, count, PaletteColumns);
}
