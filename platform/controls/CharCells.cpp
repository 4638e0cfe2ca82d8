// Painting and hit-testing of the cells.
#include "platform/controls/CharCells.h"

#include "platform/controls/DevicePixels.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>
#include <utility>

CharCells::CharCells(int count, QWidget *parent)
    : QWidget(parent), Cells(static_cast<std::size_t>(count)), Glyphs(font())
{
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    installAccessibility();
}

void CharCells::setCaption(int index, const QString &caption)
{
    Cell &cell = at(index);
    if (cell.Caption == caption)
        return;
    cell.Caption = caption;
    update(reached(cell));
    tellNewCaption(index);
}

void CharCells::setColors(int index, ColorValue fore, ColorValue back)
{
    Cell &cell = at(index);
    if (cell.ForeColor == fore && cell.BackColor == back)
        return;
    cell.ForeColor = fore;
    cell.BackColor = back;
    update(reached(cell));
}

void CharCells::setBorderStyle(int index, int style)
{
    Cell &cell = at(index);
    if (cell.BorderStyle == style)
        return;
    cell.BorderStyle = style;
    update(reached(cell));
}

void CharCells::setTransparent(bool on)
{
    if (std::exchange(Transparent, on) != on)
        update();
}

void CharCells::setReach(double twips)
{
    if (std::exchange(Reach, twips) != twips)
        update();
}

QRect CharCells::reached(const Cell &cell) const
{
    const int across = Scale.across(Reach);
    const int down = Scale.down(Reach);
    return cell.Pixels.adjusted(-across, -down, across, down);
}

void CharCells::setSelectedCell(int index)
{
    const int before = std::exchange(Selected, index);
    if (before == index)
        return;
    for (const int changed : {before, index})
        if (changed >= 0)
            update(reached(at(changed)));
    tellCurrentCell(this, index);
}

void CharCells::setPlaces(const std::vector<TwipRect> &places)
{
    Q_ASSERT(places.size() == Cells.size());
    for (std::size_t i = 0; i < Cells.size(); ++i) {
        Cells[i].Place = places[i];
        Cells[i].Pixels = Scale.toPixels(places[i]);
    }
    update();
}

void CharCells::setScale(const TwipScale &scale)
{
    Scale = scale;
    for (Cell &cell : Cells)
        cell.Pixels = Scale.toPixels(cell.Place);
    update();
}

int CharCells::cellAt(const QPoint &point) const
{
    for (int index = count() - 1; index >= 0; --index)
        if (at(index).Pixels.contains(point))
            return index;
    return -1;
}

void CharCells::setCellFont(const QFont &font)
{
    if (Glyphs.setFont(font))
        update();
}

void CharCells::setReading(int columns, std::function<QString(int)> textOf)
{
    Q_ASSERT(columns > 0);
    Columns = columns;
    TextOf = std::move(textOf);
}

/// No news: a tool that has kept the old one asks anew when it needs it.
void CharCells::tellNewCaption(int index)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent change(this, count() == 1 ? QAccessible::DescriptionChanged
                                               : QAccessible::NameChanged);
    if (count() > 1)
        change.setChild(index);
    QAccessible::updateAccessibility(&change);
}

void CharCells::pressCell(int index)
{
    emit MouseDown(index, Qt::LeftButton, mapToGlobal(pixels(index).center()));
}

void CharCells::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    // Behind the toolkit's own word that this widget has the focus.
    QMetaObject::invokeMethod(
        this, [this] { tellCurrentCell(this, spokenCell()); }, Qt::QueuedConnection);
}

QSize CharCells::sizeHint() const
{
    QRect all;
    for (const Cell &cell : Cells)
        all |= cell.Pixels;
    return QSize(all.right() + 1, all.bottom() + 1);
}

void CharCells::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const DevicePixels device(painter.deviceTransform());
    const auto paint = [&](int index) {
        if (event->region().intersects(reached(at(index))))
            paintCell(painter, device, at(index), index == Selected);
    };
    for (int index = 0; index < count(); ++index)
        if (index != Selected)
            paint(index);
    // Over the lines that it shares with its neighbours.
    if (Selected >= 0)
        paint(Selected);
}

void CharCells::paintCell(QPainter &painter, const DevicePixels &device, const Cell &cell,
                          bool selected)
{
    const QColor back = ToColor(cell.BackColor, palette());
    const QColor fore = ToColor(cell.ForeColor, palette());
    QRectF inside = device.cell(cell.Pixels);
    const auto frame = [&](const QColor &color) {
        const double line = device.line();
        const QRectF inner = inside.adjusted(line, line, -line, -line);
        if (Transparent) {
            QPainterPath ring;
            ring.addRect(inside);
            ring.addRect(inner);
            painter.fillPath(ring, color);
        } else {
            painter.fillRect(inside, color); // the ground is painted over it
        }
        inside = inner;
    };
    if (selected) {
        // One of the two shows on any ground.
        frame(Qt::black);
        frame(Qt::white);
    } else if (cell.BorderStyle == 1) {
        // A line between the two colours of the cell reads as a grid on any pair of them.
        const auto between = [](float from, float to) { return from + (to - from) * 0.3F; };
        frame(QColor::fromRgbF(between(back.redF(), fore.redF()),
                               between(back.greenF(), fore.greenF()),
                               between(back.blueF(), fore.blueF())));
    }
    if (!Transparent)
        painter.fillRect(inside, back);
    if (cell.Caption.isEmpty())
        return;
    const double line = cell.BorderStyle == 1 ? device.line() : 0;
    const QRectF room = device.cell(reached(cell)).adjusted(line, line, -line, -line);
    Glyphs.paint(painter, device, device.cell(cell.Pixels), room, cell.Caption, fore);
}

void CharCells::mousePressEvent(QMouseEvent *event)
{
    if (const int index = cellAt(event->position().toPoint()); index >= 0)
        emit MouseDown(index, event->button(), event->globalPosition().toPoint());
    else
        event->ignore(); // what is under the cells takes it
}

void CharCells::mouseMoveEvent(QMouseEvent *event)
{
    if (const int index = cellAt(event->position().toPoint()); index >= 0)
        emit MouseMove(index);
}

bool CharCells::event(QEvent *event)
{
    // Presses in quick succession are presses: a fast typist with the mouse loses no character.
    if (event->type() == QEvent::MouseButtonDblClick) {
        mousePressEvent(static_cast<QMouseEvent *>(event));
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const int index = cellAt(help->pos());
        if (index >= 0 && !at(index).ToolTip.isEmpty()) {
            QToolTip::showText(help->globalPos(), at(index).ToolTip, this, pixels(index));
            return true;
        }
        if (toolTip().isEmpty())
            QToolTip::hideText();
    }
    return QWidget::event(event);
}
