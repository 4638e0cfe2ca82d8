// The bar between two areas by which they are pulled up and down, or to the left and right. It
// tells where it is wanted and moves nothing: its owner places it and the areas.
#pragma once

#include "platform/Twips.h"
#include "platform/controls/Accessibility.h"

#include <QFrame>
#include <QPointer>
#include <functional>
#include <optional>

/// An invisible grip lies over the bar, wider than it and in the same parent, for a bar of two
/// pixels is hard to hit. It goes with the bar: place, visibility, tooltip. While
/// the bar has the focus, which no Tab gives it, the arrow keys and Page Up and Down pull it, and
/// Home and End take it as far as it goes.
class SplitBar : public QFrame, public SpokenBar
{
    Q_OBJECT

public:
    /// Twips, as tops of the bar, or as its left edges; a drag beyond them is no wish.
    struct Limits
    {
        double First = 0;
        double Last = 0;
    };

    /// `moves` is the way that the bar goes: with Vertical the areas lie one above the other.
    explicit SplitBar(const TwipScale &scale, QWidget *parent,
                      Qt::Orientation moves = Qt::Vertical);
    ~SplitBar() override;
    Q_DISABLE_COPY_MOVE(SplitBar)

    void setScale(const TwipScale &scale) { Scale = scale; }
    /// Asked at every move of the mouse. Without it there are no limits.
    void setLimits(std::function<Limits()> limits) { LimitsNow = std::move(limits); }
    /// How far the grip reaches above the bar or to its left, in pixels; 3 at first, as on the
    /// other side. 0 leaves what stands right there to the mouse.
    void setReachAbove(int pixels);

    Range spokenRange() const override;
    void pullTo(int place) override;

signals:
    /// The bar is wanted with its top, or its left edge, there, in twips. Up and down, wishes of
    /// two pixels or less are not told, so that it does not jitter.
    void Dragged(double target);
    /// The left button was let go, after a drag or without one; or a key was pressed.
    void Released();
    void DoubleClicked();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Takes an event of the bar or its grip; false if it is none of the mouse's.
    bool takeMouse(const QWidget *under, QEvent *event);
    void take(int at);
    void drag(int at);
    void placeGrip();
    /// The bar's top or left edge in pixels.
    int place() const { return isVertical() ? y() : x(); }
    double twips() const { return isVertical() ? Scale.Y : Scale.X; }
    bool isVertical() const { return Moves == Qt::Vertical; }

    TwipScale Scale;
    Qt::Orientation Moves;
    std::function<Limits()> LimitsNow;
    QPointer<QWidget> Grip;
    int ReachAbove = 3;
    std::optional<int> Hold; ///< pixels from the bar to where the mouse took its grip
};
