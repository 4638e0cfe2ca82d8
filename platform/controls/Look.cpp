// Painting of the frames, the check marks, the pressed buttons and the pictures of menus.
#include "platform/controls/Look.h"

#include "platform/controls/DevicePixels.h"
#include "platform/controls/Tones.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPlainTextEdit>
#include <QStyleOption>

namespace {

constexpr float FrameTone = 0.35F;
constexpr float FirmTone = 0.7F; // of what must be seen
constexpr float PressedTone = 0.15F;

/// Between the ground and the text of a palette, so that it shows wherever these two can be told.
QColor tone(const QPalette &palette, QPalette::ColorRole ground, QPalette::ColorRole text,
            float share)
{
    return mix(palette.color(ground), palette.color(text), share);
}

void drawRing(QPainter &painter, const QRectF &outer, double line, const QColor &color)
{
    QPainterPath ring;
    ring.addRect(outer);
    ring.addRect(outer.adjusted(line, line, -line, -line));
    painter.fillPath(ring, color);
}

void drawFrame(const QStyleOption &option, QPainter &painter, const QWidget *widget)
{
    const DevicePixels device(painter.deviceTransform());
    const double line = device.line();
    QRectF box = device.between(option.rect);
    // What is in a view begins a pixel of the toolkit's from the edge, which can be wider than the
    // line: that lies against it.
    if (const auto *view = qobject_cast<const QAbstractScrollArea *>(widget)) {
        const int width = view->frameWidth();
        box = device.between(option.rect.adjusted(width, width, -width, -width))
                  .adjusted(-line, -line, line, line);
    }
    // A text that can be written shows its caret.
    const bool showsFocus = option.state & QStyle::State_HasFocus &&
                            qobject_cast<const QAbstractScrollArea *>(widget) &&
                            !qobject_cast<const QPlainTextEdit *>(widget);
    drawRing(painter, box, line,
             showsFocus ? option.palette.color(QPalette::Highlight)
                        : tone(option.palette, QPalette::Window, QPalette::WindowText, FrameTone));
}

/// On controls that the toolkit's styles paint with the focus as without it.
void drawFocus(const QStyleOption &option, QPainter &painter, double inset)
{
    const DevicePixels device(painter.deviceTransform());
    drawRing(painter, device.between(option.rect).adjusted(inset, inset, -inset, -inset),
             device.line(), option.palette.color(QPalette::Highlight));
}

void drawLineEditFrame(const QStyleOption &option, QPainter &painter)
{
    const DevicePixels device(painter.deviceTransform());
    const QPalette &palette = option.palette;
    drawRing(painter, device.between(option.rect), device.line(),
             option.state & QStyle::State_HasFocus
                 ? palette.color(QPalette::Highlight)
                 : tone(palette, QPalette::Base, QPalette::Text, FrameTone));
}

void drawRule(const QStyleOptionFrame &option, QPainter &painter)
{
    const DevicePixels device(painter.deviceTransform());
    const QColor color = tone(option.palette, QPalette::Window, QPalette::WindowText, FrameTone);
    const QRect &rect = option.rect;
    if (option.frameShape == QFrame::HLine)
        painter.fillRect(QRectF(rect.left(), device.down(rect.top() + (rect.height() - 1) / 2),
                                rect.width(), device.line()),
                         color);
    else
        painter.fillRect(QRectF(device.across(rect.left() + (rect.width() - 1) / 2), rect.top(),
                                device.line(), rect.height()),
                         color);
}

void drawPressedButton(const QStyleOption &option, QPainter &painter)
{
    const DevicePixels device(painter.deviceTransform());
    const QRectF box = device.between(option.rect);
    const QPalette &palette = option.palette;
    painter.fillRect(box, tone(palette, QPalette::Button, QPalette::ButtonText, PressedTone));
    drawRing(painter, box, device.line(),
             tone(palette, QPalette::Button, QPalette::ButtonText, FirmTone));
}

void drawCheckBox(const QStyleOption &option, QPainter &painter)
{
    const DevicePixels device(painter.deviceTransform());
    const QRectF box = device.between(option.rect);
    const QPalette &palette = option.palette;
    const bool isHeld = option.state & QStyle::State_Sunken;
    painter.fillRect(box, tone(palette, QPalette::Base, QPalette::Text, isHeld ? PressedTone : 0));
    drawRing(painter, box, device.line(), tone(palette, QPalette::Base, QPalette::Text, FirmTone));
    const QPointF middle = box.center();
    const double unit = std::min(box.width(), box.height()) / 14; // the sign is drawn on a grid
    const QColor ink = palette.color(QPalette::Text);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(middle);
    painter.scale(unit, unit);
    if (option.state & QStyle::State_NoChange) {
        painter.fillRect(QRectF(-3.5, -1, 7, 2), ink);
    } else if (option.state & QStyle::State_On) {
        painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        const QPointF sign[] = {{-4, -0.25}, {-1.25, 2.75}, {4, -3.25}};
        painter.drawPolyline(sign, std::size(sign));
    }
    painter.restore();
}

/// The toolkit's styles ask for the same picture in the chosen row of a menu and in a button under
/// the mouse, but only the row has another ground.
QIcon forChosenRow(const QIcon &icon, int size, double ratio)
{
    QIcon chosen;
    for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
        const QPixmap picture = icon.pixmap(QSize(size, size), ratio, QIcon::Selected, state);
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected})
            chosen.addPixmap(picture, mode, state);
    }
    return chosen;
}

} // namespace

Look::Look() : QProxyStyle(QApplication::style()) {}

void Look::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                         const QWidget *widget) const
{
    switch (element) {
    case PE_Frame:
        drawFrame(*option, *painter, widget);
        break;
    case PE_FrameLineEdit:
        drawLineEditFrame(*option, *painter);
        break;
    case PE_PanelButtonTool:
        if (option->state & (State_On | State_Sunken))
            drawPressedButton(*option, *painter);
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        break;
    case PE_IndicatorCheckBox:
        drawCheckBox(*option, *painter);
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        break;
    }
}

void Look::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const
{
    if (element == CE_ShapedFrame) {
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option)) {
            switch (frame->frameShape) {
            case QFrame::HLine:
            case QFrame::VLine:
                drawRule(*frame, *painter);
                return;
            case QFrame::Box:
            case QFrame::Panel:
            case QFrame::StyledPanel:
            case QFrame::WinPanel:
                drawFrame(*option, *painter, widget);
                return;
            default:
                break;
            }
        }
    } else if (element == CE_PushButton) {
        constexpr double inset = 3; // pixels
        QProxyStyle::drawControl(element, option, painter, widget);
        if (option->state & State_HasFocus && option->state & State_KeyboardFocusChange)
            drawFocus(*option, *painter, inset);
        return;
    } else if (element == CE_MenuItem) {
        const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        if (item && item->state & State_Selected && item->state & State_Enabled &&
            !item->icon.isNull()) {
            QStyleOptionMenuItem row = *item;
            row.icon =
                forChosenRow(item->icon, proxy()->pixelMetric(PM_SmallIconSize, option, widget),
                             painter->device()->devicePixelRatio());
            QProxyStyle::drawControl(element, &row, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Look::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                              QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ScrollBar && option->state & State_HasFocus)
        drawFocus(*option, *painter, 0);
}
