// The controls of the main window: one row each with its parent and its place in twips, their
// creation in the order of the rows, and what the panels and the board tell the window. The panels
// make their own controls.
#include "core/Zendova.h"

#include "core/ColorScheme.h"
#include "core/LockPanels.h"
#include "core/SettingsDefaults.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/FontCatalog.h"
#include "platform/SysInfo.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/DesktopKeys.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/SplitBar.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FillBar.h"
#include "textboard/FindBar.h"
#include "textboard/TextBoard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QSlider>

namespace {

constexpr ControlRow Rows[] = {
    {"CoolBarCM", "Client", {105, 0, 11415, 390}, "", "Main bar"},
    {"LoadSaveTB", "CoolBarCM", InBand, "", "Text files"},
    {"TBFContainer", "CoolBarCM", InBand, "", "Font name"},
    {"FontLabel", "TBFContainer", {45, 45, 960, 240}},
    {"FontNameCombo", "TBFContainer", {1035, 0, 5010, 330}, "", "Select a Font"},
    {"FSZContainer", "CoolBarCM", InBand, "", "Font size"},
    {"FontSizeLabel", "FSZContainer", {45, 45, 840, 240}},
    {"FontSizeNumber", "FSZContainer", {900, 45, 240, 240}, "Font Size (Click to Change)"},
    {"FontSizeEdit", "FSZContainer", {900, 15, 270, 300}, "Enter font size"},
    {"FontSizeSlider", "FSZContainer", {1170, 30, 945, 270}},
    {"ZndvDefTB", "CoolBarCM", InBand, "", "Tools"},
    {"CoolBarTB", "Client", {2145, 375, 9375, 390}, "", "TextBoard bar"},
    {"TBOperationsTB", "CoolBarTB", InBand, "", "TextBoard"},
    {"TextEditTB", "CoolBarTB", InBand, "", "Editing"},
    {"FontFormatTB", "CoolBarTB", InBand, "", "Font style"},
    {"TextAlignTB", "CoolBarTB", InBand, "", "Alignment"},
    {"TBPContainer", "CoolBarTB", InBand, "", "TextBoard filled"},
    {"ViewsContainer", "Client", {105, 375, 2010, 3765}, "", "Views"},
    {"TextBoard", "Client", {2145, 735, 9375, 3405}, "", "TextBoard"},
    {"FindFrame", "Client", {2175, 3765, 9345, 345}, "", "Find bar"},
    {"SplitBar", "Client", {105, 4140, 11370, 30}, "Pull FontMap Up/Down"},
    {"FMapContainer", "Client", {90, 4170, 11415, 3690}, "", "FontMap"},
    {"LLVContainer", "Client", {90, 7860, 5775, 315}, "", "Credits"},
    {"SampleText0", "LLVContainer", {60, 60, 5700, 240}},
    {"SampleText1", "LLVContainer", {45, 45, 5700, 240}},
    {"StatBar", "Client", {9600, 7875, 1920, 300}, "", "Lock keys"},
};

/// What the content of a band needs that ends with a control there.
double rightOf(const TwipRect &place)
{
    return place.Left + place.Width;
}

} // namespace

Zendova::Zendova(QString commandTail)
    : TextFiles(u"MRU", 9)
    , MapFiles(u"CFMRU", 5)
    , Form(Rows, "Client", new QWidget(this), SysInfo::current().scale())
    , CommandTail(std::move(commandTail))
{
    setObjectName("Zendova");
    setFont(TwipForm::font());
    // The layout gives the size: there is nothing to maximise.
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    setAcceptDrops(true);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    CreateControls();
    CreateMenus();
    SetFormSize(OuterWidth, OuterHeight);
}

void Zendova::CreateControls()
{
    Client = Form.Control("Client");
    Client->setObjectName("Client");
    setCentralWidget(Client);
    CreateMainBar();
    CreateBoard();

    SplitBar = new ::SplitBar(Form.scale(), Client);
    Form.Adopt(SplitBar, "SplitBar");
    SplitBar->setLimits(
        [this] { return ::SplitBar::Limits{.First = TopmostSplit(), .Last = LowestSplit()}; });

    FMapContainer = new FontMap(Form.scale(), *ViewsContainer->TextZoom, Client);
    Form.Adopt(FMapContainer, "FMapContainer");
    LLVContainer = Form.Make<QWidget>("LLVContainer");
    SampleText[0] =
        Form.MakeLabel("SampleText0", " \u00B7 every character of every font", Qt::AlignLeft);
    SampleText[1] = Form.MakeLabel("SampleText1", SampleText[0]->text(), Qt::AlignLeft);
    StatBar = Form.Make<LockPanels>("StatBar");
    ConnectBoard();
    ConnectPanels();
}

