// The views beside the board: a character enlarged, its code in four bases, its keystroke, each
// with its switch. What to show is handed in; the side on which the views stand, the menu under the
// right button and the focus are the window's affair, and asked for by signals.
#pragma once

#include "fontmap/CharInfo.h"
#include "platform/controls/ControlTable.h"
#include "platform/controls/WheelSteps.h"

#include <QWidget>

class CharCells;
class QAction;
class QLabel;
class Toolbar;

class Views : public QWidget
{
    Q_OBJECT

public:
    Views(const TwipScale &scale, QWidget *parent);

    /// Shows a cell's character and texts in the views that are on. Looks nothing up: it runs at
    /// every move of the mouse over the map.
    void ShowCharacter(const QString &caption, const CharTexts &texts);
    void ZoomViewSet(bool On);
    void CodeViewSet(bool On);
    void KeystrokeViewSet(bool On);
    void ViewZoom_Click();
    void ViewCode_Click();
    void ViewKS_Click();
    void ViewAll_Click();
    void SetZoomSize(int Size); ///< points
    /// Presses the button of the side, "L" or "R", on which the views stand.
    void ShowSide(const QString &Side);
    /// Of the controls; those of the buttons are switched with all toolbars.
    void SetToolTips(bool on) { Form.SetToolTips(on); }
    void SetScale(const TwipScale &scale);

    Toolbar *ViewsTB = nullptr;
    QWidget *ZSzContainer = nullptr;
    CharCells *TextZoom = nullptr; ///< its two colours are the live ones of the map
    QWidget *CVAContainer = nullptr;
    NumberSlider *ZoomSizeSlider = nullptr; ///< with ZoomSizeNumber and ZoomSizeEdit
    QLabel *AscCode = nullptr;
    QLabel *HexCode = nullptr;
    QLabel *OctCode = nullptr;
    QLabel *BinCode = nullptr;
    QLabel *KS = nullptr;
    /// The switches, for a menu to show; their check marks are the state of the views.
    QAction *ViewZoom = nullptr, *ViewCode = nullptr, *ViewKS = nullptr, *ViewAll = nullptr;

signals:
    /// The views are wanted on the left ("L") or the right ("R").
    void SideWanted(const QString &side);
    /// A menu with this one switch is wanted at a point of the screen.
    void MenuWanted(QAction *command, const QPoint &at);
    /// The zoom size was set by hand: the focus is free.
    void FocusFree();

protected:
    /// Offers the switch of the view that was clicked, or that the focus is in.
    void contextMenuEvent(QContextMenuEvent *event) override;
    /// With Ctrl held the wheel sizes the character over which it is turned, while that is shown.
    void wheelEvent(QWheelEvent *event) override;

private:
    void createControls(const TwipScale &scale);
    void connectControls();

    ControlTable Form;
    WheelSteps Wheel;
};
