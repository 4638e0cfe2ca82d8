// The palette's controls and what they do. Its tables of colours are the truth; the blocks show
// them.
#include "defaults/FMColorPalette.h"

#include "core/ColorScheme.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/SysInfo.h"
#include "platform/controls/CmnDlg.h"
#include "platform/controls/ColorBlocks.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>
#include <algorithm>

namespace {

constexpr double Width = 5670; // twips
constexpr double Height = 4650;

// The pages are placed by the tabs, which keep some room for the desktop's own idea of a tab.
constexpr ControlRow Rows[] = {
    {"SSTabColor", "FMColorPalette", {75, 75, 5520, 3600}, "", "Palettes"},
    {"PresetPage", "SSTabColor", InBand},
    {"SystemPage", "SSTabColor", InBand},
    {"CustomPage", "SSTabColor", InBand},
    {"PColorContainer", "PresetPage", {120, 75, 5235, 2925}},
    {"SColorContainer", "SystemPage", {120, 75, 5235, 2430}},
    {"SCLabel", "SystemPage", {120, 2610, 5235, 330}},
    {"CColorContainer", "CustomPage", {120, 75, 5235, 2430}},
    {"CCLabel", "CustomPage", {120, 2610, 2415, 330}},
    {"CCText", "CustomPage", {120, 2610, 2415, 330}, "", "Custom Color Label"},
    {"ColorButton", "CustomPage", {2640, 2610, 1110, 330}, "Change Custom Color"},
    {"TextButton", "CustomPage", {3810, 2610, 930, 330}, "Change Custom Color Label"},
    {"ResetButton", "CustomPage", {4800, 2610, 555, 330}, "Reset All Custom Colors"},
    {"CurrentColorFrame", "FMColorPalette", {75, 3735, 5520, 420}},
    {"CurrentColorCaption", "CurrentColorFrame", {120, 105, 1290, 210}},
    {"CurrentColorBlock", "CurrentColorFrame", {1440, 105, 375, 210}, "", "Current Color"},
    {"CurrentColorLabel", "CurrentColorFrame", {1890, 105, 3540, 210}},
    {"Button1", "FMColorPalette", {2940, 4245, 1290, 330}},
    {"Button2", "FMColorPalette", {4305, 4245, 1290, 330}},
};

constexpr const char *ResetTitle = "Reset Custom Color Blocks";

std::vector<ColorBlocks::Block> blocksFor(const ColorPalette &colors, int palette)
{
    std::vector<ColorBlocks::Block> blocks;
    for (const PaletteColor &entry : colors)
        blocks.push_back(
            {.Place = PaletteBlockPlace(static_cast<int>(blocks.size()) + 1),
             .Color = entry.Color,
             .Label = entry.Label,
             // The labels of the custom ones change.
             .Spoken = palette == CustomPalette ? QString() : PaletteColorName(palette, entry)});
    return blocks;
}

/// Shortened where the label is too narrow; assistive tools get the whole.
void showText(QLabel *label, const QString &text)
{
    const int room = label->contentsRect().width() - 2 * label->indent();
    label->setText(label->fontMetrics().elidedText(text, Qt::ElideRight, room));
    label->setAccessibleName(text);
}

} // namespace

FMColorPalette::FMColorPalette(QWidget *parent)
    : FormDialog("FMColorPalette", Rows, Width, Height, parent)
    , Palettes{PresetColors(), SystemColors(), ReadCustomColors()}
{
}

void FMColorPalette::PickColor(const QString &caption, const QWidget &owner)
{
    if (!SSTabColor) {
        createControls();
        connectControls();
    }
    setWindowTitle(caption);
    Form_Activate();
    // The owner may be a dialog, and this not disappear behind it. Asking for the window's number
    // instead would give each area of the main window a window of its own, which not every window
    // system keeps painted.
    create();
    windowHandle()->setTransientParent(owner.window()->windowHandle());
    exec();
}

bool FMColorPalette::PickAnother(const QString &caption, const QWidget &owner,
                                 const ColorRecord &record, ColorValue live)
{
    PickColorIndex = record.ColorIndex;
    PickPaletteRef = record.PaletteRef;
    PickColorValue = QString::number(live);
    PickColor(caption, owner);
    return PickColorIndex != record.ColorIndex || PickPaletteRef != record.PaletteRef;
}

ColorRecord PickedColor()
{
    return {.Color = PickColorValue.toInt(),
            .ColorIndex = PickColorIndex,
            .ColorName = PickColorName,
            .PaletteRef = PickPaletteRef};
}

void FMColorPalette::SaveCustomColors() const
{
    WriteCustomColors(Palettes[CustomPalette]);
}

