// The frame as a style paints it, and the caption over its line.
#include "platform/controls/CaptionFrame.h"

#include <QPainter>
#include <QStyleOptionFrame>

void CaptionFrame::paintEvent(QPaintEvent * /*event*/)
{
    constexpr int indent = 8; // pixels
    constexpr int gap = 3;    // between the line and the caption
    QPainter painter(this);
    const int width = fontMetrics().horizontalAdvance(title());
    const QRect caption(indent, 0, width > 0 ? width + 2 * gap : 0, fontMetrics().height());
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.rect.setTop(caption.center().y());
    frame.lineWidth = 1;
    // Whatever is under it, which need not be one colour, shows through.
    painter.setClipRegion(QRegion(rect()) - caption);
    style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
    painter.setClipping(false);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(caption, Qt::AlignCenter, title());
}
