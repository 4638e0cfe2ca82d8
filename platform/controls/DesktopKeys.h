// The keys of the desktop that the toolkit leaves to nobody on X11 and Wayland: F10 for the menu
// bar, Shift+F10 for the context menu. An event filter for the application, and the ring of a
// window's bars. They know windows by the toolkit's classes only.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class QKeyEvent;

/// F10 opens the first menu of the window with the focus. Shift+F10 asks the control with the focus
/// for its context menu, as the menu key does. To be installed with qApp->installEventFilter.
class DesktopKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};

/// F8 gives the focus to the bars of a window, one after the other, for their keys to pull them,
/// and then back to where it was. Esc and Enter give it back at once. Hidden bars are passed over.
class BarRing : public QObject
{
    Q_OBJECT

public:
    BarRing(QWidget *window, const QList<QWidget *> &bars);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void next();
    void giveBack();

    QList<QWidget *> Bars;
    QPointer<QWidget> Home; ///< had the focus before
};
