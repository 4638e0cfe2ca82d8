// The modal window that says what the program is and who made it. It reads the program's name and
// the credit line, and goes away at any key or click.
#pragma once

#include "platform/controls/FormDialog.h"

class QFrame;
class QLabel;

class About : public FormDialog
{
    Q_OBJECT

public:
    explicit About(QWidget *parent);

    QFrame *Background = nullptr; ///< full-size; what stands on it lets the mouse through
    QLabel *ZendovaLogo = nullptr;
    QLabel *ZendovaName = nullptr;
    QLabel *ZendovaVer = nullptr;
    QFrame *Line1 = nullptr;
    QLabel *ZendovaAuthor = nullptr;
    QLabel *Label3 = nullptr;
    QLabel *Label2 = nullptr;
    QFrame *Line2 = nullptr;
    QLabel *Label5 = nullptr;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createControls();
    QLabel *makeText(const char *name, const QString &text, Qt::Alignment alignment);
    QFrame *makeRule(const char *name);

    bool Pressed = false;
};
