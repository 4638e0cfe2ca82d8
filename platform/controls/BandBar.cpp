// Arrangement of the bands along the bar, and the drag of their grips.
#include "platform/controls/BandBar.h"

#include "platform/controls/Accessibility.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace {

constexpr int GripWidth = 8; // pixels

} // namespace

BandBar::BandBar(const TwipScale &scale, QWidget *parent) : QWidget(parent), Scale(scale)
{
    setMouseTracking(true);
    setAccessibleRole(this, QAccessible::Grouping);
}

void BandBar::addBand(QWidget *content, double width)
{
    content->setParent(this);
    // Its own, for the bar's cursor would stay that of the grip which the mouse came over.
    content->setCursor(Qt::ArrowCursor);
    Bands.push_back({.Content = content, .Width = width});
    arrange();
}

void BandBar::addBands(std::initializer_list<QWidget *> contents, std::span<const qint32> widths)
{
    Q_ASSERT(contents.size() == widths.size());
    std::size_t index = 0;
    for (QWidget *content : contents)
        addBand(content, widths[index++]);
}

double BandBar::bandWidth(int index) const
{
    return Bands.at(static_cast<std::size_t>(index)).Width;
}

void BandBar::setBandWidth(int index, double width)
{
    Bands.at(static_cast<std::size_t>(index)).Width = std::max(width, GripWidth * Scale.X);
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

void BandBar::arrange()
{
    auto toCome = static_cast<int>(std::ranges::count_if(Bands, &Band::Visible));
    double left = 0;
    // However wide the bands before are, this one and those behind it keep their grips in the bar.
    const auto edge = [&] { return std::min(Scale.across(left), width() - toCome * GripWidth); };
    for (Band &band : Bands) {
        band.Content->setVisible(band.Visible);
        if (!band.Visible)
            continue;
        band.Left = edge();
        left += band.Width;
        const int right = --toCome == 0 ? width() : edge();
        const int contentLeft = band.Left + GripWidth;
        band.Content->setGeometry(contentLeft, 1, std::max(0, right - contentLeft), height() - 2);
    }
    update();
}

void BandBar::resizeEvent(QResizeEvent *)
{
    arrange();
}

void BandBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor dot = palette().color(QPalette::Mid);
    for (const Band &band : Bands) {
        if (!band.Visible)
            continue;
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
        if (band.Visible && visibleBefore(index) >= 0 && point.x() >= band.Left &&
            point.x() < band.Left + GripWidth)
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
    // The band before the grip takes or gives the way; every grip stays within the bar.
    const int before = visibleBefore(Dragged);
    const Band &narrowed = Bands[static_cast<std::size_t>(before)];
    const Band &moved = Bands[static_cast<std::size_t>(Dragged)];
    int most = width() - GripWidth;
    for (int index = Dragged + 1; index < bandCount(); ++index)
        if (isBandVisible(index))
            most -= Scale.across(bandWidth(visibleBefore(index)));
    const int least = narrowed.Left + GripWidth;
    most = std::max({most, moved.Left, least});
    const int target = std::clamp(point.x(), least, most);
    setBandWidth(before, (target - narrowed.Left) * Scale.X);
}

void BandBar::mouseReleaseEvent(QMouseEvent *)
{
    Dragged = -1;
}
