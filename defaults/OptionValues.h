// The values of the dialog of default options: which setting each is, what stands in for values
// that can't be right, and what counts as a change. Values in, values out: no window, and no
// setting is read or written here.
#pragma once

#include "core/RegistryFunctions.h"
#include "fontmap/ColorRecord.h"

#include <array>
#include <span>

namespace OptionLimits {

constexpr int LeastSize = 8; ///< points, of the font and of the zoom
constexpr int MostFontSize = 36;
constexpr int MostFontSizeInDialog = 20; ///< that the font dialog gives
constexpr int MostZoomSize = 72;
constexpr int StripCells = 13;
constexpr int FirstStripCode = 33;
constexpr int LastStripCode = 255 - StripCells + 1; ///< with which the strip can begin
constexpr int LongestSampleText = 45;               ///< characters

} // namespace OptionLimits

struct OptionValues
{
    QString FontName;
    int FontSize = 0; ///< points
    bool Bold = false, Italic = false, Underline = false, Strikeout = false;
    int Alignment = 0; ///< 0 left, 1 right, 2 centre
    int TBColorIndex = 0;
    QString TBColorName;
    ColorRecord Fore, Back; ///< of the map
    bool Hilite = false, Borders = false;
    bool InitMap = false;
    QString InitMapPath;    ///< of the start-up map; empty for none
    QString InitMapCaption; ///< what is shown of it; no setting
    bool Zoom = false, Code = false, KeyStroke = false;
    int ZoomSize = 0;     ///< points
    int OFMapStart = 0;   ///< code of the first cell of the strip
    int ZoomedLetter = 0; ///< code of the letter in the zoom
    bool TXTLoadSet = false, ZUFUnLoadSet = false;
    bool MaximizeTB = false;
    bool CopyDialog = false, ExitWarning = false, OverwriteWarning = false;
    bool ColorScheme = false, ToolTips = false;
    bool ViewsOnRight = false;
    int ShiftDir = 0; ///< 1 for down the columns of the map
    QString SampleText;
};

/// An option as a setting: where it stands in the tree, and the way from its value and to it. What
/// is handed in is of the type that the setting's row in the table of settings asks for; a number
/// is given for a truth value where the setting is one or is written as one.
struct OptionRow
{
    QStringView Key;
    QStringView Name;
    WrittenValue (*Get)(const OptionValues &);
    void (*Set)(OptionValues &, const WrittenValue &);
};

/// All options in the order in which they are written.
std::span<const OptionRow> OptionRows();

/// The values with whatever no control can show replaced by something that it can.
OptionValues Sensible(OptionValues values);

/// What is compared to tell whether anything was changed.
using OptionSnapshot = std::array<WrittenValue, 33>;
/// The place of the zoomed letter, the strip's first code and the palettes of the colours are no
/// part of it: a change of these alone is none.
OptionSnapshot TakeSnapshot(const OptionValues &values);
