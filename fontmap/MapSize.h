// The arithmetic of the map's size: how large it may get, and how large the window is at a size.
// Values in, values out; lengths in twips.
#pragma once

#include "fontmap/CharInfo.h"
#include "platform/Twips.h"

#include <vector>

namespace MapSize {

/// Width of the main window at size 1 with its edge: what a screen must have beyond the size steps.
constexpr double WindowWidthTwips = 11730;
/// The window at size 1 in pixels, and what each further size adds to it.
constexpr int WindowWidth = 780;
constexpr int WindowHeight = 592;
constexpr int StepAcross = 28;
constexpr int StepDown = 8;

/// Largest size that a screen of this width in pixels allows; 1 or less if the map can't be sized.
constexpr int Largest(int screenWidth, double twipsX)
{
    // The conversion cuts towards zero, which is what is wanted.
    return static_cast<int>((screenWidth * twipsX - WindowWidthTwips) / StepAcross / twipsX) + 1;
}

/// Outer width and height of the window in twips after this many steps above size 1.
constexpr double FormWidth(int steps, const TwipScale &scale)
{
    return scale.X * (1.0 * steps * StepAcross + WindowWidth);
}
constexpr double FormHeight(int steps, const TwipScale &scale)
{
    return scale.Y * (1.0 * steps * StepDown + WindowHeight);
}

/// Whether a screen lets the map be sized; on some the commands stay as they are.
enum class Sizing { Off, On, AsItIs };
constexpr Sizing SizingFor(int screenWidth, double twipsX)
{
    if (twipsX >= 15)
        return screenWidth > 800 ? Sizing::On : Sizing::Off;
    return screenWidth < 1025 ? Sizing::Off : Sizing::AsItIs;
}

/// Places of the 224 cells at size 1, the first one at the left and at this top: neighbours share
/// 15 twips, one pixel.
inline std::vector<TwipRect> Cells(double firstTop)
{
    constexpr double side = 420;
    constexpr double pitch = 405;
    std::vector<TwipRect> places;
    places.reserve(CellCount);
    for (int cell = 0; cell < CellCount; ++cell) {
        const int row = cell / MapColumns;
        places.push_back({.Left = pitch * (cell % MapColumns),
                          .Top = firstTop + pitch * row,
                          .Width = side,
                          .Height = side});
    }
    return places;
}

} // namespace MapSize
