// The modal dialog in which one of the board's sixteen colours is chosen. It takes the present
// colour from the public Pick variables and gives the choice back in them; Cancel leaves them
// alone.
#pragma once

#include "platform/controls/FormDialog.h"

class ColorBlocks;
class QLabel;
class QPushButton;

class TBColorPicker : public FormDialog
{
    Q_OBJECT

public:
    explicit TBColorPicker(QWidget *parent);

    void Button1_Click();
    void Button2_Click();

    /// The marked cell, 1 to 16.
    int ChosenCell() const;

    ColorBlocks *ColorContainer = nullptr;
    QLabel *Label2 = nullptr;
    QLabel *CurrentColorBlock = nullptr;
    QLabel *CurrentColorLabel = nullptr;
    QLabel *ColorLabel = nullptr;
    QPushButton *Button1 = nullptr;
    QPushButton *Button2 = nullptr;

private:
    void createControls();
};
