// What the cells of the map hold and how they look: the default map, clicks, colours, the highlight
// and the grid lines; and the making of the map's controls.
#include "fontmap/FontMap.h"

#include "core/SettingsDefaults.h"
#include "fontmap/MapSize.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/ElidedLabel.h"
#include "platform/controls/MoveInGrid.h"
#include "platform/controls/Toolbar.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSlider>
#include <algorithm>

namespace {

constexpr ControlRow Rows[] = {
    {"CharButton", "FMapContainer", {0, 0, 11415, 3690}, "", "Characters of the FontMap"},
    {"clbFontMap", "FMapContainer", {0, -15, 11415, 390}, "", "FontMap bar"},
    {"tlbCustFMap", "clbFontMap", InBand, "", "Custom FontMaps"},
    {"tlbCFMapFmt", "clbFontMap", InBand, "", "FontMap format"},
    {"tlbCFMapName", "clbFontMap", InBand, "", "Custom FontMap's name"},
    {"pbxSetFMapSize", "tlbCFMapFmt", {0, 0, 2505, 360}, "Adjust FontMap Size"},
    {"MapSizeLabel", "pbxSetFMapSize", {30, 60, 855, 240}},
    {"lblSetFMapSizeNumber",
     "pbxSetFMapSize",
     {915, 60, 270, 240},
     "FontMap Size (Click to Change)"},
    {"tbxSetFMapSizeNumber", "pbxSetFMapSize", {915, 45, 270, 285}, "Enter FontMap size"},
    {"sldSetFMapSize", "pbxSetFMapSize", {1215, 45, 1230, 270}},
    {"pbxCFMName", "tlbCFMapName", InBand, "Custom Map currently loaded"},
    {"lblCFMName", "pbxCFMName", InBand, "Currently loaded Custom FontMap file name"},
};

using enum Toolbar::Kind;

constexpr ButtonRow<FontMap> Buttons[] = {
    {&FontMap::tlbCustFMap,
     {"CFMapLoad", "CFMapLoad", "Load a Cutsom FontMap", DropDown},
     [](FontMap &map) { map.FileCFMLoad->trigger(); },
     [](FontMap &map) { emit map.RecentMapsWanted(map.tlbCustFMap->button("CFMapLoad")->menu()); }},
    {&FontMap::tlbCustFMap,
     {"CFMapNew", "CFMapNew", "Create a New Custom FontMap"},
     [](FontMap &map) { map.FileCFMNew->trigger(); }},
    {&FontMap::tlbCustFMap,
     {"CFMapEdit", "CFMapEdit", "Edit Current Custom FontMap"},
     [](FontMap &map) { map.FileCFMEdit->trigger(); }},
    {&FontMap::tlbCustFMap,
     {"CFMapUnld", "CFMapUnld", "Unload Current Custom FontMap"},
     [](FontMap &map) { map.FileCFMUnld->trigger(); }},
    {&FontMap::tlbCFMapFmt,
     {"FMap-", "FMap-", "Reduce FontMap Size"},
     [](FontMap &map) { map.FMSmaller_Click(); }},
    {&FontMap::tlbCFMapFmt,
     {"FMap+", "FMap+", "Increase FontMap Size"},
     [](FontMap &map) { map.FMLarger_Click(); }},
    {&FontMap::tlbCFMapFmt,
     {"RAFMap", "RAFMap", "Realign FontMap (Activates Map Sizing)"},
     [](FontMap &map) { map.FMRealign->trigger(); }},
    {&FontMap::tlbCFMapFmt, {"", "", ""}},
    {&FontMap::tlbCFMapFmt,
     {"FMapFC", "FMapFC", "Set FontMap Font Color"},
     [](FontMap &map) { map.FMFColor->trigger(); }},
    {&FontMap::tlbCFMapFmt,
     {"FMapBC", "FMapBC", "Set FontMap Back Color"},
     [](FontMap &map) { map.FMBColor->trigger(); }},
    {&FontMap::tlbCFMapFmt, {"", "", ""}},
    {&FontMap::tlbCFMapFmt,
     {"FMapH", "FMapH", "Show Mouse Highlight", Check},
     [](FontMap &map) { map.FMHiLite->trigger(); }},
    {&FontMap::tlbCFMapFmt,
     {"FMapG", "FMapG", "Toggle FontMap Gridlines", Check},
     [](FontMap &map) { map.FMBorders->trigger(); }},
};

} // namespace

FontMap::FontMap(const TwipScale &scale, CharCells &zoom, QWidget *parent)
    : QWidget(parent), TextZoom(zoom), Form(Rows, "FMapContainer", this, scale)
{
    createControls(scale);
    connectControls();
}

