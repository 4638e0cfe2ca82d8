// The size of the map, from 1 to what the screen allows: the cells grow by a pixel a side, and the
// window follows. Owns SizeIndex and MaxMapSize and the state of the sizing commands.
#include "core/Zendova.h"

#include "core/Display.h"
#include "fontmap/MapSize.h"
#include "platform/SysInfo.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QLabel>
#include <algorithm>

namespace {

constexpr int MapRows = CellCount / MapColumns;
constexpr int NameBand = 2; ///< the band of clbFontMap with the custom map's name

} // namespace

void Zendova::ComputeMaxMapSize()
{
    MaxMapSize = MapSize::Largest(Display(), TwipsX);
    // Where the commands are off for this screen the split bar is hidden, and they stay off.
    pbxSetFMapSize->setEnabled(MaxMapSize > 1 && !SplitBar->isHidden());
    // A narrow screen gives 0 or less, and size 1 stands on every screen.
    sldSetFMapSize->setMost(std::max(MaxMapSize, 1));
}

void Zendova::EnableSizing(bool on)
{
    for (const char *key : {"FMap-", "FMap+", "RAFMap"})
        EnableButton(tlbCFMapFmt, key, on);
    pbxSetFMapSize->setEnabled(on);
    for (QAction *item : {FMSmaller, FMLarger, FMRealign})
        item->setEnabled(on);
    SplitBar->setVisible(on);
}

void Zendova::InitFontMapSizing()
{
    const TwipScale scale = SysInfo::current().scale();
    TwipsX = scale.X;
    TwipsY = std::round(scale.Y);
    const MapSize::Sizing sizing = MapSize::SizingFor(Display(), TwipsX);
    if (sizing != MapSize::Sizing::AsItIs)
        EnableSizing(sizing == MapSize::Sizing::On);
    ComputeMaxMapSize();
    UpdateMapCommands(2);
}

void Zendova::SetFontMapSize(int Steps, bool Grow)
{
    MapResizing = true;
    FMapContainer->hide();
    const double across = (Grow ? 1 : -1) * Steps * TwipsX;
    const double down = (Grow ? 1 : -1) * Steps * TwipsY;
    const double side = CharButton->place(0).Width;
    std::vector<TwipRect> places;
    places.reserve(CellCount);
    for (int cell = 0; cell < CellCount; ++cell) {
        const int column = cell % MapColumns;
        const int row = cell / MapColumns;
        TwipRect place = CharButton->place(cell);
        place.Left += across * column;
        place.Top += down * row;
        place.Width = side + across;
        place.Height = side + down;
        places.push_back(place);
    }
    CharButton->setPlaces(places);

    const TwipRect &first = CharButton->place(0);
    Form.setHeight(FMapContainer, Form.height(clbFontMap) + MapRows * first.Height - 4 * TwipsY);
    Form.setWidth(FMapContainer, MapColumns * first.Width - 23 * TwipsX);
    Form.setWidth(clbFontMap, Form.width(FMapContainer));
    Form.setWidth(CharButton, Form.width(FMapContainer));
    Form.setHeight(CharButton, Form.height(FMapContainer));
    const double nameWidth =
        Form.width(clbFontMap) - (clbFontMap->bandWidth(0) + clbFontMap->bandWidth(1));
    clbFontMap->setBandWidth(NameBand, nameWidth);
    Form.setWidth(pbxCFMName, nameWidth);
    Form.setWidth(lblCFMName, nameWidth);
    SizeMapContainers();

    const TwipScale scale{.X = TwipsX, .Y = TwipsY};
    const double needed = MapSize::FormHeight(SizeIndex - 1, scale);
    // A height or a size that this screen can't show would put the map out of reach.
    const double saved = std::min(SavedFormHeight, SysInfo::current().WorkAreaHeight());
    if (!DefaultsApplied && FirstActivate && saved > needed && SizeIndex <= MaxMapSize) {
        Form.setTop(FMapContainer, saved - Form.height(FMapContainer) - 68 * TwipsY);
        Form.setHeight(TextBoard,
                       saved - Form.top(TextBoard) - Form.height(FMapContainer) - 70 * TwipsY);
        // A width that is damaged, or of another density, may neither cut the map off nor leave
        // the screen.
        const double least = MapSize::FormWidth(SizeIndex - 1, scale);
        const double most = std::max(least, SysInfo::current().WorkAreaWidth());
        SetFormSize(std::clamp(SavedFormWidth, least, most), saved);
    } else {
        ResetSplit(sldSetFMapSize->value() - 1);
    }
    if (VCPosition == "R")
        SetViewsSide(VCPosition);
    FMapContainer->show();
    MapResizing = false;
    DefaultsApplied = false;
}

