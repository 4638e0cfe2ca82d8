// The text box of the find bar: one line in the characters of the code page. It leaves the keys of
// the Edit commands, and files that are dropped, to the window.
#pragma once

#include <QLineEdit>

/// What comes in, typed, composed, dropped, pasted or set by code, is brought into the code page. A
/// line end in it stays, and shows as blanks.
class FindBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit FindBox(QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
};