void FontMap::createControls(const TwipScale &scale)
{
    CharButton = new CharCells(CellCount, this);
    Form.Adopt(CharButton, "CharButton");
    CharButton->setScale(scale);
    constexpr double firstTop = 375; // below the bars
    CharButton->setPlaces(MapSize::Cells(firstTop));
    CharButton->setReading(MapColumns, [this](int cell) { return SpokenCell(cell); });
    CharButton->setFocusPolicy(Qt::TabFocus); // a click gives the focus to where the character goes
    CharButton->installEventFilter(this);

    clbFontMap = Form.Make<BandBar>("clbFontMap", scale);
    tlbCustFMap = Form.Make<Toolbar>("tlbCustFMap");
    tlbCFMapFmt = Form.Make<Toolbar>("tlbCFMapFmt");
    tlbCFMapName = Form.Make<Toolbar>("tlbCFMapName");
    AddButtons(*this, Buttons);

    pbxSetFMapSize = Form.Make<QWidget>("pbxSetFMapSize");
    QLabel *sizeLabel = Form.MakeLabel("MapSizeLabel", "Map Size:", Qt::AlignLeft);
    sldSetFMapSize = Form.MakeNumberSlider(
        {"sldSetFMapSize", "lblSetFMapSizeNumber", "tbxSetFMapSizeNumber", "Set FontMap Size"}, 1,
        32, NumberSlider::NoNumber::CountsZero);
    sizeLabel->setBuddy(sldSetFMapSize->slider());
    // The window follows the size, so it must not run away from under the thumb.
    sldSetFMapSize->slider()->setTracking(false);
    sldSetFMapSize->showNumber("0");
    pbxCFMName = Form.Make<QWidget>("pbxCFMName");
    lblCFMName = Form.Make<ElidedLabel>("lblCFMName");
    auto *nameRow = new QHBoxLayout(pbxCFMName);
    nameRow->setContentsMargins(3, 0, 3, 0);
    nameRow->addWidget(lblCFMName);
    sizeContainers();
    tlbCFMapFmt->addPlaceholder(pbxSetFMapSize);
    tlbCFMapName->addPlaceholder(pbxCFMName, 1);
    clbFontMap->addBands({{tlbCustFMap}, {tlbCFMapFmt}, {tlbCFMapName}}, FMBandWidths);

    FileCFMLoad = ControlTable::MakeCommand(this, "FileCFMLoad");
    FileCFMNew = ControlTable::MakeCommand(this, "FileCFMNew");
    FileCFMEdit = ControlTable::MakeCommand(this, "FileCFMEdit");
    FileCFMUnld = ControlTable::MakeCommand(this, "FileCFMUnld");
    FMSmaller = ControlTable::MakeCommand(this, "FMSmaller");
    FMLarger = ControlTable::MakeCommand(this, "FMLarger");
    FMRealign = ControlTable::MakeCommand(this, "FMRealign");
    FMFColor = ControlTable::MakeCommand(this, "FMFColor");
    FMBColor = ControlTable::MakeCommand(this, "FMBColor");
    FMHiLite = ControlTable::MakeCommand(this, "FMHiLite");
    FMBorders = ControlTable::MakeCommand(this, "FMBorders");
}

void FontMap::connectControls()
{
    connect(CharButton, &CharCells::MouseDown, this, &FontMap::CharButton_MouseDown);
    connect(CharButton, &CharCells::MouseMove, this, &FontMap::CharButton_MouseMove);
    connect(sldSetFMapSize, &NumberSlider::Scrolled, this,
            [this](int value) { sldSetFMapSize->showNumber(QString::number(value)); });
    connect(sldSetFMapSize, &NumberSlider::ValueChanged, this, &FontMap::sldSetFMapSize_Change);
    connect(sldSetFMapSize, &NumberSlider::Finished, this, &FontMap::FocusFree);
    connect(FMSmaller, &QAction::triggered, this, &FontMap::FMSmaller_Click);
    connect(FMLarger, &QAction::triggered, this, &FontMap::FMLarger_Click);
    connect(FMHiLite, &QAction::triggered, this, &FontMap::FMHiLite_Click);
    connect(FMBorders, &QAction::triggered, this, &FontMap::FMBorders_Click);
}

void FontMap::SetScale(const TwipScale &scale)
{
    Form.setScale(scale);
    clbFontMap->setScale(scale);
    CharButton->setScale(scale);
    sizeContainers();
}

void FontMap::sizeContainers()
{
    // They stand in toolbars, whose rows ask for sizes instead of places.
    pbxSetFMapSize->setFixedSize(Form.scale().toPixels(Form.rect(pbxSetFMapSize)).size());
    constexpr double leastName = 600; // twips; a name is never seen as nothing
    pbxCFMName->setMinimumWidth(Form.scale().across(leastName));
}

void FontMap::FillDefaultMap()
{
    for (int cell = 0; cell < CellCount; ++cell) {
        CharButton->setCaption(cell, CharacterOf(FirstCode + cell));
        CharInfo.at(static_cast<std::size_t>(cell)) = DefaultCharTexts(FirstCode + cell);
    }
}

void FontMap::FillCustomMap(const CustomMapFile::Captions &captions)
{
    int control = 1;
    for (int cell = 0; cell < CellCount; ++cell) {
        const QString &caption = captions.at(static_cast<std::size_t>(cell));
        CharButton->setCaption(cell, caption);
        CharInfo.at(static_cast<std::size_t>(cell)) = CustomCharTexts(caption, control);
    }
}

