// How the keys move in a grid of places that is filled row by row, and runs on from each column
// into the next. Knows places alone, so that plain modules use it too.
#pragma once

#include <Qt>
#include <QtGlobal>

/// Where a key (Qt::Key) leads from a place, in a grid of `count` places in `columns`; places count
/// from 1, and there is at least one full row.
/// - Home and End lead to the first place and to the last.
/// - Left and Right lead to the place before and behind, past an end to the other end.
/// - Up and Down stay in their column. Past its top or bottom they go on at the far end of the
///   column before or behind, reckoned by the full rows alone; from the first place Up leads to the
///   last, and Down from the last to the first.
/// - Any other key gives the place back.
constexpr int MoveInGrid(int place, int key, int count, int columns)
{
    Q_ASSERT(columns > 0 && count >= columns && place >= 1 && place <= count);
    const int otherEnd = count / columns * columns - columns - 1;
    switch (key) {
    case Qt::Key_Home:
        return 1;
    case Qt::Key_End:
        return count;
    case Qt::Key_Left:
        return place == 1 ? count : place - 1;
    case Qt::Key_Right:
        return place == count ? 1 : place + 1;
    case Qt::Key_Up:
        if (place == 1)
            return count;
        return place <= columns ? place + otherEnd : place - columns;
    case Qt::Key_Down:
        if (place == count)
            return 1;
        return place + columns > count ? place - otherEnd : place + columns;
    default:
        return place;
    }
}
