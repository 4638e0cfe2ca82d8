// The label holds what fits; the whole stands beside it.
#include "platform/controls/ElidedLabel.h"

#include "platform/controls/PlainToolTip.h"

#include <QHelpEvent>
#include <QToolTip>

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setWholeText(const QString &text)
{
    Whole = text;
    setAccessibleName(text);
    cut();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    cut();
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        cut();
    if (event->type() == QEvent::ToolTip && tellsNot(toolTip())) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), PlainToolTip(Whole),
                           this);
        return true;
    }
    return QLabel::event(event);
}

/// A tooltip that has the whole text in it, as a path has a name, tells it anyway. Where tooltips
/// are switched off, there is none.
bool ElidedLabel::tellsNot(const QString &toolTip) const
{
    return text() != Whole && !toolTip.isEmpty() && !toolTip.contains(Whole) &&
           !toolTip.contains(Whole.toHtmlEscaped());
}

void ElidedLabel::cut()
{
    setText(fontMetrics().elidedText(Whole, Qt::ElideRight, contentsRect().width()));
}
