// The colour picker's controls and what they do. Names are shown from the cells' tooltips, so with
// tooltips off the labels are empty, and so is the name that is handed back.
#include "textboard/TBColorPicker.h"

#include "core/ColorScheme.h"
#include "core/GlobalDeclarations.h"
#include "platform/controls/ColorBlocks.h"
#include "platform/controls/MoveInGrid.h"
#include "textboard/QBColors.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr double Width = 5100; // twips
constexpr double Height = 2370;

constexpr ControlRow Rows[] = {
    {"ColorContainer", "TBColorPicker", {15, 45, 5070, 1485}},
    {"Frame1", "TBColorPicker", {15, 1530, 3135, 420}},
    {"Frame2", "TBColorPicker", {3180, 1530, 1905, 420}},
    {"Label2", "Frame1", {135, 150, 1725, 210}},
    {"CurrentColorBlock", "Frame1", {1860, 150, 195, 195}, "", "Current font color"},
    {"CurrentColorLabel", "Frame1", {2130, 150, 915, 210}},
    {"ColorLabel", "Frame2", {30, 150, 1635, 210}},
    {"Button1", "TBColorPicker", {2430, 1995, 1290, 330}},
    {"Button2", "TBColorPicker", {3780, 1995, 1290, 330}},
};
constexpr int Columns = QBColorCount / 2;

/// Places of the cells in ColorContainer, twips.
std::vector<ColorBlocks::Block> cells()
{
    std::vector<ColorBlocks::Block> blocks;
    for (int index = 0; index < QBColorCount; ++index)
        blocks.push_back(
            {.Place = {.Left = 270.0 + 585 * (index % Columns),
                       .Top = index < Columns ? 255.0 : 840.0,
                       .Width = 390,
                       .Height = 390},
             .Color = QBColor(index),
             .Label = ToolTipsOn ? QBColors.at(static_cast<std::size_t>(index)).CellLabel : "",
             .Spoken = QBColors.at(static_cast<std::size_t>(index)).CellLabel});
    return blocks;
}

} // namespace

TBColorPicker::TBColorPicker(QWidget *parent)
    : FormDialog("TBColorPicker", Rows, Width, Height, parent)
{
    setWindowTitle("Pick A Color for TextBoard Font");
    createControls();

    SetBackColor(CurrentColorBlock, PickColorValue.toInt());
    const int cell = std::clamp(PickColorIndex, 0, QBColorCount - 1) + 1;
    CurrentColorLabel->setText(ColorContainer->label(cell));
    connect(ColorContainer, &ColorBlocks::Moved, this,
            [this](int n) { ColorLabel->setText(ColorContainer->label(n)); });
    connect(ColorContainer, &ColorBlocks::Taken, this, &TBColorPicker::Button1_Click);
    ColorContainer->setChosenBlock(cell);
    WearColorScheme({ColorContainer, Form.Control("Frame1"), Form.Control("Frame2"), Label2,
                     CurrentColorLabel, ColorLabel});
    ColorContainer->setFocus();
}

void TBColorPicker::createControls()
{
    const auto move = [](int n, int key) { return MoveInGrid(n, key, QBColorCount, Columns); };
    ColorContainer = new ColorBlocks(cells(), Columns, Form.scale(), move, this);
    Form.Adopt(ColorContainer, "ColorContainer");
    ColorContainer->setAccessibleName(windowTitle());
    ColorContainer->setMarkSize(600, 600);
    for (const char *frame : {"Frame1", "Frame2"})
        Form.Make<QFrame>(frame)->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Label2 = Form.MakeLabel("Label2", "Current Font Color:", Qt::AlignLeft);
    CurrentColorBlock = Form.Make<QLabel>("CurrentColorBlock");
    CurrentColorBlock->setAutoFillBackground(true);
    CurrentColorBlock->setFrameStyle(QFrame::Box | QFrame::Plain);
    CurrentColorLabel = Form.MakeLabel("CurrentColorLabel", {}, Qt::AlignLeft);
    ColorLabel = Form.MakeLabel("ColorLabel", {}, Qt::AlignCenter);
    Button1 = Form.Make<QPushButton>("Button1", "Ok");
    Button1->setDefault(true);
    Button2 = Form.Make<QPushButton>("Button2", "Cancel");
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