void Zendova::CreateMainBar()
{
    CoolBarCM = Form.Make<BandBar>("CoolBarCM", Form.scale());
    auto *fontName = Form.Make<QWidget>("TBFContainer");
    QLabel *nameLabel = Form.MakeLabel("FontLabel", "Font Name:", Qt::AlignLeft);
    FontNameCombo = Form.Make<FontCombo>("FontNameCombo");
    FontNameCombo->setToolTip("Select a Font");
    nameLabel->setBuddy(FontNameCombo);
    auto *fontSize = Form.Make<QWidget>("FSZContainer");
    QLabel *sizeLabel = Form.MakeLabel("FontSizeLabel", "Font Size:", Qt::AlignLeft);
    FontSizeSlider =
        Form.MakeNumberSlider({"FontSizeSlider", "FontSizeNumber", "FontSizeEdit", "Set Font Size"},
                              8, 36, NumberSlider::NoNumber::Ignored);
    sizeLabel->setBuddy(FontSizeSlider->slider());
    LoadSaveTB = Form.Make<Toolbar>("LoadSaveTB");
    ZndvDefTB = Form.Make<Toolbar>("ZndvDefTB");
    CoolBarCM->addBands({{LoadSaveTB},
                         {fontName, rightOf(Form.rect(FontNameCombo))},
                         {fontSize, rightOf(Form.rect(FontSizeSlider->slider()))},
                         {ZndvDefTB}},
                        MainBandWidths);
}

void Zendova::CreateBoard()
{
    CoolBarTB = Form.Make<BandBar>("CoolBarTB", Form.scale());
    TBOperationsTB = Form.Make<Toolbar>("TBOperationsTB");
    TextEditTB = Form.Make<Toolbar>("TextEditTB");
    FontFormatTB = Form.Make<Toolbar>("FontFormatTB");
    TextAlignTB = Form.Make<Toolbar>("TextAlignTB");
    TBPContainer = new FillBar(Form.scale(), ::TextBoard::MaxLength(), CoolBarTB);
    Form.Adopt(TBPContainer, "TBPContainer");
    CoolBarTB->addBands({{TBOperationsTB},
                         {TextEditTB},
                         {FontFormatTB},
                         {TextAlignTB},
                         {TBPContainer, TBPContainer->leastWidth()}},
                        TBBandWidths);
    CreateToolbars();

    ViewsContainer = new Views(Form.scale(), Client);
    Form.Adopt(ViewsContainer, "ViewsContainer");
    TextBoard = new ::TextBoard(Client, CatalogBoardFont);
    Form.Adopt(TextBoard, "TextBoard");
    FindFrame = new FindBar(Form.scale(), *TextBoard, TextBoardRTF, Client);
    Form.Adopt(FindFrame, "FindFrame");
}

void Zendova::ConnectBoard()
{
    const auto toBoard = [this] { TextBoard->setFocus(); };
    connect(FontNameCombo, &FontCombo::Click, this, &Zendova::FontNameCombo_Click);
    connect(FontNameCombo, &FontCombo::TakenFromList, this, toBoard);
    connect(FontSizeSlider, &NumberSlider::ValueChanged, this, &Zendova::FontSizeSlider_Change);
    connect(FontSizeSlider, &NumberSlider::Scrolled, this, [this](int value) {
        FontSizeSlider->showNumber(QString::number(value));
        TextBoard->setFocus();
    });
    connect(FontSizeSlider, &NumberSlider::Finished, this, toBoard);
    connect(TextBoard, &::TextBoard::Change, this, &Zendova::TextBoard_Change);
    connect(TextBoard, &::TextBoard::KeyUp, this, &Zendova::SyncEditCommands);
    connect(TextBoard, &::TextBoard::SizeTurned, FontSizeSlider,
            [this](int steps) { FontSizeSlider->setValue(FontSizeSlider->value() + steps); });
    connect(TextBoard, &::TextBoard::MouseUp, this, &Zendova::SyncEditCommands);
    connect(TextBoard, &::TextBoard::copyAvailable, this, &Zendova::SyncEditCommands);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &Zendova::Clipboard_Change);
    // The control's own menu would go round the Edit commands and what they keep.
    TextBoard->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(TextBoard, &QWidget::customContextMenuRequested, this, [this](const QPoint &at) {
        menuBar()->findChild<QMenu *>("ItemEdit")->popup(TextBoard->viewport()->mapToGlobal(at));
    });
}

