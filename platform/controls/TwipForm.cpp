// Keeps twips, gives the toolkit pixels.
#include "platform/controls/TwipForm.h"

#include <QFont>
#include <QWidget>

QFont TwipForm::font()
{
    QFont font("Sans Serif");
    font.setPointSizeF(8.25);
    font.setBold(false);
    font.setItalic(false);
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
    TwipRect moved = rect(control);
    moved.Left = twips;
    place(control, moved);
}

void TwipForm::setTop(QWidget *control, double twips)
{
    TwipRect moved = rect(control);
    moved.Top = twips;
    place(control, moved);
}

void TwipForm::setWidth(QWidget *control, double twips)
{
    TwipRect sized = rect(control);
    sized.Width = twips;
    place(control, sized);
}

void TwipForm::setHeight(QWidget *control, double twips)
{
    TwipRect sized = rect(control);
    sized.Height = twips;
    place(control, sized);
}
