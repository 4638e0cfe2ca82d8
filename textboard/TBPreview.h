// The modal window that shows the board's text over the whole work area of the screen, to be read.
// The caret moves; it comes from the public TextSelStart, and goes back there with Close.
#pragma once

#include "platform/controls/FormDialog.h"

class QFrame;
class QLabel;
class QPushButton;
class TextBoard;

class TBPreview : public FormDialog
{
    Q_OBJECT

public:
    /// Takes text, format and caret of the board over, which it never touches.
    TBPreview(const TextBoard &board, QWidget *parent);

    void CloseButton_Click();

    QLabel *Heading = nullptr;
    QPushButton *CloseButton = nullptr;
    QFrame *PreviewTBHolder = nullptr;
    TextBoard *PreviewTB = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void createControls();
    void coverWorkArea();
    void placeControls();
    void showBoard(const TextBoard &board);
    void PreviewTB_GotFocus();
    bool takeKey(QKeyEvent &key);
};
