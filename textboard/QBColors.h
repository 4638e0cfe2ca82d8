// The sixteen colours that the board can have: values, names and cell labels. Values in, values
// out.
#pragma once

#include "platform/ColorValue.h"

#include <QString>
#include <array>
#include <optional>

struct QBColorRow
{
    const char *Name;      ///< as the settings and the Color button say it
    const char *CellLabel; ///< as the colour picker says it
    ColorValue Value;
};

constexpr int QBColorCount = 16;
/// The classic sixteen-colour palette by its index.
extern const std::array<QBColorRow, QBColorCount> QBColors;

/// Name of colour 0 to 15; the empty string for any other index.
QString QBColorName(int index);
/// Value of colour 0 to 15; black for any other index.
ColorValue QBColor(int index);
/// Index of the colour with exactly this value.
std::optional<int> FindQBColor(ColorValue value);
