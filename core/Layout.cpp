// The window's size and the areas in it, all in twips: how they follow the map's size, how the
// split bar moves the map, and on which side the views stand. The cells themselves are the map's
// topic.
#include "core/Zendova.h"

#include "core/Display.h"
#include "core/LockPanels.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/SysInfo.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/SplitBar.h"
#include "textboard/FillBar.h"
#include "textboard/FindBar.h"
#include "textboard/TextBoard.h"

#include <QLayout>
#include <algorithm>
#include <cmath>

namespace {

// The outer size of the window counts a frame and title of these pixels, which are not ours to
// draw.
constexpr int FrameAcross = 8;
constexpr int FrameDown = 46;

/// Topmost place of the split bar, in pixels.
constexpr int MinSplitPixels = 276;

/// What the window needs below the map and above the work area's edge, in pixels.
constexpr int BelowMap = 72;

} // namespace

void Zendova::SetFormSize(double Width, double Height)
{
    const bool changed = Width != OuterWidth || Height != OuterHeight;
    OuterWidth = Width;
    OuterHeight = Height;
    const TwipScale &scale = Form.scale();
    Client->setFixedSize(scale.across(Width) - FrameAcross, scale.down(Height) - FrameDown);
    layout()
        ->activate(); // the window takes its new size now, not at the next turn of the event loop
    if (changed)
        Form_Resize();
}

QPoint Zendova::FormPlace() const
{
    return SysInfo::current().PlacesWindows() ? pos() : AskedPlace;
}

double Zendova::FormLeft() const
{
    return FormPlace().x() * Form.scale().X;
}

double Zendova::FormTop() const
{
    return FormPlace().y() * Form.scale().Y;
}

void Zendova::SetFormPosition(double Left, double Top)
{
    AskedPlace = {Form.scale().across(Left), Form.scale().down(Top)};
    move(AskedPlace);
}

void Zendova::KeepInView()
{
    // The place may be that of a screen that is gone, or of a smaller window. What does not fit
    // shows its upper left corner, where the menus are.
    const SysInfo &screen = SysInfo::current();
    const auto within = [](double place, double from, double room) {
        return std::clamp(place, from, from + std::max(room, 0.0));
    };
    const double left =
        within(FormLeft(), screen.WorkAreaLeft(), screen.WorkAreaWidth() - FormWidth());
    const double top =
        within(FormTop(), screen.WorkAreaTop(), screen.WorkAreaHeight() - FormHeight());
    // A window manager may shift a window by its frame even when it is asked for the same place.
    if (left != FormLeft() || top != FormTop())
        SetFormPosition(left, top);
}

void Zendova::AdoptScale()
{
    const TwipScale scale = SysInfo::current().scale();
    if (scale == Form.scale())
        return;
    Form.setScale(scale);
    for (BandBar *bar : {CoolBarCM, CoolBarTB})
        bar->setScale(scale);
    SplitBar->setScale(scale);
    TBPContainer->SetScale(scale);
    ViewsContainer->SetScale(scale);
    FindFrame->SetScale(scale);
    FMapContainer->SetScale(scale);
    SetFormSize(OuterWidth, OuterHeight);
}

void Zendova::Form_Resize()
{
    if (ScreenWidth != DisplayMode::Display()) {
        ScreenWidth = DisplayMode::Display();
        FMapContainer->FitScreen();
        if (SplitIsDown())
            ResetSplit(FMapContainer->SizeIndex - 1);
        KeepInView();
    }
    // The areas follow also when the width of the screen was another one: it is the same by now.
    // Apart from the map's size only leaving a restored width changes the window's.
    if (FMapContainer->MapResizing || LaidOutWidth != OuterWidth) {
        LaidOutWidth = OuterWidth;
        Form.setWidth(CoolBarCM, OuterWidth - 3 * EdgeMargin);
        Form.setWidth(SplitBar, Form.width(FMapContainer) - 3 * Form.TwipsX());
        Form.setWidth(TextBoard,
                      OuterWidth - 3 * EdgeMargin - Form.width(ViewsContainer) - 2 * Form.TwipsX());
        Form.setWidth(CoolBarTB, Form.width(TextBoard));
        Form.setLeft(StatBar, OuterWidth - 2 * EdgeMargin - Form.width(StatBar));
        Form.setLeft(FindFrame, Form.left(TextBoard));
        Form.setWidth(FindFrame, Form.width(TextBoard) - 2 * Form.TwipsX());
        FindFrame->Stretch(Form.width(FindFrame));
        if (VCPosition == "R")
            SetViewsSide(VCPosition);
    }
    if (FirstActivate)
        Form.setTop(SplitBar, Form.top(FMapContainer) - 2 * Form.TwipsY());
    Form.setTop(LLVContainer, Form.top(FMapContainer) + Form.height(FMapContainer));
    Form.setTop(StatBar, Form.top(LLVContainer));
    UpdateMapCommands(2);
}

void Zendova::SetViewsSide(const QString &Side)
{
    const bool left = Side != "R";
    ViewsContainer->ShowSide(Side);
    const double boardLeft = (left ? 143 : 7) * Form.TwipsX();
    Form.setLeft(CoolBarTB, boardLeft);
    Form.setLeft(TextBoard, boardLeft);
    Form.setLeft(ViewsContainer,
                 left ? 7 * Form.TwipsX() : boardLeft + Form.width(TextBoard) + 2 * Form.TwipsX());
    Form.setLeft(FindFrame, boardLeft + 2 * Form.TwipsX());
}

void Zendova::PutViews(const QString &Side)
{
    VCPosition = Side;
    SetViewsSide(Side);
}

double Zendova::TopmostSplit() const
{
    return MinSplitPixels * Form.TwipsY();
}

bool Zendova::SplitIsDown() const
{
    return Form.top(SplitBar) > TopmostSplit();
}

double Zendova::LowestSplit() const
{
    return SysInfo::current().WorkAreaHeight() - Form.height(FMapContainer) -
           BelowMap * Form.TwipsY();
}

void Zendova::MoveSplit(double target)
{
    const double delta = std::round(target - Form.top(SplitBar));
    Form.setHeight(TextBoard, Form.height(TextBoard) + delta);
    PlaceFindBar();
    Form.setTop(FMapContainer, Form.top(FMapContainer) + delta);
    // Before the window's size, whose handler brings the sizing commands in step with the bar.
    Form.setTop(SplitBar, Form.top(SplitBar) + delta);
    SetFormSize(OuterWidth, OuterHeight + delta);
}

void Zendova::SplitBar_MouseUp()
{
    UpdateMapCommands(2);
    KeepInView();
    if (!SplitBar->hasFocus()) // whose keys pull it on
        TextBoard->setFocus();
}

void Zendova::SplitBar_DblClick()
{
    if (SplitIsDown())
        ResetSplit(FMapContainer->SizeIndex - 1);
    else if (LowestSplit() > Form.top(SplitBar))
        MoveSplit(LowestSplit());
    KeepInView();
    TextBoard->setFocus();
}

void Zendova::GiveFindRoom(double Room)
{
    Form.setHeight(TextBoard, Form.height(TextBoard) + FindRoom - Room);
    FindRoom = Room;
    PlaceFindBar();
    // The buttons of an open find bar reach down to the split bar.
    constexpr int reach = 3; // pixels
    SplitBar->setReachAbove(Room > 0 ? 0 : reach);
}

void Zendova::PlaceFindBar()
{
    Form.setTop(FindFrame, Form.top(TextBoard) + Form.height(TextBoard) + 2 * Form.TwipsY());
}
