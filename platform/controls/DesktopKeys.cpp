// From the keys to the menus and the focus.
#include "platform/controls/DesktopKeys.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcut>

namespace {

/// False where the window has no menu bar.
bool openFirstMenu(const QWidget *window)
{
    auto *bar = window->findChild<QMenuBar *>();
    if (!bar || !bar->isVisible() || bar->actions().isEmpty())
        return false;
    bar->setActiveAction(bar->actions().constFirst());
    return true;
}

void askForContextMenu(QWidget *control)
{
    const QPoint at = control->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, at, control->mapToGlobal(at));
    QApplication::sendEvent(control, &asked);
}

} // namespace

bool DesktopKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || QApplication::activePopupWidget())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    // A key comes to the window first, then to the widget with the focus, then to its parents.
    QWidget *const focus = QApplication::focusWidget();
    if (key->key() != Qt::Key_F10 || !focus || watched != focus)
        return false;
    if (key->modifiers() == Qt::NoModifier)
        return openFirstMenu(focus->window());
    if (key->modifiers() != Qt::ShiftModifier)
        return false;
    askForContextMenu(focus);
    return true;
}

BarRing::BarRing(QWidget *window, const QList<QWidget *> &bars) : QObject(window), Bars(bars)
{
    for (QWidget *bar : bars)
        bar->installEventFilter(this);
    connect(new QShortcut(Qt::Key_F8, window), &QShortcut::activated, this, &BarRing::next);
}

void BarRing::next()
{
    QWidget *const focus = QApplication::focusWidget();
    const qsizetype now = Bars.indexOf(focus);
    if (now < 0)
        Home = focus;
    for (qsizetype bar = now + 1; bar < Bars.size(); ++bar)
        if (Bars[bar]->isVisible() && Bars[bar]->isEnabled())
            return Bars[bar]->setFocus(Qt::ShortcutFocusReason);
    giveBack();
}

void BarRing::giveBack()
{
    if (Home)
        Home->setFocus(Qt::ShortcutFocusReason);
}

bool BarRing::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        giveBack();
        return true;
    default:
        return false;
    }
}
