// How the window follows the map: where a picked character goes, which sizes this screen allows,
// and the layout of map, board and window for a size.
#include "core/Zendova.h"

#include "core/Display.h"
#include "fontmap/FontMap.h"
#include "fontmap/MapSize.h"
#include "fontmap/Views.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/SplitBar.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <algorithm>

void Zendova::InitFontMapSizing()
{
    AdoptScale();
    const MapSize::Sizing sizing = MapSize::SizingFor(DisplayMode::Display(), Form.TwipsX());
    if (sizing != MapSize::Sizing::AsItIs) {
        FMapContainer->EnableSizing(sizing == MapSize::Sizing::On);
        SplitBar->setVisible(sizing == MapSize::Sizing::On);
    }
    FMapContainer->ComputeMaxMapSize();
    UpdateMapCommands(2);
}

void Zendova::FMapContainer_Resized(double Width, double Height)
{
    Form.setWidth(FMapContainer, Width);
    Form.setHeight(FMapContainer, Height);
    ResetSplit(FMapContainer->sldSetFMapSize->value() - 1);
    if (VCPosition == "R")
        SetViewsSide(VCPosition);
}

void Zendova::FMapContainer_SizeChanged()
{
    UpdateMapCommands(2);
    if (FirstActivate)
        return;
    KeepInView();
    TextBoard->setFocus();
}

void Zendova::FMapContainer_CharacterPicked(const QString &Character)
{
    const bool find = FindFrame->FindHasFocus();
    if (find)
        FindFrame->FindString->setFocus();
    else if (!FMapContainer->CharButton->hasFocus())
        TextBoard->setFocus();
    // A blank cell moves the focus and takes no selection away.
    if (Character.isEmpty())
        return;
    if (find)
        FindFrame->FindString->insert(Character);
    else
        TextBoard->setSelText(Character);
    announce(this, Character + " inserted");
}

void Zendova::ResetSplit(int Steps)
{
    Steps = std::max(Steps, 0); // while no size is known, the smallest stands
    const double pixel = Form.TwipsY();
    // The board keeps the room free that an open find bar has from it.
    Form.setHeight(TextBoard, Form.height(ViewsContainer) - 24 * pixel - FindRoom);
    PlaceFindBar();
    Form.setTop(FMapContainer, Form.top(ViewsContainer) + Form.height(ViewsContainer) + 2 * pixel);
    Form.setTop(SplitBar, Form.top(FMapContainer) - 2 * pixel);
    SetFormSize(MapSize::FormWidth(Steps, Form.wholeScale()),
                MapSize::FormHeight(Steps, Form.wholeScale()));
    UpdateMapCommands(2);
    if (!FMapContainer->MapResizing)
        TextBoard->setFocus();
}

void Zendova::FMRealign_Click()
{
    ResetSplit(FMapContainer->SizeIndex - 1);
}

void Zendova::UpdateMapCommands(int Which)
{
    if (Which == 1)
        ShowLoadedMap();
    else
        FMapContainer->UpdateSizeCommands(!SplitIsDown());
}
