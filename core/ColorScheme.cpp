// The live colours are read where they are kept: from the zoom of the main window.
#include "core/ColorScheme.h"

#include "core/GlobalDeclarations.h"
#include "core/Zendova.h"
#include "platform/controls/CharCells.h"

void WearColorScheme(std::initializer_list<QWidget *> controls)
{
    const Zendova *main = Zendova::Instance();
    if (!main || !ColorSchemeOn)
        return;
    for (QWidget *control : controls) {
        QPalette own = control->palette();
        const QColor fore = ToColor(main->TextZoom->ForeColor(0), main->palette());
        const QColor back = ToColor(main->TextZoom->BackColor(0), main->palette());
        own.setColor(QPalette::WindowText, fore);
        own.setColor(QPalette::Window, back);
        own.setColor(QPalette::Base, back);
        control->setPalette(own);
        control->setAutoFillBackground(true);
    }
}
