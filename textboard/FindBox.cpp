// The characters by a validator, through which the toolkit sends every change of the text.
#include "textboard/FindBox.h"

#include "platform/controls/CodePageValidator.h"
#include "textboard/EditKeys.h"
#include "textboard/TextBoard.h"

#include <QDragEnterEvent>
#include <QMimeData>

FindBox::FindBox(QWidget *parent) : QLineEdit(parent)
{
    setMaxLength(TextBoard::MaxLength());
    setValidator(new CodePageValidator(this));
}

bool FindBox::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        EditKeys::belongsToWindow(static_cast<const QKeyEvent &>(*event))) {
        event->ignore();
        return false;
    }
    return QLineEdit::event(event);
}

void FindBox::keyPressEvent(QKeyEvent *event)
{
    if (EditKeys::belongsToWindow(*event))
        event->ignore();
    else if (EditKeys::isRedo(*event))
        redo();
    else
        QLineEdit::keyPressEvent(event);
}

void FindBox::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QLineEdit::dragEnterEvent(event);
}