void FontMap::ShowLoadedMap(bool loaded, const QString &name)
{
    for (const char *key : {"CFMapEdit", "CFMapUnld"})
        tlbCustFMap->enableButton(key, loaded);
    for (QAction *item : {FileCFMEdit, FileCFMUnld})
        item->setEnabled(loaded);
    clbFontMap->setBandVisible(NameBand, loaded);
    if (loaded) {
        lblCFMName->setWholeText(name);
        announce(this, "Custom FontMap " + name + " loaded");
    }
}

void FontMap::CharButton_MouseDown(int Index, Qt::MouseButton Button, const QPoint &At)
{
    if (Button == Qt::LeftButton)
        emit CharacterPicked(CharButton->Caption(Index));
    else if (Button == Qt::RightButton)
        emit MenuWanted(At);
}

void FontMap::CharButton_MouseMove(int Index)
{
    if (FMHiLite->isChecked()) {
        const ColorValue fore = TextZoom.ForeColor(0);
        const ColorValue back = TextZoom.BackColor(0);
        if (LastCell != Index)
            CharButton->setColors(LastCell, fore, back);
        CharButton->setColors(Index, back, fore);
    }
    emit CellEntered(Index);
    LastCell = Index;
    CharButton->setActiveCell(Index);
}

// The keyboard

bool FontMap::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        goTo(LastCell);
        return false;
    case QEvent::FocusOut:
        CharButton->setSelectedCell(-1);
        return false;
    case QEvent::KeyPress:
        return takeKey(static_cast<QKeyEvent &>(*event));
    case QEvent::ContextMenu: {
        const bool byKey =
            static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard;
        if (byKey)
            emit MenuWanted(CharButton->mapToGlobal(CharButton->pixels(keyCell()).center()));
        return byKey;
    }
    default:
        return false;
    }
}

bool FontMap::takeKey(const QKeyEvent &key)
{
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const int cell = keyCell();
    switch (key.key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit CharacterPicked(CharButton->Caption(cell));
        return true;
    case Qt::Key_Escape:
        emit FocusFree();
        return true;
    default:
        break;
    }
    const int typed = key.key() == Qt::Key_Delete ? -1 : cellOf(key.text());
    const int to = typed >= 0 ? typed : MoveInGrid(cell + 1, key.key(), CellCount, MapColumns) - 1;
    if (to == cell)
        return false;
    goTo(to);
    return true;
}

/// Where the keyboard is; the first cell before it was there.
int FontMap::keyCell() const
{
    return std::max(CharButton->selectedCell(), 0);
}

void FontMap::goTo(int cell)
{
    CharButton->setSelectedCell(cell);
    CharButton_MouseMove(cell);
}

/// The cell that holds what was typed; -1 if none does.
int FontMap::cellOf(const QString &typed) const
{
    for (int cell = 0; cell < CellCount && !typed.isEmpty(); ++cell)
        if (CharButton->Caption(cell) == typed)
            return cell;
    return -1;
}

// The cells

QString FontMap::SpokenCell(int Index) const
{
    const CharTexts &texts = CharInfo.at(static_cast<std::size_t>(Index));
    return ::SpokenCell({texts[DecimalRow], CharButton->Caption(Index), texts[KeystrokeRow]});
}

void FontMap::ApplyFontMapColors(bool SetFore, ColorValue NewFore, bool SetBack, ColorValue NewBack)
{
    if (!SetFore && !SetBack)
        return;
    const bool highlighted = isHighlighted();
    for (int cell = 0; cell < CellCount; ++cell)
        CharButton->setColors(cell, SetFore ? NewFore : CharButton->ForeColor(cell),
                              SetBack ? NewBack : CharButton->BackColor(cell));
    TextZoom.setColors(0, Fore.Color, Back.Color);
    if (highlighted)
        CharButton->setColors(LastCell, Back.Color, Fore.Color);
    emit ColorsChanged();
}

/// True if LastCell shows the two colours reversed.
bool FontMap::isHighlighted() const
{
    const ColorValue fore = TextZoom.ForeColor(0);
    const ColorValue back = TextZoom.BackColor(0);
    return fore != back && CharButton->ForeColor(LastCell) == back &&
           CharButton->BackColor(LastCell) == fore;
}

void FontMap::SetCellBorders(int Style)
{
    if (CharButton->BorderStyle(1) == Style)
        return;
    for (int cell = 0; cell < CellCount; ++cell)
        CharButton->setBorderStyle(cell, FMBorders->isChecked() ? 1 : 0);
}

void FontMap::FMHiLite_Click()
{
    tlbCFMapFmt->button("FMapH")->setChecked(FMHiLite->isChecked());
    CharButton->setColors(LastCell, TextZoom.ForeColor(0), TextZoom.BackColor(0));
}

void FontMap::FMBorders_Click()
{
    tlbCFMapFmt->button("FMapG")->setChecked(FMBorders->isChecked());
    SetCellBorders(FMBorders->isChecked() ? 1 : 0);
}
