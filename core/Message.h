// The program's one way of telling and asking the user anything. The answer is in the public
// variables MsgResult and MsgDontRepeat when the call returns.
#pragma once

#include "platform/controls/FormDialog.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QScrollArea;

/// Shows a message and returns when it is closed. The lines of the text are joined by carriage
/// returns. Buttons is "OK" or "YN"; the title becomes the window's caption; DefaultButton 1 gives
/// the first focus to the first button, any other value to the second.
void ZndvMsg(const QString &MsgText, const QString &Buttons, const QString &Title, bool ShowCheck,
             int DefaultButton);

/// True while a modal dialog of any kind is open.
bool IsDialogOpen();

/// The dialog behind ZndvMsg. A call made while one is open opens a second above it.
class Message : public FormDialog
{
    Q_OBJECT

public:
    Message(const QString &MsgText, const QString &Buttons, const QString &Title, bool ShowCheck,
            int DefaultButton, QWidget *parent);

    QLabel *MessageArea = nullptr;
    QPushButton *Button1 = nullptr;
    QPushButton *Button2 = nullptr;
    QCheckBox *DisplayAgainCheck = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void createControls();
    void showText(QString text);

    QScrollArea *Scroll = nullptr; ///< around MessageArea; null while the text fits
};
