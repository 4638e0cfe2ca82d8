// Size and fonts of the dialogs.
#include "platform/controls/FormDialog.h"

#include "platform/FontCatalog.h"
#include "platform/SysInfo.h"

FormDialog::FormDialog(const char *name, std::span<const ControlRow> rows, double width,
                       double height, QWidget *parent)
    : QDialog(parent), Form(rows, name, this, SysInfo::current().scale())
{
    setObjectName(name);
    // Its size is fixed: there is nothing to maximise.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setFont(TwipForm::font());
    setFixedSize(Form.scale().across(width), Form.scale().down(height));
}

QFont FormDialog::messageFont()
{
    constexpr auto name = "Verdana";
    QFont font = TwipForm::font();
    if (!FontCatalog::current().contains(name))
        return font;
    FontCatalog::current().keep(name); // also where a person walks over it among other fonts
    QFont verdana = FontCatalog::current().font(name);
    verdana.setPointSizeF(font.pointSizeF());
    verdana.setStyleStrategy(QFont::PreferDefault); // texts show in any script
    return verdana;
}
