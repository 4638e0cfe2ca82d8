// From the mouse on the bar or its grip, or the keys, to the place that is wanted, and the grip
// that goes along.
#include "platform/controls/SplitBar.h"

#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr int ReachBelow = 3; // pixels
constexpr int KeyStep = 8;    // pixels
constexpr int PageStep = 64;  // pixels

struct Feel
{
    int HeldAt; ///< the pixel of the bar that stays under the mouse
    int Jitter; ///< pixels
};
constexpr Feel UpAndDown{2, 2};
constexpr Feel LeftAndRight{4, 0};

} // namespace

SplitBar::SplitBar(const TwipScale &scale, QWidget *parent, Qt::Orientation moves)
    : QFrame(parent), Scale(scale), Moves(moves), Grip(new QWidget(parent))
{
    setFrameStyle((isVertical() ? QFrame::HLine : QFrame::VLine) | QFrame::Raised);
    setCursor(isVertical() ? Qt::SplitVCursor : Qt::SplitHCursor);
    installAccessibility();
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
    Grip->setGeometry(isVertical() ? geometry().adjusted(0, -ReachAbove, 0, ReachBelow)
                                   : geometry().adjusted(-ReachAbove, 0, ReachBelow, 0));
    Grip->setVisible(!isHidden());
    Grip->setEnabled(isEnabled());
    Grip->setToolTip(toolTip());
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
        const QPointF place = static_cast<QMouseEvent *>(event)->position();
        return isVertical() ? static_cast<int>(std::floor(place.y())) + under->y() - y()
                            : static_cast<int>(std::floor(place.x())) + under->x() - x();
    };
    const auto isLeft = [&] {
        return static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (isLeft())
            take(at());
        return true;
    case QEvent::MouseMove:
        if (Hold && static_cast<QMouseEvent *>(event)->buttons() == Qt::LeftButton)
            drag(at() - *Hold);
        return true;
    case QEvent::MouseButtonRelease:
        if (isLeft()) {
            Hold.reset();
            emit Released();
        }
        return true;
    case QEvent::MouseButtonDblClick:
        if (!isLeft())
            return true;
        // Where it means nothing, it is a second press.
        if (!isSignalConnected(QMetaMethod::fromSignal(&SplitBar::DoubleClicked)))
            take(at());
        emit DoubleClicked();
        return true;
    default:
        return false;
    }
}

/// Taken beside the bar, the bar does not jump to the mouse.
void SplitBar::take(int at)
{
    Hold = at - std::clamp(at, 0, (isVertical() ? height() : width()) - 1);
}

void SplitBar::drag(int at)
{
    const Feel feel = isVertical() ? UpAndDown : LeftAndRight;
    const int by = at - feel.HeldAt;
    if (std::abs(by) <= feel.Jitter)
        return;
    const double target = (place() + by) * twips();
    if (LimitsNow) {
        const auto [first, last] = LimitsNow();
        if (target < first || target > last)
            return;
    }
    emit Dragged(target);
}

SpokenBar::Range SplitBar::spokenRange() const
{
    const Limits limits = LimitsNow ? LimitsNow() : Limits{};
    return {.Least = static_cast<int>(std::ceil(limits.First / twips())),
            .Most = static_cast<int>(std::floor(limits.Last / twips())),
            .Now = place()};
}

void SplitBar::pullTo(int wanted)
{
    const Range range = spokenRange();
    if (range.Least > range.Most)
        return;
    const int to = std::clamp(wanted, range.Least, range.Most);
    if (to == place())
        return;
    emit Dragged(to * twips());
    emit Released();
    tellPlace(this);
}

void SplitBar::keyPressEvent(QKeyEvent *event)
{
    const Range range = spokenRange();
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        return pullTo(range.Now - KeyStep);
    case Qt::Key_Down:
    case Qt::Key_Right:
        return pullTo(range.Now + KeyStep);
    case Qt::Key_PageUp:
        return pullTo(range.Now - PageStep);
    case Qt::Key_PageDown:
        return pullTo(range.Now + PageStep);
    case Qt::Key_Home:
        return pullTo(range.Least);
    case Qt::Key_End:
        return pullTo(range.Most);
    default:
        QFrame::keyPressEvent(event);
    }
}

void SplitBar::paintEvent(QPaintEvent *event)
{
    if (hasFocus())
        QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
    else
        QFrame::paintEvent(event);
}
