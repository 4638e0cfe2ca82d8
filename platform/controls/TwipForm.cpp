// Keeps twips, gives the toolkit pixels.
#include "platform/controls/TwipForm.h"

#include <QApplication>
#include <QFont>
#include <QWidget>

namespace {

void change(TwipForm &form, QWidget *control, double TwipRect::*field, double twips)
{
    TwipRect changed = form.rect(control);
    changed.*field = twips;
    form.place(control, changed);
}

} // namespace

QFont TwipForm::font()
{
    QFont font("Sans Serif");
    font.setPointSizeF(8.25);
    font.setBold(false);
    font.setItalic(false);
    return font;
}

QFont TwipForm::desktopFont(const char *className)
{
    QFont font = QApplication::font(className);
    // The toolkit takes what is not marked as chosen from the parent.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}

void TwipForm::setScale(const TwipScale &scale)
{
    Scale = scale;
    for (const Placed &placed : std::as_const(Places))
        placed.Control->setGeometry(Scale.toPixels(placed.Rect));
}

void TwipForm::place(QWidget *control, const TwipRect &rect)
{
    Places.insert(control, {control, rect});
    control->setGeometry(Scale.toPixels(rect));
}

void TwipForm::setLeft(QWidget *control, double twips)
{
    change(*this, control, &TwipRect::Left, twips);
}

void TwipForm::setTop(QWidget *control, double twips)
{
    change(*this, control, &TwipRect::Top, twips);
}

void TwipForm::setWidth(QWidget *control, double twips)
{
    change(*this, control, &TwipRect::Width, twips);
}

void TwipForm::setHeight(QWidget *control, double twips)
{
    change(*this, control, &TwipRect::Height, twips);
}
