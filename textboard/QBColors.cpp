// The table of the sixteen colours and the ways to look in it.
#include "textboard/QBColors.h"

const std::array<QBColorRow, QBColorCount> QBColors = {{
    {"Black", "Black", RGBValue(0, 0, 0)},
    {"Navy", "Navy", RGBValue(0, 0, 128)},
    {"Green", "Green", RGBValue(0, 128, 0)},
    {"Teal", "Teal", RGBValue(0, 128, 128)},
    {"Maroon", "Maroon", RGBValue(128, 0, 0)},
    {"Purple", "Purple", RGBValue(128, 0, 128)},
    {"Olive", "Olive", RGBValue(128, 128, 0)},
    {"Silver", "Silver", RGBValue(192, 192, 192)},
    {"Grey", "Gray", RGBValue(128, 128, 128)}, // the two spellings are wanted
    {"Blue", "Blue", RGBValue(0, 0, 255)},
    {"Lime", "Lime", RGBValue(0, 255, 0)},
    {"Aqua", "Aqua", RGBValue(0, 255, 255)},
    {"Red", "Red", RGBValue(255, 0, 0)},
    {"Fuchsia", "Fuchsia", RGBValue(255, 0, 255)},
    {"Yellow", "Yellow", RGBValue(255, 255, 0)},
    {"White", "White", RGBValue(255, 255, 255)},
}};

QString QBColorName(int index)
{
    if (index < 0 || index >= QBColorCount)
        return {};
    return QString::fromLatin1(QBColors.at(static_cast<std::size_t>(index)).Name);
}

ColorValue QBColor(int index)
{
    if (index < 0 || index >= QBColorCount)
        return QBColors[0].Value;
    return QBColors.at(static_cast<std::size_t>(index)).Value;
}

std::optional<int> FindQBColor(ColorValue value)
{
    for (int index = 0; index < QBColorCount; ++index)
        if (QBColor(index) == value)
            return index;
    return std::nullopt;
}
