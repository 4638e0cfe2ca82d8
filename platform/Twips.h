// Lengths of the user interface. All layout state is kept in twips (1/1440 inch) and becomes pixels
// here and nowhere else; fonts and colours are no business of this file.
#pragma once

#include <QRect>
#include <QRectF>
#include <cmath>

/// A control's place in its parent, in twips.
struct TwipRect
{
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;

    bool operator==(const TwipRect &) const = default;
};

/// How many twips one device-independent pixel has, across and down: 1440 divided by the screen's
/// logical dots per inch, so 15 at 96 and 12 at 120. The toolkit scales pixels for dense screens.
struct TwipScale
{
    double X = 15;
    double Y = 15;

    bool operator==(const TwipScale &) const = default;

    /// Twips to whole pixels, to the nearest, halves away from zero.
    int across(double twips) const { return static_cast<int>(std::lround(twips / X)); }
    int down(double twips) const { return static_cast<int>(std::lround(twips / Y)); }

    /// Both edges are converted and then subtracted, so that neighbours that touch in twips touch
    /// in pixels and never gap.
    QRect toPixels(const TwipRect &r) const
    {
        const QPoint topLeft(across(r.Left), down(r.Top));
        return QRect(topLeft, QPoint(across(r.Left + r.Width) - 1, down(r.Top + r.Height) - 1));
    }
};