void Zendova::ConnectPanels()
{
    const auto toBoard = [this] { TextBoard->setFocus(); };
    connect(ViewsContainer, &Views::SideWanted, this, &Zendova::PutViews);
    connect(ViewsContainer, &Views::MenuWanted, this, &Zendova::OfferCommand);
    connect(ViewsContainer, &Views::FocusFree, this, toBoard);
    connect(SplitBar, &::SplitBar::Dragged, this, &Zendova::MoveSplit);
    connect(SplitBar, &::SplitBar::Released, this, &Zendova::SplitBar_MouseUp);
    connect(SplitBar, &::SplitBar::DoubleClicked, this, &Zendova::SplitBar_DblClick);
    new BarRing(this, {SplitBar, CoolBarCM, CoolBarTB, FMapContainer->clbFontMap});
    connect(FindFrame, &FindBar::RoomWanted, this, &Zendova::GiveFindRoom);
    connect(FindFrame, &FindBar::Closed, this,
            [this] { TextEditTB->button("Find")->setChecked(false); });
    connect(FMapContainer, &FontMap::CharacterPicked, this,
            &Zendova::FMapContainer_CharacterPicked);
    connect(FMapContainer, &FontMap::CellEntered, this, [this](int cell) {
        ViewsContainer->ShowCharacter(FMapContainer->CharButton->Caption(cell),
                                      FMapContainer->CharInfo.at(static_cast<std::size_t>(cell)));
    });
    connect(FMapContainer, &FontMap::MenuWanted, this,
            [this](const QPoint &at) { FormatFM->popup(at); });
    connect(FMapContainer, &FontMap::ColorsChanged, this, &Zendova::ColorSampleText);
    connect(FMapContainer, &FontMap::Resized, this, &Zendova::FMapContainer_Resized);
    connect(FMapContainer, &FontMap::SizeChanged, this, &Zendova::FMapContainer_SizeChanged);
    connect(FMapContainer, &FontMap::FocusFree, this, toBoard);
    connect(FMapContainer, &FontMap::RecentMapsWanted, this, &Zendova::FillMapMenu);
    connect(FMapContainer->FileCFMLoad, &QAction::triggered, this, &Zendova::FileCFMLoad_Click);
    connect(FMapContainer->FileCFMNew, &QAction::triggered, this, &Zendova::FileCFMNew_Click);
    connect(FMapContainer->FileCFMEdit, &QAction::triggered, this, &Zendova::FileCFMEdit_Click);
    connect(FMapContainer->FileCFMUnld, &QAction::triggered, this, &Zendova::FileCFMUnld_Click);
    connect(FMapContainer->FMRealign, &QAction::triggered, this, &Zendova::FMRealign_Click);
    connect(FMapContainer->FMFColor, &QAction::triggered, this, &Zendova::FMFColor_Click);
    connect(FMapContainer->FMBColor, &QAction::triggered, this, &Zendova::FMBColor_Click);
    connect(&SysInfo::current(), &SysInfo::DisplayChanged, this, &Zendova::SysInfo_DisplayChanged);
}

void Zendova::ColorSampleText()
{
    const CharCells *zoom = ViewsContainer->TextZoom;
    SetColorScheme(zoom->ForeColor(0), zoom->BackColor(0));
    // Two copies of one line, a pixel apart: the lower one is the upper one's shadow.
    const std::array colors = {zoom->BackColor(0), zoom->ForeColor(0)};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        QPalette own = SampleText[i]->palette();
        own.setColor(QPalette::WindowText, ToColor(colors[i], palette()));
        SampleText[i]->setPalette(own);
    }
}
