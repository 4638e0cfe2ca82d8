// The bar between two areas, one above the other, by which they are pulled up and down. It tells
// where it is wanted and moves nothing: its owner places it and the areas.
#pragma once

#include "platform/Twips.h"

#include <QFrame>
#include <QPointer>
#include <functional>
#include <optional>

/// An invisible grip lies over the bar, wider than it and in the same parent, for a bar of two
/// pixels is hard to hit. It goes with the bar: place, visibility, tooltip, accessible name.
class SplitBar : public QFrame
{
    Q_OBJECT

public:
    /// Twips, as tops of the bar; a drag beyond them is no wish.
    struct Limits
    {
        double Top = 0;
        double Bottom = 0;
    };

    explicit SplitBar(const TwipScale &scale, QWidget *parent);
    ~SplitBar() override;
    Q_DISABLE_COPY_MOVE(SplitBar)

    void setScale(const TwipScale &scale) { Scale = scale; }
    /// Asked at every move of the mouse. Without it there are no limits.
    void setLimits(std::function<Limits()> limits) { LimitsNow = std::move(limits); }
    /// How far the grip reaches above the bar, in pixels; 3 at first, as below it. 0 leaves what
    /// stands right above to the mouse.
    void setReachAbove(int pixels);

signals:
    /// The bar is wanted with its top there, in twips. Wishes of two pixels or less are not told,
    /// so that it does not jitter.
    void Dragged(double target);
    /// The left button was let go, after a drag or without one.
    void Released();
    void DoubleClicked();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Takes an event of the bar or its grip; false if it is none of the mouse's.
    bool takeMouse(const QWidget *under, QEvent *event);
    void drag(int at);
    void placeGrip();

    TwipScale Scale;
    std::function<Limits()> LimitsNow;
    QPointer<QWidget> Grip;
    int ReachAbove = 3;
    std::optional<int> Hold; ///< pixels from the bar to where the mouse took its grip
};
