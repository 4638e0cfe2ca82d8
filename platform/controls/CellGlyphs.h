// Characters of one font painted in cells. Glyphs are looked up in the font's own character map and
// drawn by their index: no text layout, which would hide the soft hyphen and borrow from other
// fonts.
#pragma once

#include <QFont>
#include <QRawFont>
#include <QString>

class DevicePixels;
class QColor;
class QPainter;

class CellGlyphs
{
public:
    /// The font must not merge glyphs from other fonts.
    explicit CellGlyphs(const QFont &font) : Font(font) {}

    /// False if it is the font of now.
    bool setFont(const QFont &font);
    const QFont &font() const { return Font; }
    /// From the highest ascender to the lowest descender, in pixels of the toolkit.
    double lineHeight() const;

    /// Paints the text in the middle of the box, in the toolkit's pixels. A glyph that spills out
    /// of the room is moved into it and cut off there.
    void paint(QPainter &painter, const DevicePixels &device, const QRectF &box, const QRectF &room,
               const QString &text, const QColor &color) const;

private:
    const QRawFont &raw() const;
    QPointF intoRoom(const QRectF &ink, const QRectF &room, double baseLine, QChar shown) const;

    QFont Font;
    mutable QRawFont Glyphs; ///< of Font, made when first painted
};
