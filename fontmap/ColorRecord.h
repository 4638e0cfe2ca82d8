// One of the map's two colours with its origin.
#pragma once

#include "platform/ColorValue.h"

#include <QString>

struct ColorRecord
{
    ColorValue Color = 0;
    int ColorIndex = 0; ///< place within its palette
    QString ColorName;
    int PaletteRef = 0; ///< 0 Preset, 1 System, 2 Custom
};
