// Alt+0nnn: a character by its code, in every text box of the program. An event filter for the
// application; it knows text boxes by the toolkit's classes only.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

class QKeyEvent;
class QWidget;

/// Alt held, 0 and three digits typed on the number pad (with or without Num Lock) or the digit
/// row, Alt released: the character of that code, 32 to 255, replaces the selection or goes in at
/// the caret of the text box with the focus. Other numbers insert nothing. Another key or the loss
/// of the focus gives the code up. To be installed with qApp->installEventFilter.
class AltCode : public QObject
{
    Q_OBJECT

public:
    /// The function gives the character of a code, 32..255.
    explicit AltCode(std::function<QChar(int code)> characterOf, QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleDigit(QKeyEvent &event);
    void finish();

    std::function<QChar(int)> CharacterOf;
    QPointer<QWidget> Holder; ///< has the focus since Alt went down; none while no code is typed
    QString Digits;
};
