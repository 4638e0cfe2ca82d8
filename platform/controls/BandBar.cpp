// Arrangement of the bands along the bar, and the drag of their grips.
#include "platform/controls/BandBar.h"

#include "platform/controls/Accessibility.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace {

constexpr int GripWidth = 8; // pixels

} // namespace

BandBar::BandBar(const TwipScale &scale, QWidget *parent) : QWidget(parent), Scale(scale)
{
    setMouseTracking(true);
    setAccessibleRole(this, QAccessible::Grouping);
}

void BandBar::addBand(QWidget *content, double width, double leastWidth)
{
    content->setParent(this);
    // Its own, for the bar's cursor would stay that of the grip which the mouse came over.
    content->setCursor(Qt::ArrowCursor);
    Bands.push_back({.Content = content, .Width = width, .LeastContent = leastWidth});
    arrange();
}

void BandBar::addBands(std::initializer_list<Content> contents, std::span<const qint32> widths)
{
    Q_ASSERT(contents.size() == widths.size());
    std::size_t index = 0;
    for (const Content &content : contents)
        addBand(content.Control, widths[index++], content.LeastWidth);
}

double BandBar::bandWidth(int index) const
{
    return Bands.at(static_cast<std::size_t>(index)).Width;
}

void BandBar::setBandWidth(int index, double width)
{
    Band &band = Bands.at(static_cast<std::size_t>(index));
    band.Width = std::max(width, leastWidth(band) * Scale.X);
    arrange();
}

bool BandBar::isBandVisible(int index) const
{
    return Bands.at(static_cast<std::size_t>(index)).Visible;
}

void BandBar::setBandVisible(int index, bool visible)
{
    Bands.at(static_cast<std::size_t>(index)).Visible = visible;
    arrange();
}

QWidget *BandBar::band(int index) const
{
    return Bands.at(static_cast<std::size_t>(index)).Content;
}

void BandBar::setScale(const TwipScale &scale)
{
    Scale = scale;
    arrange();
}

int BandBar::leastWidth(const Band &band) const
{
    return GripWidth + std::max({Scale.across(band.LeastContent), band.Content->minimumWidth(),
                                 band.Content->minimumSizeHint().width()});
}

void BandBar::arrange()
{
    struct Place
    {
        Band *Of;
        int Least; ///< pixels
        int Width; ///< pixels
    };
    std::vector<Place> places;
    int tooMuch = -width();
    for (Band &band : Bands) {
        band.Content->setVisible(band.Visible);
        if (!band.Visible)
            continue;
        const int least = leastWidth(band);
        places.push_back({&band, least, std::max(least, Scale.across(band.Width))});
        tooMuch += places.back().Width;
    }
    for (auto place = places.rbegin(); place != places.rend() && tooMuch > 0; ++place) {
        const int given = std::min(tooMuch, place->Width - place->Least);
        place->Width -= given;
        tooMuch -= given;
    }
    int left = 0;
    auto toCome = static_cast<int>(places.size());
    // However wide the contents before are, this band and those behind it keep their grips in the
    // bar.
    const auto edge = [&] { return std::min(left, width() - toCome * GripWidth); };
    for (const auto &[band, least, bandWidth] : places) {
        band->Left = edge();
        left += bandWidth;
        band->Right = --toCome == 0 ? width() : edge();
        const int contentLeft = band->Left + GripWidth;
        band->Content->setGeometry(contentLeft, 1, std::max(0, band->Right - contentLeft),
                                   height() - 2);
    }
    update();
}

/// Where bands gave way to a drag, that is their width from now on.
void BandBar::keepArrangement()
{
    for (int index = 0; index < bandCount(); ++index) {
        const int before = visibleBefore(index);
        if (before < 0 || !isBandVisible(index))
            continue;
        Band &band = Bands[static_cast<std::size_t>(before)];
        if (band.Right - band.Left < Scale.across(band.Width))
            band.Width = (band.Right - band.Left) * Scale.X;
    }
}

void BandBar::resizeEvent(QResizeEvent *)
{
    arrange();
}

void BandBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor dot = palette().color(QPalette::Mid);
    const Band *chosen = Chosen >= 0 ? &Bands[static_cast<std::size_t>(Chosen)] : nullptr;
    for (const Band &band : Bands) {
        if (!band.Visible)
            continue;
        if (&band == chosen)
            painter.fillRect(band.Left, 0, GripWidth, height(),
                             palette().color(QPalette::Highlight));
        for (int y = 6; y < height() - 6; y += 3)
            for (int x = 2; x <= 4; x += 2)
                painter.fillRect(band.Left + x, y, 1, 1, dot);
    }
}

int BandBar::visibleBefore(int index) const
{
    for (int before = index - 1; before >= 0; --before)
        if (isBandVisible(before))
            return before;
    return -1;
}

int BandBar::gripAt(const QPoint &point) const
{
    for (int index = 1; index < bandCount(); ++index) {
        const Band &band = Bands[static_cast<std::size_t>(index)];
        if (canBePulled(index) && point.x() >= band.Left && point.x() < band.Left + GripWidth)
            return index;
    }
    return -1;
}

void BandBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        Dragged = gripAt(event->position().toPoint());
}

void BandBar::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    if (Dragged < 0) {
        setCursor(gripAt(point) >= 0 ? Qt::SizeHorCursor : Qt::ArrowCursor);
        return;
    }
    pull(Dragged, point.x());
}

/// The band before the grip takes or gives the way. To the right it pushes those behind along and
/// takes what their contents leave, to the left it stops at its own content.
void BandBar::pull(int index, int target)
{
    const int before = visibleBefore(index);
    const Band &widened = Bands[static_cast<std::size_t>(before)];
    const int least = widened.Left + leastWidth(widened);
    int most = width();
    for (int band = index; band < bandCount(); ++band)
        if (isBandVisible(band))
            most -= leastWidth(Bands[static_cast<std::size_t>(band)]);
    target = std::clamp(target, least, std::max(most, least));
    setBandWidth(before, (target - widened.Left) * Scale.X);
}

void BandBar::mouseReleaseEvent(QMouseEvent *)
{
    if (std::exchange(Dragged, -1) >= 0)
        keepArrangement();
}

void BandBar::keyPressEvent(QKeyEvent *event)
{
    constexpr int step = 8; // pixels
    const auto pullTo = [this](int target) {
        pull(Chosen, target);
        keepArrangement();
    };
    const int key = event->key();
    if (Chosen < 0)
        return QWidget::keyPressEvent(event);
    const int now = Bands[static_cast<std::size_t>(Chosen)].Left;
    switch (key) {
    case Qt::Key_Up:
        return chooseGrip(Chosen, -1);
    case Qt::Key_Down:
        return chooseGrip(Chosen, 1);
    case Qt::Key_Left:
        return pullTo(now - step);
    case Qt::Key_Right:
        return pullTo(now + step);
    case Qt::Key_Home:
        return pullTo(0);
    case Qt::Key_End:
        return pullTo(width());
    default:
        QWidget::keyPressEvent(event);
    }
}

void BandBar::chooseGrip(int from, int direction)
{
    for (int index = from + direction; index >= 0 && index < bandCount(); index += direction) {
        if (!canBePulled(index))
            continue;
        Chosen = index;
        update();
        announce(this, "Left edge of " + band(index)->accessibleName());
        return;
    }
}

void BandBar::focusInEvent(QFocusEvent *)
{
    chooseGrip(-1, 1);
}

void BandBar::focusOutEvent(QFocusEvent *)
{
    Chosen = -1;
    update();
}

bool BandBar::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) // a content needs more room, or less
        arrange();
    return QWidget::event(event);
}
