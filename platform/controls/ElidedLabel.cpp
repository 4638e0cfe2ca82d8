// The label holds what fits; the whole stands beside it.
#include "platform/controls/ElidedLabel.h"

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
    if (event->type() == QEvent::ToolTip && text() != Whole) {
        // As plain text: a name may look like markup.
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           "<span>" + Whole.toHtmlEscaped() + "</span>", this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::cut()
{
    setText(fontMetrics().elidedText(Whole, Qt::ElideRight, contentsRect().width()));
}
