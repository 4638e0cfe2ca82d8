// The two colours are kept as values: a colour of the desktop is looked up when a dialog opens.
#include "core/ColorScheme.h"

#include "core/GlobalDeclarations.h"

#include <QGuiApplication>
#include <QWidget>
#include <optional>

namespace {

struct Scheme
{
    ColorValue Fore;
    ColorValue Back;
};
std::optional<Scheme> Worn;

} // namespace

void SetColorScheme(ColorValue fore, ColorValue back)
{
    Worn = {fore, back};
}

void WearColorScheme(std::initializer_list<QWidget *> controls)
{
    if (!Worn || !ColorSchemeOn)
        return;
    for (QWidget *control : controls) {
        QPalette own = control->palette();
        const QColor fore = ToColor(Worn->Fore, QGuiApplication::palette());
        const QColor back = ToColor(Worn->Back, QGuiApplication::palette());
        own.setColor(QPalette::WindowText, fore);
        own.setColor(QPalette::Window, back);
        own.setColor(QPalette::Base, back);
        control->setPalette(own);
        control->setAutoFillBackground(true);
    }
}
