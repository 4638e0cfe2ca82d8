// The font browser in lengths: where the lines of the sample sheet stand, how it scrolls, how large
// the font's name above it is written. Knows no font and no window: how much room a text takes is
// asked. Lengths are in twips.
#pragma once

#include "platform/Twips.h"

#include <QSizeF>
#include <QString>
#include <array>
#include <functional>

/// Three lines of alphabet, a dividing line, and a sentence in seven sizes with their numbers.
struct SampleSheet
{
    static constexpr int AlphaPoints = 12;
    static constexpr std::array<const char *, 3> AlphaTexts = {
        "ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz", "1234567890.:,;(*!?')"};
    static constexpr std::array<int, 7> Points = {12, 18, 24, 36, 48, 60, 72};

    std::array<TwipRect, 3> AlphaSample{};
    double DivLine = 0; ///< its top; it goes from the left edge of the sheet to `DivLineEnd`
    double DivLineEnd = 0;
    std::array<TwipRect, 7> PointSize{};
    std::array<TwipRect, 7> TypeSample{};
    double Width = 0;
    double Height = 0;
};

/// The room that a text takes in so many points.
using RoomOf = std::function<QSizeF(const QString &text, int points)>;

/// The sheet of a font. It is never larger than 32,767 twips, whatever its last line needs.
SampleSheet SheetFor(const QString &sampleText, const RoomOf &room, const TwipScale &scale);

/// The same before any font was chosen: the sheet keeps its first size, whatever the lines need.
SampleSheet DesignSheet(const QString &sampleText, const RoomOf &room, const TwipScale &scale);

/// The sentence on the sheet: the stored one, at most 45 characters of it, unless it is blank.
QString SampleTextFor(const QString &stored);

struct ScrollRange
{
    int Maximum = 0; ///< 0 where all is in view
    int LargeChange = 1;
    int SmallChange = 1;
};

/// How a bar scrolls over so much of the sheet where so much of it is in view.
ScrollRange ScrollRangeFor(double sheet, double view);

/// Where the far right end of the name above the sheet is if it is written in so many points.
using EdgeAt = std::function<double(int points)>;

/// The size to which a name may grow from `points` in a window of this outer width: one more than
/// 24 at most. No less than `points`.
int RaisedNameSize(int points, double outerWidth, double twipsX, const EdgeAt &edge);
/// The size to which it has to shrink, 1 at least.
int LoweredNameSize(int points, double outerWidth, double twipsX, const EdgeAt &edge);
/// Either, as there is room.
int FittedNameSize(int points, double outerWidth, double twipsX, const EdgeAt &edge);
