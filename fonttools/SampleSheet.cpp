// The formulas of the sheet, its scroll bars and the name above it.
#include "fonttools/SampleSheet.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double LargestSheet = 32767;

constexpr double DesignWidth = 6030;
constexpr double DesignHeight = 4215;
constexpr double DesignLineEnd = 6495;

constexpr double AlphaLeft = 180;
constexpr double AlphaTop = 135;
constexpr double TypeLeft = 540;
constexpr double PointWidth = 315;
constexpr double PointHeight = 300;

// The other distances are in pixels.
constexpr int AlphaGap = 4;
constexpr int LineGap = 13; // above and below the dividing line
constexpr int TypeGap = 6;
constexpr int Margin = 10; // behind the last line

constexpr int GrowsBelow = 30; // free pixels
constexpr int ShrinksFrom = 10;
constexpr int LastToGrow = 24; // points

TwipRect roomAt(double left, double top, const QSizeF &room)
{
    return {.Left = left, .Top = top, .Width = room.width(), .Height = room.height()};
}

double below(const TwipRect &line)
{
    return line.Top + line.Height;
}

} // namespace

SampleSheet SheetFor(const QString &sampleText, const RoomOf &room, const TwipScale &scale)
{
    const double Y = std::round(scale.Y);
    SampleSheet sheet;
    double top = AlphaTop;
    for (std::size_t i = 0; i < sheet.AlphaSample.size(); ++i) {
        const QString text = QString::fromLatin1(SampleSheet::AlphaTexts[i]);
        sheet.AlphaSample[i] = roomAt(AlphaLeft, top, room(text, SampleSheet::AlphaPoints));
        top = below(sheet.AlphaSample[i]) + AlphaGap * Y;
    }
    sheet.DivLine = below(sheet.AlphaSample.back()) + LineGap * Y;
    top = sheet.DivLine + LineGap * Y;
    for (std::size_t i = 0; i < sheet.TypeSample.size(); ++i) {
        const TwipRect sample = roomAt(TypeLeft, top, room(sampleText, SampleSheet::Points[i]));
        sheet.TypeSample[i] = sample;
        sheet.PointSize[i] = {.Left = AlphaLeft,
                              .Top = sample.Top + (sample.Height - PointHeight) / 2,
                              .Width = PointWidth,
                              .Height = PointHeight};
        top = below(sample) + TypeGap * Y;
    }
    const TwipRect &last = sheet.TypeSample.back();
    sheet.Height = std::min(below(last) + Margin * Y, LargestSheet);
    sheet.Width = std::min(last.Left + last.Width + Margin * scale.X, LargestSheet);
    sheet.DivLineEnd = sheet.Width;
    return sheet;
}

SampleSheet DesignSheet(const QString &sampleText, const RoomOf &room, const TwipScale &scale)
{
    SampleSheet sheet = SheetFor(sampleText, room, scale);
    sheet.Width = DesignWidth;
    sheet.Height = DesignHeight;
    sheet.DivLineEnd = DesignLineEnd;
    return sheet;
}

QString SampleTextFor(const QString &stored)
{
    constexpr int longest = 45; // characters
    return stored.trimmed().isEmpty()
               ? QStringLiteral("The Quick Brown Fox Jumped Over The Lazy Dog.")
               : stored.left(longest);
}

ScrollRange ScrollRangeFor(double sheet, double view)
{
    if (sheet <= view)
        return {};
    const double page = std::nearbyint((sheet - view) / (sheet / view));
    const double largeChange = std::max(page, 1.0);
    return {.Maximum = static_cast<int>(std::nearbyint(sheet - view)),
            .LargeChange = static_cast<int>(largeChange),
            .SmallChange = static_cast<int>(std::nearbyint(std::max(largeChange * 0.1, 1.0)))};
}

int RaisedNameSize(int points, double outerWidth, double twipsX, const EdgeAt &edge)
{
    while (points <= LastToGrow && edge(points) + GrowsBelow * twipsX < outerWidth)
        ++points;
    return points;
}

int LoweredNameSize(int points, double outerWidth, double twipsX, const EdgeAt &edge)
{
    while (points > 1 && edge(points) + ShrinksFrom * twipsX > outerWidth)
        --points;
    return points;
}

int FittedNameSize(int points, double outerWidth, double twipsX, const EdgeAt &edge)
{
    return edge(points) + GrowsBelow * twipsX < outerWidth
               ? RaisedNameSize(points, outerWidth, twipsX, edge)
               : LoweredNameSize(points, outerWidth, twipsX, edge);
}
