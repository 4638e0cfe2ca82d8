// Painting and hit-testing of the cells. Glyphs are looked up in the font's own character map and
// drawn by their index: no text layout, which would hide the soft hyphen and borrow from other
// fonts.
#include "platform/controls/CharCells.h"

#include "platform/controls/Accessibility.h"
#include "platform/controls/DevicePixels.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>
#include <utility>

CharCells::CharCells(int count, QWidget *parent)
    : QWidget(parent), Cells(static_cast<std::size_t>(count)), CellFont(font())
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
    announce(index, count() == 1 ? QAccessible::DescriptionChanged : QAccessible::NameChanged);
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
    if (before >= 0)
        announce(before, QAccessible::SelectionRemove);
    if (index >= 0) {
        announce(index, QAccessible::SelectionAdd);
        announce(index, QAccessible::ActiveDescendantChanged);
    }
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
    if (CellFont == font)
        return;
    CellFont = font;
    Glyphs = QRawFont();
    update();
}

void CharCells::setReading(int columns, std::function<QString(int)> textOf)
{
    Q_ASSERT(columns > 0);
    Columns = columns;
    TextOf = std::move(textOf);
}

void CharCells::setActiveCell(int index)
{
    if (std::exchange(Active, index) != index)
        announce(index, QAccessible::ActiveDescendantChanged);
}

void CharCells::announce(int index, int event)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent change(this, static_cast<QAccessible::Event>(event));
    if (count() > 1)
        change.setChild(index);
    QAccessible::updateAccessibility(&change);
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
    if (!Glyphs.isValid())
        Glyphs = QRawFont::fromFont(CellFont);
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
    if (!cell.Caption.isEmpty())
        paintCaption(painter, device, cell, fore);
}

void CharCells::paintCaption(QPainter &painter, const DevicePixels &device, const Cell &cell,
                             const QColor &color)
{
    QGlyphRun run;
    run.setRawFont(Glyphs);
    const QList<quint32> indexes = Glyphs.glyphIndexesForString(cell.Caption);
    const QList<QPointF> advances = Glyphs.advancesForGlyphIndexes(indexes);
    QList<QPointF> positions;
    positions.reserve(indexes.size());
    double width = 0;
    for (const QPointF &advance : advances) {
        positions.append(QPointF(width, 0));
        width += advance.x();
    }
    run.setGlyphIndexes(indexes);
    run.setPositions(positions);
    const QRectF box = device.cell(cell.Pixels);
    // Whole pixels, so that every cell shows the same glyph alike.
    QPointF start(device.across(box.center().x() - width / 2),
                  device.down(box.center().y() + (Glyphs.ascent() - Glyphs.descent()) / 2));
    const double line = cell.BorderStyle == 1 ? device.line() : 0;
    const QRectF room = device.cell(reached(cell)).adjusted(line, line, -line, -line);
    const QRectF ink = run.boundingRect().translated(start);
    const bool spills = !ink.isEmpty() && !room.contains(ink);
    if (spills) {
        painter.save();
        painter.setClipRect(room, Qt::IntersectClip);
        start += device.steps(intoRoom(ink, room, start.y(), cell.Caption.front()));
    }
    painter.setPen(color);
    painter.drawGlyphRun(start, run);
    const double thickness = std::max(1.0, Glyphs.lineThickness());
    if (CellFont.underline())
        painter.fillRect(
            QRectF(start.x(), start.y() + Glyphs.underlinePosition(), width, thickness), color);
    if (CellFont.strikeOut())
        painter.fillRect(QRectF(start.x(), start.y() - Glyphs.ascent() / 3, width, thickness),
                         color);
    if (spills)
        painter.restore();
}

/// The way by which a glyph that spills out of its cell is moved: into it and no further. What is
/// larger than the cell is centred, but of a letter that is too high the end shows that tells it
/// from others: the accent above, or what is below the base line.
QPointF CharCells::intoRoom(const QRectF &ink, const QRectF &room, double baseLine,
                            QChar shown) const
{
    const auto inward = [](double from, double to, double first, double last) {
        return from < first ? first - from : std::min(0.0, last - to);
    };
    QPointF way = room.center() - ink.center();
    if (ink.width() <= room.width())
        way.setX(inward(ink.left(), ink.right(), room.left(), room.right()));
    const bool isSymbol = shown.category() == QChar::Other_PrivateUse;
    if (ink.height() <= room.height()) {
        way.setY(inward(ink.top(), ink.bottom(), room.top(), room.bottom()));
    } else if (!isSymbol) {
        constexpr int above = 230; // class of the combining marks above a letter
        const QString parts = shown.decomposition();
        const bool accented = !parts.isEmpty() && parts.back().combiningClass() == above;
        // Round letters reach a little below the base line.
        const bool descends = ink.bottom() - baseLine > Glyphs.descent() / 3;
        way.setY(descends && !accented ? room.bottom() - ink.bottom() : room.top() - ink.top());
    }
    return way;
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
