// Colours as the settings and the windows keep them: 32-bit numbers with red in the low byte, or
// references to a colour of the desktop. A reference is resolved only when something is painted, so
// that a change of the desktop's colours shows at once.
#pragma once

#include <QColor>
#include <QPalette>

/// 0x00BBGGRR, or 0x80000000 plus the index 0 to 24 of a system colour. Signed, as it is stored:
/// a reference is a negative number.
using ColorValue = qint32;

constexpr ColorValue SystemColorBit = static_cast<ColorValue>(0x80000000U);
constexpr int SystemColorCount = 25;

constexpr ColorValue SystemColorValue(int index)
{
    return static_cast<ColorValue>(0x80000000U + static_cast<quint32>(index));
}

constexpr ColorValue RGBValue(int red, int green, int blue)
{
    return red | green << 8 | blue << 16;
}

/// The colour to paint with. An unknown system index gives the palette's text colour.
QColor ToColor(ColorValue value, const QPalette &palette);

/// The value of a colour; transparency is dropped.
ColorValue FromColor(const QColor &color);
