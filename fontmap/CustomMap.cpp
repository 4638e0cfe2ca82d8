// What the editor does: each handler reads the controls, asks MapEditing and shows the outcome. The
// controls are made in CustomMapForm.cpp.
#include "fontmap/CustomMap.h"

#include "core/CheckDFFFunctions.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "fontmap/CharList.h"
#include "platform/FileName.h"
#include "platform/RegularFile.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/FontCombo.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace {

constexpr double ZoomSize = 60; // points

constexpr ColorValue Black = RGBValue(0, 0, 0);
constexpr ColorValue White = RGBValue(255, 255, 255);
constexpr ColorValue Highlight = SystemColorValue(13);

const QString OpenElsewhere = QStringLiteral("It is open for editing in another copy of Zendova");

constexpr QStringView Key = u"CFMEditor"; // of the settings

qint32 storedNumber(QStringView name, qint32 standard)
{
    const SettingValue value = RegReadValue(HKEY_CURRENT_USER, SettingsPath(Key), name);
    const bool isThere = !std::holds_alternative<std::monostate>(value);
    return isThere ? toNumber(value, Key, name) : standard;
}

/// Checks one of two options. The Tab key leads to that one, which the toolkit sees to only when
/// one of them has had the focus.
void choose(QRadioButton *(&options)[2], int index)
{
    options[index]->setChecked(true);
    options[index]->setFocusPolicy(Qt::StrongFocus);
    options[1 - index]->setFocusPolicy(Qt::ClickFocus);
}

void tellNotSaved(const QString &reason, const QString &path)
{
    ZndvMsg("\rThe map could not be saved.\rIt is still in the editor.\r\r" + reason + '\r' + path,
            "OK", ProductName + " Custom Map Save Error", false, 1);
}

} // namespace

// Setting up

void CustomMap::SetupNewCFMap(int FontIndex, const QString &FontName, double FontSize)
{
    EditMode = false;
    Map = MapEditing();
    MapFilePath.clear();
    showMap(FontIndex, FontName, FontSize);
}

std::optional<QString> CustomMap::SetupEditCFMap(const QString &MapPath, const QString &MapTitle,
                                                 int FontIndex, const QString &FontName,
                                                 double FontSize)
{
    // Locked before it is read, so that what is read is what is kept from others.
    Lock = FileLock::shared(MapPath);
    if (!Lock.isHeld())
        return OpenElsewhere;
    const RegularFile::Reading file = RegularFile::read(MapPath, CustomMapFile::MostBytes);
    const auto captions = CustomMapFile::read(file.Bytes);
    if (!captions) {
        Lock.release();
        return file.Reason;
    }
    EditMode = true;
    Map = MapEditing(*captions);
    MapFilePath = MapPath;
    MapFileTitle = MapTitle;
    showTitle();
    showMap(FontIndex, FontName, FontSize);
    return std::nullopt;
}

void CustomMap::showMap(int fontIndex, const QString &fontName, double fontSize)
{
    cmbFontName->SelectItem(fontIndex);
    EditorFont = fontName;
    choose(optFontSize, 1);
    for (int slot = 0; slot < CellCount; ++slot) {
        lblCFMap->setCaption(slot, Map.caption(slot));
        lblCFMap->setColors(slot, Black, White);
    }
    lstFontChars->setCodes(Map.list());
    ApplyEditorFont();
    sldFontSize->setValue(NumberSlider::whole(fontSize));
    sldFontSize_Change(sldFontSize->value()); // also where it was that already
    QFont ofList = lstFontChars->charFont();
    ofList.setPointSizeF(fontSize);
    lstFontChars->setCharFont(ofList);
    if (lstFontChars->ListCount() > 0)
        lstFontChars->setListIndex(0);
    showMove(Map.MapIndex(), Black);
    lstFontChars->setFocus();
}

void CustomMap::showTitle()
{
    setWindowTitle("Zendova Custom FontMap Editor :  " + FileName::inTitle(MapFileTitle));
}

// Font and sizes

