// Painting of the blocks and the mark, and the way from keys and clicks to a choice.
#include "platform/controls/ColorBlocks.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

ColorBlocks::ColorBlocks(std::vector<Block> blocks, const TwipScale &scale, KeyRule rule,
                         QWidget *parent)
    : QWidget(parent), Blocks(std::move(blocks)), Scale(scale), Rule(std::move(rule))
{
    setFocusPolicy(Qt::StrongFocus);
}

void ColorBlocks::setChosenBlock(int n)
{
    Chosen = n;
    update();
    emit Moved(n);
}

void ColorBlocks::setColor(int n, ColorValue color)
{
    at(n).Color = color;
    update(pixels(n));
}

void ColorBlocks::setMarkSize(double width, double height)
{
    MarkWidth = width;
    MarkHeight = height;
    update();
}

int ColorBlocks::blockAt(const QPoint &point) const
{
    for (int n = 1; n <= static_cast<int>(Blocks.size()); ++n)
        if (pixels(n).contains(point))
            return n;
    return 0;
}

void ColorBlocks::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const TwipRect &chosen = at(Chosen).Place;
    const QRect mark = Scale.toPixels({.Left = chosen.Left - (MarkWidth - chosen.Width) / 2,
                                       .Top = chosen.Top - (MarkHeight - chosen.Height) / 2,
                                       .Width = MarkWidth,
                                       .Height = MarkHeight});
    painter.fillRect(mark, palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    const QRect inner = mark.adjusted(2, 2, -2, -2);
    painter.fillRect(inner, palette().color(QPalette::Base));
    for (const Block &block : Blocks) {
        const QRect box = Scale.toPixels(block.Place);
        painter.fillRect(box, palette().color(QPalette::Mid));
        painter.fillRect(box.adjusted(1, 1, -1, -1), ToColor(block.Color, palette()));
    }
}

void ColorBlocks::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit Taken();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
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
        if (n && !label(n).isEmpty())
            QToolTip::showText(help->globalPos(), label(n), this, pixels(n));
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}
