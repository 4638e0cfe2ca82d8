// The modal window that shows which key gives which character of a font, and the characters that no
// key gives. It changes no font itself: its owner asks which one was set. What is chosen in it is
// forgotten when it closes, and its fonts are given back.
#pragma once

#include "fonttools/PassingFonts.h"
#include "platform/controls/FormDialog.h"

#include <QSet>

class CharCells;
class FontCombo;
class FontList;
class KeyboardPicture;
class QFrame;
class QKeyEvent;
class QPushButton;
class QToolButton;

class Keyboard : public FormDialog
{
    Q_OBJECT

public:
    Keyboard(const FontList &fonts, QWidget *parent);

    /// To be called once, before the window is shown: the program's current font, its position in
    /// the list from 1, and the size in points in which it is shown.
    void SetupKeyboard(int FontIndex, const QString &FontName, double FontSize);

    /// The font that the user has set, once the window is closed; empty for none.
    const QString &ChosenFont() const { return Chosen; }

    void ShowUnshifted();
    void ShowShifted();

    KeyboardPicture *picKeyboard = nullptr;
    CharCells *lblFontChar = nullptr; ///< one cell a character key
    KeyboardPicture *lblLShift = nullptr, *lblRShift = nullptr;
    KeyboardPicture *picLShiftPressed = nullptr, *picRShiftPressed = nullptr;
    FontCombo *cmbFontName = nullptr;
    NumberSlider *sldFontSize = nullptr; ///< with lblFontSizeNumber and tbxFontSizeEdit
    QToolButton *chkSplChar = nullptr;
    QFrame *picSplChar = nullptr;
    CharCells *lblSplChar = nullptr; ///< one cell a slot
    QPushButton *cmdSetFont = nullptr;
    QPushButton *cmdOK = nullptr;

    void cmbFontName_Click();
    void sldFontSize_Change(int value);
    void lblFontChar_Click();
    void cmdSetFont_Click();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;

private:
    void createControls();
    void createPicture();
    void createPanel();
    void connectControls();
    void orderTabs();
    CharCells *makeCells(const char *name, int count, TwipRect (*placeOf)(int));
    KeyboardPicture *makeShift(const char *name, const QString &file = {});
    void keyDown(const QKeyEvent &key);
    void keyUp(const QKeyEvent &key);
    bool isShifted() const;
    void showShift(bool shifted);
    void showFont(const QString &name);

    PassingFonts Shown;
    QString KBStartFont;
    QString KBFontName;
    QString Chosen;
    /// The Shift keys that are down, by their scan codes: as one of two comes up, the event itself
    /// tells of no other.
    QSet<quint32> HeldShifts;
};
