// Tooltips of texts that are anybody's: the toolkit takes what looks like markup for markup.
#pragma once

#include <QTextDocument>

/// The text as a tooltip that shows just this.
inline QString PlainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}
