// Collecting the digits of an Alt code and handing the character over as an input method would, so
// that each text box applies its own limit, validator and undo.
#include "platform/controls/AltCode.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

namespace {

// What the keys 0 to 9 of the number pad are without Num Lock.
constexpr std::array PadKeys = {Qt::Key_Insert, Qt::Key_End,   Qt::Key_Down,  Qt::Key_PageDown,
                                Qt::Key_Left,   Qt::Key_Clear, Qt::Key_Right, Qt::Key_Home,
                                Qt::Key_Up,     Qt::Key_PageUp};

/// True for a key of the number pad; one that moves the caret is told by its symbol alone under
/// Wayland (X keyboard symbols, KP_Home to KP_Delete).
bool isOnPad(const QKeyEvent &event)
{
    const quint32 symbol = event.nativeVirtualKey();
    return event.modifiers().testFlag(Qt::KeypadModifier) || (symbol >= 0xFF95 && symbol <= 0xFF9F);
}

std::optional<char16_t> digitOf(const QKeyEvent &event)
{
    if (event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9)
        return static_cast<char16_t>(u'0' + event.key() - Qt::Key_0);
    const auto *const pad = std::find(PadKeys.begin(), PadKeys.end(), event.key());
    if (pad != PadKeys.end() && isOnPad(event))
        return static_cast<char16_t>(u'0' + std::distance(PadKeys.begin(), pad));
    return std::nullopt;
}

/// The text box that a widget with the focus stands for, nullptr if none takes text there.
QWidget *textBoxOf(QWidget *focus)
{
    if (const auto *edit = qobject_cast<QPlainTextEdit *>(focus))
        return edit->isReadOnly() ? nullptr : focus;
    auto *line = qobject_cast<QLineEdit *>(focus);
    // An editable combo box and a spin box keep the focus in place of the box inside them.
    if (!line)
        line = focus->findChild<QLineEdit *>();
    const bool takesText =
        line && !line->isReadOnly() && (line == focus || line->focusProxy() == focus);
    return takesText ? line : nullptr;
}

} // namespace

AltCode::AltCode(std::function<QChar(int)> characterOf, QObject *parent)
    : QObject(parent), CharacterOf(std::move(characterOf))
{
}

bool AltCode::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::FocusOut && watched == Holder)
        Holder = nullptr;
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
        return false;
    // A key comes to the window first, then to the widget with the focus, then to its parents.
    QWidget *const focus = QApplication::focusWidget();
    if (!focus || watched != focus)
        return false;

    auto &key = static_cast<QKeyEvent &>(*event);
    if (key.key() != Qt::Key_Alt)
        return Holder && handleDigit(key);
    if (type == QEvent::KeyPress && !key.isAutoRepeat()) {
        Holder = textBoxOf(focus) ? focus : nullptr;
        Digits.clear();
    } else if (type == QEvent::KeyRelease && !key.isAutoRepeat()) {
        finish();
    }
    // The release goes on: the menu bar forgot the Alt key at the first digit.
    return false;
}

bool AltCode::handleDigit(QKeyEvent &event)
{
    const auto digit = digitOf(event);
    const auto others = Qt::ControlModifier | Qt::MetaModifier;
    if (digit && event.modifiers().testFlag(Qt::AltModifier) && !(event.modifiers() & others)) {
        if (event.type() == QEvent::KeyPress && !event.isAutoRepeat())
            Digits += QChar(*digit);
        event.accept();
        return true;
    }
    // Another key spoils the code until Alt goes up. A shortcut's key never arrives as a press, so
    // its announcement counts too. Some keyboards have the digits behind Shift.
    if (event.type() != QEvent::KeyRelease && event.key() != Qt::Key_Shift)
        Digits += QChar(u'-');
    return false;
}

void AltCode::finish()
{
    QWidget *const holder = std::exchange(Holder, nullptr);
    QWidget *const box = holder ? textBoxOf(holder) : nullptr;
    const int code = Digits.toInt();
    if (!box || Digits.size() != 4 || Digits[0] != u'0' || code < 32 || code > 255)
        return;
    QInputMethodEvent commit;
    commit.setCommitString(QString(CharacterOf(code)));
    QApplication::sendEvent(box, &commit);
}