void FMColorPalette::createControls()
{
    SSTabColor = Form.Make<QTabWidget>("SSTabColor");
    const auto addPage = [this](const char *name, int palette) {
        SSTabColor->addTab(Form.Make<QWidget>(name), PaletteName(palette));
    };
    addPage("PresetPage", PresetPalette);
    addPage("SystemPage", SystemPalette);
    addPage("CustomPage", CustomPalette);

    const auto makeLabel = [this](const char *name, const QString &text = {}) {
        QLabel *label = Form.MakeLabel(name, text, Qt::AlignLeft);
        label->setTextFormat(Qt::PlainText);
        label->setIndent(2);
        return label;
    };
    constexpr int sunken = QFrame::StyledPanel | QFrame::Sunken;
    PColorContainer = makeBlocks("PColorContainer", PresetPalette);
    SColorContainer = makeBlocks("SColorContainer", SystemPalette);
    SCLabel = makeLabel("SCLabel");
    SCLabel->setFrameStyle(sunken);
    CColorContainer = makeBlocks("CColorContainer", CustomPalette);
    CCLabel = makeLabel("CCLabel");
    CCLabel->setFrameStyle(sunken);
    CCText = Form.Make<QLineEdit>("CCText");
    CCText->setToolTip("Edit Custom Color Label");
    CCText->hide();
    ColorButton = Form.Make<QPushButton>("ColorButton", "Color...");
    TextButton = Form.Make<QPushButton>("TextButton", "Label");
    TextButton->setCheckable(true);
    // A click that ends the edit must not end it by the focus first, and then begin another.
    TextButton->setFocusPolicy(Qt::TabFocus);
    ResetButton = Form.Make<QPushButton>("ResetButton", "R");

    Form.Make<QFrame>("CurrentColorFrame")->setFrameStyle(sunken);
    makeLabel("CurrentColorCaption", "Current Color:");
    CurrentColorBlock = makeLabel("CurrentColorBlock");
    CurrentColorBlock->setAutoFillBackground(true);
    CurrentColorBlock->setFrameStyle(QFrame::Box | QFrame::Plain);
    CurrentColorLabel = makeLabel("CurrentColorLabel");
    Button1 = Form.Make<QPushButton>("Button1", "Ok");
    Button1->setDefault(true);
    Button2 = Form.Make<QPushButton>("Button2", "Cancel");
    setTabOrder(Button2, SSTabColor->tabBar()); // from wherever it is, the blocks come first
}

ColorBlocks *FMColorPalette::makeBlocks(const char *name, int palette)
{
    const ColorPalette &colors = Palettes.at(static_cast<std::size_t>(palette));
    const auto move = [count = static_cast<int>(colors.size())](int n, int key) {
        return MoveInPalette(n, key, count);
    };
    auto *blocks = new ColorBlocks(blocksFor(colors, palette), PaletteColumns, Form.scale(), move,
                                   SSTabColor->widget(palette));
    Form.Adopt(blocks, name);
    blocks->setAccessibleName(PaletteName(palette) + " colors");
    blocks->setMarkSize(630, 450);
    blocks->setAutoFillBackground(true);
    connect(blocks, &ColorBlocks::Moved, this, [this, palette] {
        showChoice(palette);
        TextButton->setChecked(false);
    });
    connect(blocks, &ColorBlocks::Taken, this, &FMColorPalette::Button1_Click);
    return blocks;
}

void FMColorPalette::connectControls()
{
    CCText->installEventFilter(this);
    connect(SSTabColor, &QTabWidget::currentChanged, this, &FMColorPalette::SSTabColor_Click);
    connect(ColorButton, &QPushButton::clicked, this, &FMColorPalette::ColorButton_Click);
    connect(TextButton, &QPushButton::toggled, this, &FMColorPalette::TextButton_Click);
    connect(ResetButton, &QPushButton::clicked, this, &FMColorPalette::ResetButton_Click);
    connect(Button1, &QPushButton::clicked, this, &FMColorPalette::Button1_Click);
    connect(Button2, &QPushButton::clicked, this, &FMColorPalette::Button2_Click);
}

void FMColorPalette::Form_Activate()
{
    adoptScale();
    Form.SetToolTips(ToolTipsOn);
    SavedColors = Palettes[CustomPalette];
    wearColors();
    // A damaged record is brought to a colour that is there.
    const int tab = std::clamp(PickPaletteRef, 0, PaletteCount - 1);
    for (int palette = 0; palette < PaletteCount; ++palette) {
        const int last = static_cast<int>(Palettes.at(static_cast<std::size_t>(palette)).size());
        blocksOf(palette)->setToolTips(ToolTipsOn);
        blocksOf(palette)->setChosenBlock(
            palette == tab ? std::clamp(PickColorIndex, 0, last - 1) + 1 : 1);
    }
    showText(CurrentColorLabel, PaletteName(tab) + ", " + PaletteColorName(tab, chosenColor(tab)));
    if (SSTabColor->currentIndex() == tab)
        SSTabColor_Click();
    else
        SSTabColor->setCurrentIndex(tab);
}

void FMColorPalette::adoptScale()
{
    const TwipScale scale = SysInfo::current().scale();
    if (scale == Form.scale())
        return;
    Form.setScale(scale);
    setFixedSize(scale.across(Width), scale.down(Height));
    for (int palette = 0; palette < PaletteCount; ++palette)
        blocksOf(palette)->setScale(scale);
}

