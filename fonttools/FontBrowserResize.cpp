// How the font browser follows its size, its splitter and its scroll bars. All lengths are twips;
// the window's own are those with its frame.
#include "fonttools/FontBrowser.h"

#include "fonttools/FormResizeFunctions.h"
#include "fonttools/SamplePlate.h"
#include "platform/SysInfo.h"
#include "platform/controls/SplitBar.h"

#include <QFontMetrics>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace {

void setRange(QScrollBar &bar, const ScrollRange &range)
{
    bar.setPageStep(range.LargeChange);
    bar.setSingleStep(range.SmallChange);
    bar.setMaximum(range.Maximum);
}

} // namespace

double FontBrowser::OuterHeight() const
{
    return (height() + SizableFrame.height()) * Form.TwipsY();
}

double FontBrowser::OuterWidth() const
{
    return (width() + SizableFrame.width()) * Form.TwipsX();
}

// ---- The least size

/// As far as the splitter is to the right, the window has to be wide.
void FontBrowser::takeMinimum()
{
    const double Y = Form.TwipsY();
    const SysInfo &screen = SysInfo::current();
    const double screenWidth = screen.screenWidth() * Form.TwipsX();
    const double screenHeight = screen.screenHeight() * Y;
    MinHeight = Form.top(SPlateHolder) + 235 * Y;
    MinWidth = Form.left(SPlateHolder) + 390 * Form.TwipsX();
    if (MinHeight > screenHeight)
        MinHeight = screenHeight - 10 * Y;
    if (MinWidth > screenWidth)
        MinWidth = screenWidth - 10 * Form.TwipsX();
    if (OuterHeight() >= MinHeight && OuterWidth() >= MinWidth)
        holdMinimum();
}

/// The desktop holds the window to it, which makes a smaller one larger at once.
void FontBrowser::holdMinimum()
{
    HoldTrackSize(*this, QSize(Form.scale().across(MinWidth), Form.scale().down(MinHeight)));
}

// ---- The name

double FontBrowser::nameEdge(int points) const
{
    QFont font = FontNameLabel->font();
    font.setPointSize(points);
    return Form.left(FontNameLabel) +
           QFontMetrics(font).horizontalAdvance(FontNameLabel->text()) * Form.TwipsX();
}

void FontBrowser::nameInSize(int points)
{
    QFont font = FontNameLabel->font();
    font.setPointSize(points);
    FontNameLabel->setFont(font);
    TwipRect place = Form.rect(FontNameLabel);
    place.Width = nameEdge(points) - place.Left;
    place.Height = QFontMetrics(font).height() * Form.TwipsY();
    Form.place(FontNameLabel, place);
}

void FontBrowser::FitFontNameLabel()
{
    nameInSize(FittedNameSize(FontNameLabel->font().pointSize(), OuterWidth(), Form.TwipsX(),
                              [this](int points) { return nameEdge(points); }));
}

// ---- Scrolling

/// Gives the sheet the size that its font needs, and shows its beginning.
void FontBrowser::placeSheet()
{
    const SampleSheet &sheet = SamplePlate->Sheet();
    // Also where it has been scrolled and now fits, and no bar could bring it back.
    Form.place(SamplePlate, {0, 0, sheet.Width, sheet.Height});
    recomputeBarDown();
    recomputeBarAcross();
    SVScroll->setValue(0);
    SHScroll->setValue(0);
}

void FontBrowser::recomputeBarDown()
{
    const double inner = Form.height(SPlateHolder) - 2 * SampleFrame::Border * Form.TwipsY();
    const double ViewHeight = std::nearbyint(inner - Form.height(SHScroll));
    setRange(*SVScroll, ScrollRangeFor(Form.height(SamplePlate), ViewHeight));
}

/// True if there is anything to scroll.
bool FontBrowser::recomputeBarAcross()
{
    const double inner = Form.width(SPlateHolder) - 2 * SampleFrame::Border * Form.TwipsX();
    const double ViewWidth = inner - Form.width(SVScroll);
    setRange(*SHScroll, ScrollRangeFor(Form.width(SamplePlate), ViewWidth));
    return SHScroll->maximum() > 0;
}

/// At the very end of the bar the sheet stays where the last step has left it.
void FontBrowser::SHScroll_Change(int value)
{
    if (value < SHScroll->maximum())
        Form.setLeft(SamplePlate, -value);
}

void FontBrowser::SVScroll_Change(int value)
{
    if (value < SVScroll->maximum())
        Form.setTop(SamplePlate, -value);
}

/// Shows more of a sheet that was scrolled away, up to its beginning.
void FontBrowser::moveSheet(double TwipRect::*edge, double by)
{
    TwipRect place = Form.rect(SamplePlate);
    if (place.*edge < 0)
        place.*edge = std::min(place.*edge + by, 0.0);
    Form.place(SamplePlate, place);
}

