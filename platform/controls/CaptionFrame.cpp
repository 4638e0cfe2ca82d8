// The frame as a style paints it, and the caption over its line.
#include "platform/controls/CaptionFrame.h"

#include <QPainter>
#include <QStyleOptionFrame>

void CaptionFrame::paintEvent(QPaintEvent * /*event*/)
{
    constexpr int indent = 8; // pixels
    constexpr int gap = 3;    // between the line and the caption
    QPainter painter(this);
    const QRect caption(indent, 0, fontMetrics().horizontalAdvance(title()) + 2 * gap,
                        fontMetrics().height());
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.rect.setTop(caption.center().y());
    frame.lineWidth = 1;
    style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
    painter.fillRect(caption, palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(caption, Qt::AlignCenter, title());
}