/// With the colours of the desktop as they are now.
void FMColorPalette::wearColors()
{
    for (int palette = 0; palette < PaletteCount; ++palette)
        SetBackColor(blocksOf(palette), SystemColorValue(0));
    WearColorScheme({PColorContainer, SColorContainer, CColorContainer});
    SetBackColor(CurrentColorBlock, PickColorValue.toInt());
}

bool FMColorPalette::event(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange && SSTabColor)
        wearColors();
    return FormDialog::event(event);
}

ColorBlocks *FMColorPalette::blocksOf(int palette) const
{
    switch (palette) {
    case PresetPalette:
        return PColorContainer;
    case SystemPalette:
        return SColorContainer;
    default:
        return CColorContainer;
    }
}

const PaletteColor &FMColorPalette::chosenColor(int palette) const
{
    return Palettes.at(static_cast<std::size_t>(palette))
        .at(static_cast<std::size_t>(blocksOf(palette)->ChosenBlock() - 1));
}

PaletteColor &FMColorPalette::chosenCustomColor()
{
    return Palettes[CustomPalette].at(static_cast<std::size_t>(CColorContainer->ChosenBlock() - 1));
}

void FMColorPalette::showChoice(int palette)
{
    const QString name = PaletteColorName(palette, chosenColor(palette));
    if (palette == SystemPalette)
        showText(SCLabel, name);
    else if (palette == CustomPalette)
        showText(CCLabel, name);
}

void FMColorPalette::showCustomColors()
{
    int block = 0;
    for (const PaletteColor &entry : Palettes[CustomPalette]) {
        CColorContainer->setColor(++block, entry.Color);
        CColorContainer->setLabel(block, entry.Label);
    }
    showChoice(CustomPalette);
}

void FMColorPalette::SSTabColor_Click()
{
    const int tab = SSTabColor->currentIndex();
    TextButton->setChecked(false);
    showChoice(tab);
    blocksOf(tab)->setFocus();
}

void FMColorPalette::ColorButton_Click()
{
    if (CmnDlg::ShowColor(this, chosenCustomColor().Color))
        showCustomColors();
    CColorContainer->setFocus();
}

void FMColorPalette::TextButton_Click()
{
    if (TextButton->isChecked()) {
        LabelEditOn = true;
        EditedBlock = CColorContainer->ChosenBlock();
        CCText->setText(chosenCustomColor().Label);
        CCText->selectAll();
        CCText->show();
        CCText->setFocus();
        return;
    }
    if (LabelEditOn) {
        Palettes[CustomPalette].at(static_cast<std::size_t>(EditedBlock - 1)).Label =
            CCText->text();
        showCustomColors();
    }
    CCText->hide();
    CColorContainer->setFocus();
}

bool FMColorPalette::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Escape:
            LabelEditOn = false;
            [[fallthrough]];
        case Qt::Key_Return:
        case Qt::Key_Enter:
            TextButton->setChecked(false);
            return true;
        default:
            break;
        }
    }
    // Another window, or the context menu of the box, takes the focus for a while and gives it
    // back.
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            TextButton->setChecked(false);
    }
    return FormDialog::eventFilter(watched, event);
}

void FMColorPalette::ResetButton_Click()
{
    if (AreCustomColorsChanged(Palettes[CustomPalette])) {
        ZndvMsg("\rThis will reset all custom colors and\rlabels to their original default values."
                "\r\rContinue with Reset?\r\r• Press Yes to Reset Color Blocks.\r"
                "• Press No to cancel Reset.",
                "YN", ResetTitle, true, 1);
        if (MsgResult) {
            Palettes[CustomPalette] = ResetCustomColors();
            showCustomColors();
        }
    } else {
        ZndvMsg("\r\r\rNone of the Custom colors or\rtheir names has been changed.\r\r"
                "There is nothing to Reset.",
                "OK", ResetTitle, false, 1);
    }
    SSTabColor_Click();
}

void FMColorPalette::Button1_Click()
{
    TextButton->setChecked(false);
    const int tab = SSTabColor->currentIndex();
    const PaletteColor &choice = chosenColor(tab);
    PickColorIndex = blocksOf(tab)->ChosenBlock() - 1;
    PickColorName = PaletteColorName(tab, choice);
    PickColorValue = QString::number(choice.Color);
    PickPaletteRef = tab;
    accept();
}

void FMColorPalette::Button2_Click()
{
    TextButton->setChecked(false);
    Palettes[CustomPalette] = SavedColors;
    showCustomColors();
    FormDialog::reject();
}

void FMColorPalette::reject()
{
    Button2_Click();
}

void FMColorPalette::closeEvent(QCloseEvent *event)
{
    // A window that is hidden already may be told to close, too.
    if (isVisible()) {
        TextButton->setChecked(false);
        SaveCustomColors();
        FormDialog::reject();
    }
    event->accept();
}
