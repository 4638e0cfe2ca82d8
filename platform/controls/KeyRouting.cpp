// The focus that is handed on, and the key that goes no further.
#include "platform/controls/KeyRouting.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>
#include <utility>

namespace {

void passFocusToDialog()
{
    const QWindow *const focus = QGuiApplication::focusWindow();
    QWindow *const modal = QGuiApplication::modalWindow();
    if (focus && modal && focus != modal && !modal->isAncestorOf(focus, QWindow::IncludeTransients))
        modal->requestActivate();
}

} // namespace

KeyRouting::KeyRouting(QObject *parent) : QObject(parent)
{
    // Later, as the dialog may just be opening or closing.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &passFocusToDialog,
            Qt::QueuedConnection);
}

bool KeyRouting::eventFilter(QObject *watched, QEvent *event)
{
    // A key comes to the window first, announced by the question whether it is a shortcut. The list
    // of a combo box closes at the announcement.
    if (!watched->isWindowType())
        return false;
    if (event->type() == QEvent::ShortcutOverride)
        ForPopup = QApplication::activePopupWidget();
    else if (event->type() == QEvent::KeyPress)
        return std::exchange(ForPopup, false) && !QApplication::activePopupWidget();
    return false;
}