void CustomMap::ApplyEditorFont()
{
    if (cmbFontName->SelectedItem() > 0)
        EditorFont = cmbFontName->Text();
    QFont face = Shown.font(EditorFont);
    face.setPointSizeF(lblCFMap->cellFont().pointSizeF());
    lblCFMap->setCellFont(face);
    face.setPointSizeF(lstFontChars->charFont().pointSizeF());
    lstFontChars->setCharFont(face);
    face.setPointSizeF(ZoomSize);
    lblTextZoom->setCellFont(face);
}

void CustomMap::cmbFontName_Click()
{
    if (cmbFontName->Text() != EditorFont)
        ApplyEditorFont();
}

void CustomMap::optFontSize_Click(int Index)
{
    const QFont &font = Index == 0 ? lstFontChars->charFont() : lblCFMap->cellFont();
    sldFontSize->setValue(NumberSlider::whole(font.pointSizeF()));
}

void CustomMap::sldFontSize_Change(int Value)
{
    const bool ofList = optFontSize[0]->isChecked();
    QFont font = ofList ? lstFontChars->charFont() : lblCFMap->cellFont();
    font.setPointSize(Value);
    if (ofList)
        lstFontChars->setCharFont(font);
    else
        lblCFMap->setCellFont(font);
    sldFontSize->showNumber(QString::number(Value));
}

// List and map

void CustomMap::lstFontChars_Click()
{
    showCharacter(CharacterOf(lstFontChars->code(lstFontChars->ListIndex())));
    highlight(Map.MapIndex(), Highlight);
    followSlot();
}

void CustomMap::lblCFMap_Click(int Index)
{
    const int from = Map.MapIndex();
    Map.setMapIndex(Index);
    highlight(from, Black);
    followSlot();
    imgCMMFMapHolder->setFocus();
}

void CustomMap::lblCFMap_MouseMove(int Index)
{
    showCharacter(Map.caption(Index));
}

/// The buttons stay as they are: they follow when the keyboard leaves the map.
bool CustomMap::imgCMMFMapHolder_KeyDown(int Key)
{
    const int from = Map.MapIndex();
    if (!Map.moveByKey(Key))
        return false;
    highlight(from, Black);
    return true;
}

void CustomMap::cmdListToMap_Click()
{
    const int ListPos = lstFontChars->ListIndex();
    const int from = Map.MapIndex();
    if (ListPos < 0 || !Map.listToMap(lstFontChars->code(ListPos), shift()))
        return;
    lblCFMap->setCaption(from, Map.caption(from));
    announce(this, spoken(Map.caption(from)) + ", to the map");
    lstFontChars->removeItem(ListPos);
    if (const int count = lstFontChars->ListCount(); count > 0)
        lstFontChars->setListIndex(std::min(ListPos, count - 1));
    showMove(from, Highlight);
}

void CustomMap::cmdMapToList_Click()
{
    const int from = Map.MapIndex();
    const std::optional<int> code = Map.mapToList(shift());
    if (!code)
        return;
    lblCFMap->setCaption(from, {});
    announce(this, spoken(CharacterOf(*code)) + ", to the list");
    lstFontChars->insertCode(*code);
    lstFontChars->setListIndex(std::max(lstFontChars->ListIndex(), 0));
    showMove(from, Black);
}

MapEditing::Shift CustomMap::shift() const
{
    return optShiftDir[1]->isChecked() ? MapEditing::Shift::Vertical
                                       : MapEditing::Shift::Horizontal;
}

/// After a move that has left the slot `from`.
void CustomMap::showMove(int from, ColorValue back)
{
    highlight(from, back);
    followSlot();
    lblCharsInList->setText(QString::number(Map.CharsInList()));
    lblCharsInMap->setText(QString::number(CellCount - Map.CharsInList()));
    showSaveState();
    (cmdListToMap->isEnabled() ? cmdListToMap : cmdMapToList)->setFocus();
}

void CustomMap::highlight(int from, ColorValue back)
{
    lblCFMap->setColors(from, Black, White);
    lblCFMap->setColors(Map.MapIndex(), White, back);
    lblCFMap->setActiveCell(Map.MapIndex());
    tellCurrentCell(lblCFMap, Map.MapIndex());
}

