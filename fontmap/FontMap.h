// The FontMap: the 224 cells and the bars above them, with what the cells hold, their colours and
// their size. It knows no other part of the window: a character that was picked, a cell that the
// mouse came to, a size that was reached are told by signals, and the window acts on them.
#pragma once

#include "fontmap/CharInfo.h"
#include "fontmap/ColorRecord.h"
#include "fontmap/CustomMapFile.h"
#include "platform/controls/ControlTable.h"
#include "platform/controls/WheelSteps.h"

#include <QWidget>

class BandBar;
class CharCells;
class ElidedLabel;
class QAction;
class QMenu;
class Toolbar;

class FontMap : public QWidget
{
    Q_OBJECT

public:
    /// The zoom is the one cell that shows a character enlarged: its two colours are the map's live
    /// ones. It must outlive the map.
    FontMap(const TwipScale &scale, CharCells &zoom, QWidget *parent);

    // ---- FontMap.cpp: what the cells hold and how they look

    void FillDefaultMap();
    void FillCustomMap(const CustomMapFile::Captions &captions);
    void CharButton_MouseDown(int Index, Qt::MouseButton Button, const QPoint &At);
    void CharButton_MouseMove(int Index);
    /// Code, character and keystroke of a cell in one line, as it is read out.
    QString SpokenCell(int Index) const;
    void ApplyFontMapColors(bool SetFore, ColorValue NewFore, bool SetBack, ColorValue NewBack);
    /// 1 for grid lines, 0 for none.
    void SetCellBorders(int Style);
    void FMHiLite_Click();
    void FMBorders_Click();
    /// The name of the loaded custom map in a band of its own, and the commands for it; without a
    /// map neither.
    void ShowLoadedMap(bool loaded, const QString &name);
    /// Of the controls; those of the buttons are switched with all toolbars.
    void SetToolTips(bool on) { Form.SetToolTips(on); }
    void SetScale(const TwipScale &scale);

    // ---- MapGrowth.cpp: the size of the cells

    /// Changes all cells and the bars by so many pixels a side, up or down.
    void SetFontMapSize(int Steps, bool Grow);
    void sldSetFMapSize_Change(int Value);
    void FMLarger_Click();
    void FMSmaller_Click();
    /// Takes the largest size for the screen of now over to the slider.
    void ComputeMaxMapSize();
    /// Brings size and slider to a screen of another width.
    void FitScreen();
    /// Whether this screen lets the map be sized at all.
    void EnableSizing(bool On);
    /// Brings the sizing commands in step; aligned means that the split bar is at its top.
    void UpdateSizeCommands(bool aligned);

    CharInfoTable CharInfo;
    int LastCell = 0; ///< that the mouse passed over
    ColorRecord Fore, Back;
    int SizeIndex = 0; ///< from 1; 0 while no size is known
    int MaxMapSize = 0;
    bool MapResizing = false; ///< while SetFontMapSize runs

    CharCells *CharButton = nullptr;
    BandBar *clbFontMap = nullptr;
    Toolbar *tlbCustFMap = nullptr, *tlbCFMapFmt = nullptr, *tlbCFMapName = nullptr;
    QWidget *pbxSetFMapSize = nullptr;
    NumberSlider *sldSetFMapSize = nullptr; ///< with lblSetFMapSizeNumber and tbxSetFMapSizeNumber
    QWidget *pbxCFMName = nullptr;
    ElidedLabel *lblCFMName = nullptr;
    /// The commands of the map, for a menu to show. Those for files are the window's to run.
    QAction *FileCFMLoad = nullptr, *FileCFMNew = nullptr;
    QAction *FileCFMEdit = nullptr, *FileCFMUnld = nullptr;
    QAction *FMSmaller = nullptr, *FMLarger = nullptr, *FMRealign = nullptr;
    QAction *FMFColor = nullptr, *FMBColor = nullptr;
    QAction *FMHiLite = nullptr, *FMBorders = nullptr;

signals:
    /// The drop-down of CFMapLoad opens and is to be filled.
    void RecentMapsWanted(QMenu *menu);
    /// A cell was clicked, which holds this; a blank one the empty text. If a key has picked it,
    /// the cells have the focus and keep it.
    void CharacterPicked(const QString &character);
    /// The mouse, or the keyboard, is at a cell.
    void CellEntered(int index);
    /// The menu of the map is wanted at a point of the screen.
    void MenuWanted(const QPoint &at);
    /// The live colours are others.
    void ColorsChanged();
    /// The map has this width and height in twips; MapResizing is true yet.
    void Resized(double width, double height);
    /// The slider has been followed.
    void SizeChanged();
    /// The number of the size was entered or left, or Esc pressed on the cells: the focus is free.
    void FocusFree();

protected:
    /// With Ctrl held the wheel sizes the map, where it can be sized.
    void wheelEvent(QWheelEvent *event) override;
    /// The keys on the cells: arrows, Home, End and a cell's own character go to a cell, Space and
    /// Enter pick its character.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static constexpr int NameBand = 2; ///< the band of clbFontMap with the custom map's name

    void createControls(const TwipScale &scale);
    void connectControls();
    void sizeContainers();
    bool isHighlighted() const;
    bool takeKey(const QKeyEvent &key);
    int keyCell() const;
    void goTo(int cell);
    int cellOf(const QString &typed) const;

    CharCells &TextZoom;
    ControlTable Form;
    bool Sizable = true; ///< on this screen
    WheelSteps Wheel;
};
