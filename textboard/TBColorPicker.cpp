// The colour picker's controls and what they do. Names are shown from the cells' tooltips, so with
// tooltips off the labels are empty, and so is the name that is handed back.
#include "textboard/TBColorPicker.h"

#include "core/ColorScheme.h"
#include "core/GlobalDeclarations.h"
#include "platform/SysInfo.h"
#include "platform/controls/ColorBlocks.h"
#include "textboard/QBColors.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace {

/// Places of the cells in ColorContainer, twips.
std::vector<ColorBlocks::Block> cells()
{
    constexpr int columns = QBColorCount / 2;
    std::vector<ColorBlocks::Block> blocks;
    for (int index = 0; index < QBColorCount; ++index)
        blocks.push_back(
            {.Place = {.Left = 270.0 + 585 * (index % columns),
                       .Top = index < columns ? 255.0 : 840.0,
                       .Width = 390,
                       .Height = 390},
             .Color = QBColor(index),
             .Label = ToolTipsOn ? QBColors.at(static_cast<std::size_t>(index)).CellLabel : ""});
    return blocks;
}

} // namespace

TBColorPicker::TBColorPicker(QWidget *parent) : QDialog(parent), Form(SysInfo::current().scale())
{
    setWindowTitle("Pick A Color for TextBoard Font");
    createControls();
    const TwipScale &scale = Form.scale();
    setFixedSize(scale.across(5100), scale.down(2370));

    QPalette current = CurrentColorBlock->palette();
    current.setColor(QPalette::Window, ToColor(PickColorValue.toInt(), palette()));
    CurrentColorBlock->setPalette(current);
    const int cell = std::clamp(PickColorIndex, 0, QBColorCount - 1) + 1;
    CurrentColorLabel->setText(ColorContainer->label(cell));
    connect(ColorContainer, &ColorBlocks::Moved, this,
            [this](int n) { ColorLabel->setText(ColorContainer->label(n)); });
    connect(ColorContainer, &ColorBlocks::Taken, this, &TBColorPicker::Button1_Click);
    ColorContainer->setChosenBlock(cell);
    WearColorScheme({ColorContainer, Label2, CurrentColorLabel, ColorLabel});
    ColorContainer->setFocus();
}

void TBColorPicker::createControls()
{
    const TwipScale &scale = Form.scale();
    ColorContainer = new ColorBlocks(cells(), scale, MoveColorCell, this);
    ColorContainer->setObjectName("ColorContainer");
    ColorContainer->setAccessibleName(windowTitle());
    ColorContainer->setMarkSize(600, 600);
    Form.place(ColorContainer, {15, 45, 5070, 1530});

    auto *Frame1 = new QFrame(this);
    auto *Frame2 = new QFrame(this);
    for (QFrame *frame : {Frame1, Frame2})
        frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Form.place(Frame1, {15, 1530, 3135, 420});
    Form.place(Frame2, {3180, 1530, 1905, 420});
    Label2 = new QLabel("Current Font Color:", Frame1);
    Form.place(Label2, {135, 150, 1725, 210});
    CurrentColorBlock = new QLabel(Frame1);
    CurrentColorBlock->setAutoFillBackground(true);
    CurrentColorBlock->setFrameStyle(QFrame::Box | QFrame::Plain);
    Form.place(CurrentColorBlock, {1860, 150, 195, 195});
    CurrentColorLabel = new QLabel(Frame1);
    CurrentColorLabel->setObjectName("CurrentColorLabel");
    Form.place(CurrentColorLabel, {2130, 150, 915, 210});
    ColorLabel = new QLabel(Frame2);
    ColorLabel->setObjectName("ColorLabel");
    ColorLabel->setAlignment(Qt::AlignCenter);
    Form.place(ColorLabel, {30, 150, 1635, 240});

    Button1 = new QPushButton("Ok", this);
    Button1->setDefault(true);
    Form.place(Button1, {2430, 1995, 1290, 330});
    Button2 = new QPushButton("Cancel", this);
    Form.place(Button2, {3780, 1995, 1290, 330});
    connect(Button1, &QPushButton::clicked, this, &TBColorPicker::Button1_Click);
    connect(Button2, &QPushButton::clicked, this, &TBColorPicker::Button2_Click);
}

int TBColorPicker::ChosenCell() const
{
    return ColorContainer->ChosenBlock();
}

void TBColorPicker::Button1_Click()
{
    PickColorIndex = ChosenCell() - 1;
    PickColorName = ColorContainer->label(ChosenCell());
    accept();
}

void TBColorPicker::Button2_Click()
{
    reject();
}