/// Offers the move that the highlighted slot allows.
void CustomMap::followSlot()
{
    const bool empty = Map.isEmpty();
    cmdListToMap->setEnabled(empty);
    MoveLtoM->setEnabled(empty);
    cmdMapToList->setEnabled(!empty);
    MoveMtoL->setEnabled(!empty);
}

void CustomMap::showCharacter(const QString &caption)
{
    lblTextZoom->setCaption(0, caption);
    lblKeyStroke->setText(keyText(caption));
}

QString CustomMap::keyText(const QString &caption) const
{
    if (caption.isEmpty())
        return {};
    return KeyTexts.at(static_cast<std::size_t>(MapEditing::codeOf(caption) - FirstCode));
}

QString CustomMap::spoken(const QString &caption) const
{
    if (caption.isEmpty())
        return SpokenCell({});
    return SpokenCell({QString::number(MapEditing::codeOf(caption)), caption, keyText(caption)});
}

// Saving

void CustomMap::showSaveState()
{
    const bool save = Map.isDirty() && !MapFilePath.isEmpty();
    if (!save && btnSaveCFMap->hasFocus())
        lstFontChars->setFocus(); // and not Cancel, which is next
    btnSaveCFMap->setEnabled(save);
    CFMapSave->setEnabled(save);
}

/// True with no lock held, for the caller to take the next one. False where the file was not
/// written: the user is told, and the map's own file is locked as for reading.
bool CustomMap::WriteMapFile(const QString &path)
{
    Lock.release(); // which may be on this very file
    std::optional<QString> reason = OpenElsewhere;
    if (const FileLock alone = FileLock::exclusive(path); alone.isHeld())
        reason = RegularFile::write(path, CustomMapFile::write(Map.captions()));
    if (reason) {
        Lock = FileLock::shared(MapFilePath);
        tellNotSaved(*reason, path);
        return false;
    }
    Map.markSaved();
    WrittenPaths += path;
    return true;
}

void CustomMap::btnSaveCFMap_Click()
{
    if (!WriteMapFile(MapFilePath))
        return;
    Lock = FileLock::exclusive(MapFilePath);
    MapSaved = true;
    showSaveState();
}

void CustomMap::btnSaveAsCFMap_Click()
{
    const auto chosen = CmnDlg::ShowSave(this, {.DialogTitle = "Save Custom Map As",
                                                .Filter = CustomMapFile::FileFilter,
                                                .Flags = FileOffer::OverwritePrompt,
                                                .InitDir = LMSavePath,
                                                .FileName = MapFilePath});
    if (!chosen)
        return;
    if (chosen->FileName == MapFilePath)
        return btnSaveCFMap_Click();
    if (!WriteMapFile(chosen->FileName))
        return;
    MapFilePath = chosen->FileName;
    MapFileTitle = chosen->FileTitle;
    LMSavePath = WithoutSeparator(SplitAtLastSeparator(MapFilePath).Folder);
    Lock = FileLock::shared(MapFilePath);
    showTitle();
    showSaveState();
}

// Closing, and what is kept

void CustomMap::reject()
{
    const bool close = mayClose();
    writeSettings();
    if (MapSaved && EditMode)
        MapEditSaved = true;
    if (!close)
        return;
    Lock.release();
    FormDialog::reject();
}

bool CustomMap::mayClose()
{
    if (!Map.isDirty())
        return true;
    ZndvMsg("\r\rThere are changes pending to be saved\rwhich will be lost if you exit now."
            "\r\rDo you really want to close the Editor?\r\r",
            "YN", ProductName + " Custom Map Save Warning", false, 2);
    return MsgResult;
}

void CustomMap::readSettings()
{
    updListColumns->setValue(storedNumber(u"ListCols", 10));
    lstFontChars->setColumns(updListColumns->value());
    choose(optShiftDir, storedNumber(u"ShiftDir", 0) == 1 ? 1 : 0);
}

void CustomMap::writeSettings()
{
    const auto oneTransaction = GroupRegWrites();
    const qint32 columns = updListColumns->value();
    const qint32 direction = optShiftDir[1]->isChecked() ? 1 : 0;
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(Key), u"ListCols", columns, REG_DWORD);
    RegWriteValue(HKEY_CURRENT_USER, SettingsPath(Key), u"ShiftDir", direction, REG_DWORD);
}
