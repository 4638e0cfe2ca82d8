// Placing, moving and painting of the glyphs.
#include "platform/controls/CellGlyphs.h"

#include "platform/controls/DevicePixels.h"

#include <QColor>
#include <QGlyphRun>
#include <QPainter>
#include <algorithm>

bool CellGlyphs::setFont(const QFont &font)
{
    if (Font == font)
        return false;
    Font = font;
    Glyphs = QRawFont();
    return true;
}

const QRawFont &CellGlyphs::raw() const
{
    if (!Glyphs.isValid())
        Glyphs = QRawFont::fromFont(Font);
    return Glyphs;
}

double CellGlyphs::lineHeight() const
{
    return raw().ascent() + raw().descent();
}

void CellGlyphs::paint(QPainter &painter, const DevicePixels &device, const QRectF &box,
                       const QRectF &room, const QString &text, const QColor &color) const
{
    const QRawFont &glyphs = raw();
    QGlyphRun run;
    run.setRawFont(glyphs);
    const QList<quint32> indexes = glyphs.glyphIndexesForString(text);
    const QList<QPointF> advances = glyphs.advancesForGlyphIndexes(indexes);
    QList<QPointF> positions;
    positions.reserve(indexes.size());
    double width = 0;
    for (const QPointF &advance : advances) {
        positions.append(QPointF(width, 0));
        width += advance.x();
    }
    run.setGlyphIndexes(indexes);
    run.setPositions(positions);
    // Whole pixels, so that every cell shows the same glyph alike.
    QPointF start(device.across(box.center().x() - width / 2),
                  device.down(box.center().y() + (glyphs.ascent() - glyphs.descent()) / 2));
    const QRectF ink = run.boundingRect().translated(start);
    const bool spills = !ink.isEmpty() && !room.contains(ink);
    if (spills) {
        painter.save();
        painter.setClipRect(room, Qt::IntersectClip);
        start += device.steps(intoRoom(ink, room, start.y(), text.front()));
    }
    painter.setPen(color);
    painter.drawGlyphRun(start, run);
    const double thickness = std::max(1.0, glyphs.lineThickness());
    if (Font.underline())
        painter.fillRect(
            QRectF(start.x(), start.y() + glyphs.underlinePosition(), width, thickness), color);
    if (Font.strikeOut())
        painter.fillRect(QRectF(start.x(), start.y() - glyphs.ascent() / 3, width, thickness),
                         color);
    if (spills)
        painter.restore();
}

/// The way by which a glyph that spills out of its cell is moved: into it and no further. What is
/// larger than the cell is centred, but of a letter that is too high the end shows that tells it
/// from others: the accent above, or what is below the base line.
QPointF CellGlyphs::intoRoom(const QRectF &ink, const QRectF &room, double baseLine,
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