// ---- The size of the window

void FontBrowser::resizeEvent(QResizeEvent *event)
{
    FormDialog::resizeEvent(event);
    Form_Resize();
}

void FontBrowser::Form_Resize()
{
    const double H = OuterHeight(), W = OuterWidth();
    if (H < MinHeight || W < MinWidth) {
        holdMinimum(); // and comes back with the larger size
        return;
    }
    if (H != PrevHeight)
        layOutDown(H - PrevHeight);
    if (W != PrevWidth)
        layOutAcross(W - PrevWidth);
    PrevHeight = H;
    PrevWidth = W;
}

void FontBrowser::layOutDown(double grown)
{
    const double Y = Form.scale().Y;
    const double ScaleH = height() * Y;
    const double list = ScaleH - 140 * Y;
    Form.setHeight(FontListView, list);
    Form.setTop(Form.Control("SummaryFrame"), list + 43 * Y);
    Form.setHeight(SplitBar, list - 49 * Y);
    Form.setHeight(SPlateHolder, list + 28 * Y);
    const double inner = Form.height(SPlateHolder) - 2 * SampleFrame::Border * Y;
    Form.setHeight(Form.Control("SPlateView"), inner);
    Form.setTop(SHScroll, inner - Form.height(SHScroll));
    Form.setHeight(SVScroll, inner - Form.height(SHScroll) + 2 * Y);
    Form.setTop(Form.Control("SHoleBlock"), Form.height(SVScroll));
    if (grown > 0)
        moveSheet(&TwipRect::Top, grown);
    recomputeBarDown();
    Form.setTop(OkButton, Form.top(SPlateHolder) + Form.height(SPlateHolder) + 5 * Y);
    Form.setTop(SetFontButton, Form.top(OkButton));
}

void FontBrowser::layOutAcross(double grown)
{
    const double X = Form.TwipsX();
    const double ScaleW = width() * X;
    Form.setWidth(SPlateHolder, ScaleW - Form.left(SplitBar) - Form.width(SplitBar) - 12 * X);
    placePlateAcross();
    fillRoomAcross(grown);
    if (recomputeBarAcross())
        SHScroll_Change(SHScroll->value());
    Form.setLeft(OkButton, OuterWidth() - Form.width(OkButton) - 20 * X);
    Form.setLeft(SetFontButton, OuterWidth() - Form.width(SetFontButton) - 120 * X);
}

void FontBrowser::placePlateAcross()
{
    const double X = Form.TwipsX();
    const double inner = Form.width(SPlateHolder) - 2 * SampleFrame::Border * X;
    Form.setWidth(Form.Control("SPlateView"), inner);
    Form.setWidth(SHScroll, inner - Form.width(SVScroll) + 2 * X);
    Form.setLeft(SVScroll, inner - Form.width(SVScroll));
    Form.setLeft(Form.Control("SHoleBlock"), Form.width(SHScroll));
}

/// Sheet and name fill the room to the right of the list, which has grown by so much.
void FontBrowser::fillRoomAcross(double grown)
{
    const auto edge = [this](int points) { return nameEdge(points); };
    const int points = FontNameLabel->font().pointSize();
    if (grown > 0)
        moveSheet(&TwipRect::Left, grown);
    nameInSize(grown > 0 ? RaisedNameSize(points, OuterWidth(), Form.TwipsX(), edge)
                         : LoweredNameSize(points, OuterWidth(), Form.TwipsX(), edge));
}

// ---- The splitter

void FontBrowser::SplitBar_MouseMove(double SplitLeft)
{
    constexpr double jitter = 4;
    const double SplitDelta = std::nearbyint(SplitLeft - Form.left(SplitBar));
    if (std::abs(SplitDelta) <= jitter)
        return;
    Form.setLeft(SplitBar, SplitLeft);
    Form.setWidth(FontListView, Form.width(FontListView) + SplitDelta);
    Form.setLeft(FontNameLabel, Form.left(FontNameLabel) + SplitDelta);
    Form.setLeft(SPlateHolder, Form.left(SPlateHolder) + SplitDelta);
    Form.setWidth(SPlateHolder, Form.width(SPlateHolder) - SplitDelta);
    QWidget *summary = Form.Control("SummaryFrame");
    Form.setWidth(summary, Form.width(summary) + SplitDelta);
    placePlateAcross();
    fillRoomAcross(-SplitDelta);
    if (SplitDelta < 0 && Form.left(SamplePlate) == 0)
        SHScroll->setValue(0);
    if (recomputeBarAcross())
        SHScroll_Change(SHScroll->value());
    takeMinimum();
}
