// The table of the sixteen colours and the movement over its two rows.
#include "textboard/QBColors.h"

#include <Qt>

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

int MoveColorCell(int cell, int key)
{
    constexpr int Columns = QBColorCount / 2;
    const bool firstRow = cell <= Columns;
    switch (key) {
    case Qt::Key_End:
        return QBColorCount;
    case Qt::Key_Home:
        return 1;
    case Qt::Key_Left:
        return cell == 1 ? QBColorCount : cell - 1;
    case Qt::Key_Right:
        return cell == QBColorCount ? 1 : cell + 1;
    // Up and down run through the columns like one line: leaving a row at its end goes on in the
    // neighbouring column.
    case Qt::Key_Up:
        if (cell == 1)
            return QBColorCount;
        return firstRow ? cell + Columns - 1 : cell - Columns;
    case Qt::Key_Down:
        if (cell == QBColorCount)
            return 1;
        return firstRow ? cell + Columns : cell - Columns + 1;
    default:
        return cell;
    }
}
