// What the program's own dialogs have in common: their controls are a table in twips, their size is
// fixed, they wear the form font, and they know no other window: values in, values out.
#pragma once

#include "platform/controls/ControlTable.h"

#include <QDialog>

class FormDialog : public QDialog
{
    Q_OBJECT

public:
    /// Only controls with a tag follow; what has a tooltip of its own keeps it.
    void SetToolTips(bool on) { Form.SetToolTips(on); }

protected:
    /// The rows outlive the dialog, whose name, as a parent in them, is also its object name. Its
    /// content has this width and height in twips. The controls are the derived class's to make.
    FormDialog(const char *name, std::span<const ControlRow> rows, double width, double height,
               QWidget *parent);

    /// The font for which the texts of messages are broken into lines, in the size of the form
    /// font; the form font where it is not installed.
    static QFont messageFont();

    ControlTable Form;
};
