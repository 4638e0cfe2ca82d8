// From the mouse on the bar or its grip to the place that is wanted, and the grip that goes along.
#include "platform/controls/SplitBar.h"

#include "platform/controls/Accessibility.h"

#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr int ReachBelow = 3; // pixels
constexpr int HeldAt = 2;     // the pixel of the bar that stays under the mouse
constexpr int Jitter = 2;     // pixels

} // namespace

SplitBar::SplitBar(const TwipScale &scale, QWidget *parent)
    : QFrame(parent), Scale(scale), Grip(new QWidget(parent))
{
    setFrameStyle(QFrame::HLine | QFrame::Raised);
    setCursor(Qt::SplitVCursor);
    setAccessibleRole(this, QAccessible::Grip);
    Grip->setObjectName("SplitGrip");
    Grip->setCursor(cursor());
    Grip->installEventFilter(this);
    placeGrip();
}

SplitBar::~SplitBar()
{
    // The parent may have deleted it before.
    delete Grip;
}

void SplitBar::setReachAbove(int pixels)
{
    ReachAbove = pixels;
    placeGrip();
}

void SplitBar::placeGrip()
{
    if (!Grip)
        return;
    Grip->setGeometry(geometry().adjusted(0, -ReachAbove, 0, ReachBelow));
    Grip->setVisible(!isHidden());
    Grip->setEnabled(isEnabled());
    Grip->setToolTip(toolTip());
    Grip->setAccessibleName(accessibleName());
    Grip->raise();
}

bool SplitBar::event(QEvent *event)
{
    if (takeMouse(this, event))
        return true;
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::EnabledChange:
    case QEvent::ToolTipChange:
        placeGrip();
        break;
    default:
        break;
    }
    return QFrame::event(event);
}

bool SplitBar::eventFilter(QObject *watched, QEvent *event)
{
    return watched == Grip ? takeMouse(Grip, event) : QFrame::eventFilter(watched, event);
}

bool SplitBar::takeMouse(const QWidget *under, QEvent *event)
{
    const auto at = [&] {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        return static_cast<int>(std::floor(mouse->position().y())) + under->y() - y();
    };
    const auto isLeft = [&] {
        return static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        // Taken beside the bar, the bar does not jump to the mouse.
        if (isLeft())
            Hold = at() - std::clamp(at(), 0, height() - 1);
        return true;
    case QEvent::MouseMove:
        if (Hold && static_cast<QMouseEvent *>(event)->buttons() & Qt::LeftButton)
            drag(at() - *Hold);
        return true;
    case QEvent::MouseButtonRelease:
        if (isLeft()) {
            Hold.reset();
            emit Released();
        }
        return true;
    case QEvent::MouseButtonDblClick:
        if (isLeft())
            emit DoubleClicked();
        return true;
    default:
        return false;
    }
}

void SplitBar::drag(int at)
{
    const int by = at - HeldAt;
    if (std::abs(by) <= Jitter)
        return;
    const double target = (y() + by) * Scale.Y;
    if (LimitsNow) {
        const auto [top, bottom] = LimitsNow();
        if (target < top || target > bottom)
            return;
    }
    emit Dragged(target);
}
