// Which keys the text boxes of the main window leave to its commands. Knows key events only.
#pragma once

#include <QKeyEvent>
#include <QKeySequence>

namespace EditKeys {

/// Ctrl is held, and not as a part of AltGr.
inline bool isCommand(const QKeyEvent &event)
{
    return (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
}

inline bool isRedo(const QKeyEvent &event)
{
    return event.matches(QKeySequence::Redo) ||
           (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Y);
}

/// The Edit commands own the clipboard's keys, and the window's commands the letters with Ctrl, of
/// which the toolkit takes some for deleting to the end of a line and the like.
inline bool belongsToWindow(const QKeyEvent &event)
{
    if (isRedo(event) || event.matches(QKeySequence::Undo))
        return false;
    if (event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Copy) ||
        event.matches(QKeySequence::Paste) || event.matches(QKeySequence::SelectAll))
        return true;
    return isCommand(event) && event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
}

} // namespace EditKeys
