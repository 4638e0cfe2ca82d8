// The arithmetic of the fill bar: what it shows for a number of characters. Values in, values out.
#pragma once

#include "platform/ColorValue.h"

/// Width of the fill in twips for n of limit characters in a bar of the given width.
constexpr double FillWidth(int n, int limit, double barWidth)
{
    return n * (barWidth / limit);
}

/// Nearly full from where the bar is red.
enum class FillLevel { Roomy, NearlyFull, Full };
constexpr FillLevel FillLevelOf(int n, int limit)
{
    if (n >= limit)
        return FillLevel::Full;
    // Compared in whole numbers, as all shares here: none is rounded.
    return n * 100 > limit * 95 ? FillLevel::NearlyFull : FillLevel::Roomy;
}

/// A fill narrower than this, in twips, is hidden.
constexpr double LeastFillWidth = 15;

/// The fill's colour: n is compared with shares of the limit, from the highest.
constexpr ColorValue FillColor(int n, int limit)
{
    if (FillLevelOf(n, limit) != FillLevel::Roomy)
        return RGBValue(255, 0, 0);
    const int hundredfold = n * 100;
    if (hundredfold > limit * 75)
        return RGBValue(255, 192, 128);
    if (hundredfold > limit * 50)
        return RGBValue(255, 255, 192);
    return RGBValue(255, 255, 255);
}
