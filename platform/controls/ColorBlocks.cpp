// Painting of the blocks and the mark, and the way from keys and clicks to a choice.
#include "platform/controls/ColorBlocks.h"

#include "platform/controls/DevicePixels.h"
#include "platform/controls/PlainToolTip.h"
#include "platform/controls/Tones.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

namespace {

/// Of the frames, between ground and ink.
constexpr float FrameTone = 0.45F;

} // namespace

ColorBlocks::ColorBlocks(std::vector<Block> blocks, int columns, const TwipScale &scale,
                         KeyRule rule, QWidget *parent)
    : QWidget(parent)
    , Blocks(std::move(blocks))
    , Columns(columns)
    , Scale(scale)
    , Rule(std::move(rule))
{
    setFocusPolicy(Qt::StrongFocus);
    installAccessibility();
}

void ColorBlocks::setChosenBlock(int n)
{
    Chosen = n;
    update();
    tellCurrentCell(this, n - 1);
    emit Moved(n);
}

void ColorBlocks::setColor(int n, ColorValue color)
{
    at(n).Color = color;
    update(pixels(n));
}

QString ColorBlocks::spokenName(int index) const
{
    const Block &block = at(index + 1);
    return block.Spoken.isEmpty() ? block.Label : block.Spoken;
}

QString ColorBlocks::spokenDescription(int index) const
{
    const QColor color = ToColor(at(index + 1).Color, QGuiApplication::palette());
    return QString("Red %1, green %2, blue %3")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue());
}

void ColorBlocks::setMarkSize(double width, double height)
{
    MarkWidth = width;
    MarkHeight = height;
    update();
}

void ColorBlocks::setScale(const TwipScale &scale)
{
    Scale = scale;
    update();
}

int ColorBlocks::blockAt(const QPoint &point) const
{
    for (int n = 1; n <= static_cast<int>(Blocks.size()); ++n)
        if (pixels(n).contains(point))
            return n;
    return 0;
}

/// Shows on the ground, which may be one that the desktop knows nothing of.
QColor ColorBlocks::markColor() const
{
    constexpr double told = 2; // contrast
    const QColor ground = palette().color(QPalette::Window);
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor highlight = palette().color(QPalette::Highlight);
    if (!hasFocus())
        return mix(ground, ink, FrameTone);
    return contrast(highlight, ground) >= told ? highlight : ink;
}

void ColorBlocks::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const DevicePixels device(painter.deviceTransform());
    const auto fillInside = [&](QRectF box, double edge, const QColor &color) {
        edge *= device.line();
        painter.fillRect(box.adjusted(edge, edge, -edge, -edge), color);
    };
    const TwipRect &chosen = at(Chosen).Place;
    const QRectF mark =
        device.between(Scale.toPixels({.Left = chosen.Left - (MarkWidth - chosen.Width) / 2,
                                       .Top = chosen.Top - (MarkHeight - chosen.Height) / 2,
                                       .Width = MarkWidth,
                                       .Height = MarkHeight}));
    fillInside(mark, 0, markColor());
    fillInside(mark, 2, palette().color(QPalette::Base));
    const QColor frame =
        mix(palette().color(QPalette::Window), palette().color(QPalette::WindowText), FrameTone);
    // This may wear colours of its own: those of the desktop are others.
    const QPalette desktop = QGuiApplication::palette();
    for (const Block &block : Blocks) {
        const QRectF box = device.between(Scale.toPixels(block.Place));
        fillInside(box, 0, frame);
        fillInside(box, 1, ToColor(block.Color, desktop));
    }
}

void ColorBlocks::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    // Behind the toolkit's own word that this widget has the focus.
    QMetaObject::invokeMethod(
        this, [this] { tellCurrentCell(this, spokenCell()); }, Qt::QueuedConnection);
}

void ColorBlocks::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit Taken();
        return;
    }
    // The keys of the window's own.
    if (event->key() == Qt::Key_Escape ||
        event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
        QWidget::keyPressEvent(event);
        return;
    }
    setChosenBlock(Rule(Chosen, event->key()));
}

void ColorBlocks::mousePressEvent(QMouseEvent *event)
{
    const int n = blockAt(event->position().toPoint());
    if (n && event->button() == Qt::LeftButton)
        setChosenBlock(n);
}

void ColorBlocks::mouseDoubleClickEvent(QMouseEvent *event)
{
    const int n = blockAt(event->position().toPoint());
    if (n && event->button() == Qt::LeftButton) {
        setChosenBlock(n);
        emit Taken();
    }
}

bool ColorBlocks::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const int n = blockAt(help->pos());
        if (ToolTips && n && !label(n).isEmpty())
            QToolTip::showText(help->globalPos(), PlainToolTip(label(n)), this, pixels(n));
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}
