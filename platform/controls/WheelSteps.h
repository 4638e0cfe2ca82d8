// The wheel turned with Ctrl held, by which people change sizes: what of its turning is whole
// steps.
#pragma once

#include <QWheelEvent>

/// Keeps what is left of a step, as wheels that turn smoothly tell of many small parts of one.
class WheelSteps
{
public:
    static bool isMeant(const QWheelEvent &event)
    {
        return event.modifiers().testFlag(Qt::ControlModifier);
    }

    /// The whole steps that are reached by this turn; up, away from the user, is above 0.
    int take(const QWheelEvent &event)
    {
        const int turned = event.angleDelta().y();
        if ((turned < 0) != (Rest < 0))
            Rest = 0; // turning back begins anew
        Rest += turned;
        const int steps = Rest / QWheelEvent::DefaultDeltasPerStep;
        Rest %= QWheelEvent::DefaultDeltasPerStep;
        return steps;
    }

private:
    int Rest = 0; ///< eighths of a degree
};
