// Measuring and painting the lines. A glyph may reach beyond the room of its line, as those of
// script fonts do: it is painted whole.
#include "fonttools/SamplePlate.h"

#include "platform/controls/Accessibility.h"
#include "platform/controls/DevicePixels.h"
#include "platform/controls/Tones.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

SamplePlate::SamplePlate(const TwipScale &scale, QWidget *parent) : QWidget(parent), Scale(scale)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setAccessibleRole(this, QAccessible::Graphic);
    setAccessibleName("Sample sheet");
}

QFont SamplePlate::sized(int points) const
{
    QFont font = Face;
    font.setPointSize(points);
    return font;
}

void SamplePlate::ShowFont(const QFont &font, const QString &name, bool fits)
{
    Face = font;
    const RoomOf room = [this](const QString &text, int points) {
        const QFontMetrics metrics(sized(points));
        return QSizeF(metrics.horizontalAdvance(text) * Scale.X, metrics.height() * Scale.Y);
    };
    Lines = fits ? SheetFor(SampleText, room, Scale) : DesignSheet(SampleText, room, Scale);
    setAccessibleDescription(name + ": " + SampleText);
    update();
}

void SamplePlate::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QPalette &colors = palette();
    const auto paintLine = [&](const TwipRect &place, const QString &text, int points) {
        const QRect room = Scale.toPixels(place);
        // Ink beyond the room is rarely more than a line's height away from it.
        const int reach = room.height();
        if (!event->rect().intersects(room.adjusted(-reach, -reach, reach, reach)))
            return;
        painter.setFont(sized(points));
        painter.drawText(room.left(), room.top() + painter.fontMetrics().ascent(), text);
    };
    painter.setPen(colors.color(QPalette::Text));
    for (std::size_t i = 0; i < Lines.AlphaSample.size(); ++i)
        paintLine(Lines.AlphaSample[i], QString::fromLatin1(SampleSheet::AlphaTexts[i]),
                  SampleSheet::AlphaPoints);
    for (std::size_t i = 0; i < Lines.TypeSample.size(); ++i)
        paintLine(Lines.TypeSample[i], SampleText, SampleSheet::Points[i]);

    const QColor faint = mix(colors.color(QPalette::Base), colors.color(QPalette::Text), 0.6F);
    painter.setPen(faint);
    painter.setFont(font());
    for (std::size_t i = 0; i < Lines.PointSize.size(); ++i)
        painter.drawText(Scale.toPixels(Lines.PointSize[i]), Qt::AlignLeft | Qt::AlignVCenter,
                         QString::number(SampleSheet::Points[i]));
    const DevicePixels device(painter.deviceTransform());
    painter.fillRect(QRectF(0, device.down(Scale.down(Lines.DivLine)),
                            Scale.across(Lines.DivLineEnd), device.line()),
                     faint);
}

SampleFrame::SampleFrame(QWidget *parent) : QFrame(parent)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setLineWidth(Border);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleRole(this, QAccessible::Grouping);
}

void SampleFrame::setBars(QScrollBar *across, QScrollBar *down)
{
    Across = across;
    Down = down;
    // A bar that stands still leaves the wheel to its parents, and so to this frame, which turns to
    // the bar.
    for (QScrollBar *bar : {across, down})
        bar->setAttribute(Qt::WA_NoMousePropagation);
}

void SampleFrame::keyPressEvent(QKeyEvent *event)
{
    struct Row
    {
        Qt::Key Key;
        QScrollBar *SampleFrame::*Bar;
        QAbstractSlider::SliderAction Action;
    };
    constexpr Row keys[] = {
        {Qt::Key_Left, &SampleFrame::Across, QAbstractSlider::SliderSingleStepSub},
        {Qt::Key_Right, &SampleFrame::Across, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_Up, &SampleFrame::Down, QAbstractSlider::SliderSingleStepSub},
        {Qt::Key_Down, &SampleFrame::Down, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_PageUp, &SampleFrame::Down, QAbstractSlider::SliderPageStepSub},
        {Qt::Key_PageDown, &SampleFrame::Down, QAbstractSlider::SliderPageStepAdd},
        {Qt::Key_Home, &SampleFrame::Down, QAbstractSlider::SliderToMinimum},
    };
    for (const Row &row : keys)
        if (event->key() == row.Key)
            return (this->*row.Bar)->triggerAction(row.Action);
    if (event->key() == Qt::Key_End)
        Down->setValue(Down->maximum() - 1); // at its very end the sheet does not move
    else
        QFrame::keyPressEvent(event);
}

void SampleFrame::wheelEvent(QWheelEvent *event)
{
    const QPoint turned = event->angleDelta();
    const bool sideways = qAbs(turned.x()) > qAbs(turned.y());
    QCoreApplication::sendEvent(sideways ? Across : Down, event);
}

void SampleFrame::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    const QColor color = palette().color(QPalette::Highlight);
    for (const QRect &side : QRegion(rect()) - rect().adjusted(1, 1, -1, -1))
        painter.fillRect(side, color);
}
