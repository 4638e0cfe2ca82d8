// The modal editor of custom maps: characters are dealt out of a list into the slots of a map, and
// the map is saved. It gets fonts and the file to edit, and tells by MapEditSaved that the loaded
// map is another now. What a map holds while it is edited is MapEditing's affair.
#pragma once

#include "fontmap/MapEditing.h"
#include "fonttools/PassingFonts.h"
#include "platform/ColorValue.h"
#include "platform/FileLock.h"
#include "platform/controls/FormDialog.h"

class CharCells;
class CharList;
class FontCombo;
class FontList;
class QAction;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

class CustomMap : public FormDialog
{
    Q_OBJECT

public:
    /// The fonts are those that can be picked. A setup and exec() follow.
    CustomMap(const FontList &fonts, QWidget *parent);

    // The font is told by its place among the fonts, from 1, and by its name, which counts where it
    // has none; its size is in points.

    /// Prepares an empty map.
    void SetupNewCFMap(int FontIndex, const QString &FontName, double FontSize);
    /// Prepares the map of a file. Where it can't be read, gives the system's reason, or the empty
    /// text for a file that is no map: then there is nothing to show.
    [[nodiscard]] std::optional<QString> SetupEditCFMap(const QString &MapPath,
                                                        const QString &MapTitle, int FontIndex,
                                                        const QString &FontName, double FontSize);
    void ApplyEditorFont();
    void EditorToolTips();

    void lstFontChars_Click();
    void lblCFMap_Click(int Index);
    void lblCFMap_MouseMove(int Index);
    /// Takes a key (Qt::Key); false for one that is none of the map's.
    bool imgCMMFMapHolder_KeyDown(int Key);
    void cmdListToMap_Click();
    void cmdMapToList_Click();
    void cmbFontName_Click();
    void optFontSize_Click(int Index);
    void sldFontSize_Change(int Value);
    void btnSaveCFMap_Click();
    void btnSaveAsCFMap_Click();

    /// The last folder of the save dialog: in, and out.
    QString LMSavePath;
    /// The files that were saved.
    QStringList WrittenPaths;

    FontCombo *cmbFontName = nullptr;
    QRadioButton *optFontSize[2] = {};   ///< the size is the list's, or the map's
    NumberSlider *sldFontSize = nullptr; ///< with lblFontSizeNumber and tbxFontSizeNumber
    CharCells *lblTextZoom = nullptr;
    QLabel *lblKeyStroke = nullptr;
    CharList *lstFontChars = nullptr;
    QSpinBox *updListColumns = nullptr;
    QRadioButton *optShiftDir[2] = {}; ///< horizontal, vertical
    QPushButton *cmdListToMap = nullptr, *cmdMapToList = nullptr;
    QLabel *lblCharsInList = nullptr, *lblCharsInMap = nullptr;
    QPushButton *btnSaveCFMap = nullptr, *btnSaveAsCFMap = nullptr, *btnCancel = nullptr;
    QWidget *imgCMMFMapHolder = nullptr; ///< its keyboard is that of the slots
    CharCells *lblCFMap = nullptr;
    QAction *CFMapSave = nullptr, *CFMapSaveAs = nullptr, *MapExit = nullptr;
    QAction *MoveLtoM = nullptr, *MoveMtoL = nullptr;

    /// Every way of closing: asks first if there are changes, and may not close.
    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // CustomMapForm.cpp: the controls

    void createControls();
    void createFontControls();
    void createMap();
    void createMenus();
    void connectControls();
    void setTabOrders();

    // CustomMap.cpp: what they do

    void readSettings();
    void showMap(int fontIndex, const QString &fontName, double fontSize);
    void showTitle();
    void showCharacter(const QString &caption);
    void showMove(int from, ColorValue back);
    void highlight(int from, ColorValue back);
    void followSlot();
    void showSaveState();
    QString keyText(const QString &caption) const;
    QString spoken(const QString &caption) const;
    MapEditing::Shift shift() const;
    bool WriteMapFile(const QString &path);
    bool mayClose();
    void writeSettings();

    MapEditing Map;
    const std::array<QString, CellCount> KeyTexts = ::KeyTexts();
    QString MapFilePath, MapFileTitle; ///< empty while a new map has no file
    QString EditorFont;
    PassingFonts Shown;
    bool EditMode = false;
    bool MapSaved = false; ///< by btnSaveCFMap
    FileLock Lock;         ///< on the map's file
};