void Zendova::SizeMapContainers()
{
    // These two stand in toolbars, whose rows ask for sizes instead of places.
    for (QWidget *container : {pbxSetFMapSize, pbxCFMName})
        container->setFixedSize(Form.scale().toPixels(Form.rect(container)).size());
}

void Zendova::ResetSplit(int Steps)
{
    Steps = std::max(Steps, 0); // while no size is known, the smallest stands
    // The board keeps the room free that an open find bar has from it.
    Form.setHeight(TextBoard, Form.height(ViewsContainer) - 24 * TwipsY - FindRoom);
    PlaceFindBar();
    Form.setTop(FMapContainer, Form.top(ViewsContainer) + Form.height(ViewsContainer) + 2 * TwipsY);
    Form.setTop(SplitBar, Form.top(FMapContainer) - 2 * TwipsY);
    const TwipScale scale{.X = TwipsX, .Y = TwipsY};
    SetFormSize(MapSize::FormWidth(Steps, scale), MapSize::FormHeight(Steps, scale));
    UpdateMapCommands(2);
    if (!MapResizing)
        TextBoard->setFocus();
}

void Zendova::UpdateMapCommands(int Which)
{
    if (Which == 1) {
        const bool loaded = !LoadedMapPath.isEmpty();
        EnableButton(tlbCustFMap, "CFMapEdit", loaded);
        EnableButton(tlbCustFMap, "CFMapUnld", loaded);
        clbFontMap->setBandVisible(NameBand, loaded);
        if (loaded)
            lblCFMName->setText(
                LoadedMapName.chopped(std::min<qsizetype>(4, LoadedMapName.size())));
        return;
    }
    if (!SplitBar->isHidden()) {
        const bool aligned = !SplitIsDown();
        pbxSetFMapSize->setEnabled(aligned);
        for (const char *key : {"FMap+", "FMap-"})
            EnableButton(tlbCFMapFmt, key, aligned);
        FMSmaller->setEnabled(aligned);
        FMLarger->setEnabled(aligned);
        EnableButton(tlbCFMapFmt, "RAFMap", !aligned);
        FMRealign->setEnabled(!aligned);
    }
    const auto limit = [this](bool reached, const char *key, QAction *item) {
        if (!reached && !pbxSetFMapSize->isEnabled())
            return;
        EnableButton(tlbCFMapFmt, key, !reached);
        item->setEnabled(!reached);
    };
    limit(MaxMapSize == SizeIndex, "FMap+", FMLarger);
    limit(SizeIndex <= 1, "FMap-", FMSmaller);
}

void Zendova::FMLarger_Click()
{
    sldSetFMapSize->setValue(sldSetFMapSize->value() + 1);
}

void Zendova::FMSmaller_Click()
{
    sldSetFMapSize->setValue(sldSetFMapSize->value() - 1);
}

void Zendova::FMRealign_Click()
{
    ResetSplit(SizeIndex - 1);
}

void Zendova::sldSetFMapSize_Change(int Value)
{
    sldSetFMapSize->showNumber(QString::number(Value));
    // While no size is known the cells stand as they were made, at the smallest.
    const int from = std::max(SizeIndex, 1);
    if (Value != SizeIndex) {
        SetFontMapSize(std::abs(Value - from), Value > from);
        SizeIndex = Value;
        UpdateMapCommands(2);
    }
    if (!FirstActivate) {
        KeepInView();
        TextBoard->setFocus();
    }
}
