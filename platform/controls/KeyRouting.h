// Who gets the keys while a dialog or an open list waits for them. X11 sees to that by itself;
// under Wayland it is left to the program.
#pragma once

#include <QObject>

/// Installed on the application, one for all its windows:
/// - A window that gets the focus while a dialog keeps it from working hands the focus on to the
///   dialog, as far as the desktop lets it. A click behind the dialog would else leave the keyboard
///   without effect.
/// - A key that closes the open list of a box is not a key for the dialog behind as well, which Esc
///   and Enter would close along with it.
class KeyRouting : public QObject
{
    Q_OBJECT

public:
    explicit KeyRouting(QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool ForPopup = false; ///< the key that is on its way was announced to an open list or menu
};
