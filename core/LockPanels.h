// The panels of the status bar: which locks of the keyboard are on. A panel is dimmed while its
// lock is off, and where the window system does not tell.
#pragma once

#include "platform/KeyboardLocks.h"

#include <QWidget>

class LockPanels : public QWidget
{
    Q_OBJECT

public:
    explicit LockPanels(QWidget *parent);

    /// Nothing is known of the locks before its first refresh().
    KeyboardLocks &locks() { return Locks; }

private:
    void showLocks();

    KeyboardLocks Locks;
};
