// The places of a window's controls in twips, and the one point where they become pixels. The
// layout code reads and writes twips only.
#pragma once

#include "platform/Twips.h"

#include <QHash>
#include <cmath>

class QFont;
class QWidget;

/// Holds each control's place relative to its parent. Controls must outlive the form's last use of
/// them; reading a control that was never placed gives an empty place.
class TwipForm
{
public:
    explicit TwipForm(const TwipScale &scale) : Scale(scale) {}

    /// The font that every window laid out in twips sets on itself: the desktop's sans-serif
    /// at 8.25 points, for which the layouts are drawn. A larger font of the desktop's would be cut
    /// off.
    static QFont font();

    /// The desktop's font for the controls of a class of the toolkit. It holds within a window that
    /// wears the form font too.
    static QFont desktopFont(const char *className);

    const TwipScale &scale() const { return Scale; }
    /// Twips of one pixel; the number of those down is whole.
    double TwipsX() const { return Scale.X; }
    double TwipsY() const { return std::round(Scale.Y); }
    TwipScale wholeScale() const { return {.X = TwipsX(), .Y = TwipsY()}; }
    /// Takes another density and moves every control to its pixels.
    void setScale(const TwipScale &scale);

    void place(QWidget *control, const TwipRect &rect);
    TwipRect rect(const QWidget *control) const { return Places.value(control).Rect; }

    double left(const QWidget *control) const { return rect(control).Left; }
    double top(const QWidget *control) const { return rect(control).Top; }
    double width(const QWidget *control) const { return rect(control).Width; }
    double height(const QWidget *control) const { return rect(control).Height; }
    void setLeft(QWidget *control, double twips);
    void setTop(QWidget *control, double twips);
    void setWidth(QWidget *control, double twips);
    void setHeight(QWidget *control, double twips);

private:
    struct Placed
    {
        QWidget *Control = nullptr;
        TwipRect Rect;
    };
    TwipScale Scale;
    QHash<const QWidget *, Placed> Places;
};
