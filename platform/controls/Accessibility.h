// What assistive tools are told of the program's own controls: the role of a plain widget, cells
// that a widget paints itself, the place of a bar, and news that a person who doesn't see the
// screen waits for. Made when a tool asks, never before.
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>

class QWidget;

/// To be inherited by a widget that paints its cells itself: tools meet each as an item of a list
/// in rows. Cells count from 0, row by row.
class SpokenCells
{
public:
    virtual ~SpokenCells() = default;
    virtual int spokenCount() const = 0;
    virtual int spokenColumns() const = 0;
    virtual QString spokenName(int index) const = 0;
    virtual QString spokenDescription(int index) const = 0;
    /// The cell's pixels in the widget.
    virtual QRect spokenPlace(int index) const = 0;
    /// The cell at a point of the widget; -1 beside them.
    virtual int spokenAt(const QPoint &point) const = 0;
    /// The one that is selected, or told of just now; -1 for none.
    virtual int spokenCell() const = 0;
    /// Does what a click on the cell does.
    virtual void pressCell(int index) = 0;
};

/// To be inherited by a widget that is pulled between two ends, in pixels.
class SpokenBar
{
public:
    struct Range
    {
        int Least = 0;
        int Most = 0;
        int Now = 0;
    };
    virtual ~SpokenBar() = default;
    virtual Range spokenRange() const = 0;
    virtual void pullTo(int place) = 0;
};

/// The role in which assistive tools meet a control that has no class of its own for it. To be
/// called before anything else is told of the control.
void setAccessibleRole(QWidget *control, QAccessible::Role role);

/// Tells tools that the keyboard is at a cell of the widget, a SpokenCells, if it has the focus.
void tellCurrentCell(QWidget *cells, int index);

/// Tells tools where a SpokenBar is now.
void tellPlace(QWidget *bar);

/// Has tools say a text, whatever has the focus. For what a person has asked for or has to know,
/// and not for every key or move of the mouse.
void announce(const QWidget *from, const QString &text);

/// Lets assistive tools meet the program's own controls as what they are. Further calls do nothing.
void installAccessibility();
