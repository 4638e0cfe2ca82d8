// The controls of the main window: one row each with its parent and its place in twips, and their
// creation in the order of the rows. What the controls do is connected at the end; the procedures
// stand in the files of their topics.
#include "core/Zendova.h"

#include "core/SettingsDefaults.h"
#include "platform/ClipboardFormats.h"
#include "platform/FontCatalog.h"
#include "platform/SysInfo.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSlider>
#include <algorithm>
#include <span>
#include <utility>

namespace {

struct ControlRow
{
    const char *Name;
    const char *Parent;
    TwipRect Place;          ///< within the parent; of no use for the content of a band
    const char *Tag = "";    ///< tooltip that the ToolTips toggle switches
    const char *Spoken = ""; ///< accessible name of what has neither a text nor a tag
};

constexpr TwipRect InBand;

constexpr ControlRow Controls[] = {
    {"CoolBarCM", "Client", {105, 0, 11415, 390}, "", "Main bar"},
    {"TBFContainer", "CoolBarCM", InBand, "", "Font name"},
    {"FontLabel", "TBFContainer", {45, 45, 960, 240}},
    {"FontNameCombo", "TBFContainer", {1035, 0, 5010, 330}, "", "Select a Font"},
    {"FSZContainer", "CoolBarCM", InBand, "", "Font size"},
    {"FontSizeLabel", "FSZContainer", {45, 15, 840, 240}},
    {"FontSizeNumber", "FSZContainer", {900, 15, 240, 240}, "Font Size (Click to Change)"},
    // A pixel lower than its middle over the number's: above the container it would be cut off.
    {"FontSizeEdit", "FSZContainer", {900, 0, 270, 285}, "Enter font size"},
    {"FontSizeSlider", "FSZContainer", {1170, 0, 945, 270}},
    {"CoolBarTB", "Client", {2145, 375, 9375, 390}, "", "TextBoard bar"},
    {"TBPContainer", "CoolBarTB", InBand, "", "TextBoard filled"},
    {"NoOfChars", "TBPContainer", {45, 60, 600, 240}, "Number of Characters on TextBoard"},
    {"ProgressBack", "TBPContainer", {720, 85, 900, 150}, "Percentage of TextBoard Filled"},
    {"ProgressFore", "TBPContainer", {720, 85, 900, 150}, "", "Filled part"},
    {"PercFilled", "TBPContainer", {1710, 60, 495, 240}, "Percentage of TextBoard Filled"},
    {"ViewsContainer", "Client", {105, 375, 2010, 3765}, "", "Views"},
    {"ZSzContainer", "ViewsContainer", {0, -90, 2010, 2460}, "", "Zoom View"},
    {"ViewsTB", "ZSzContainer", {30, 120, 1920, 330}},
    {"TextZoom", "ZSzContainer", {0, 450, 2010, 2010}, "Zoom View Area"},
    {"CVAContainer", "ViewsContainer", {0, 2310, 2010, 1485}, "", "Code and Keystroke Views"},
    {"ZoomSizeLabel", "CVAContainer", {30, 135, 1005, 240}},
    {"ZoomSizeNumber", "CVAContainer", {1065, 135, 255, 240}, "Zoom Size (Click to Change)"},
    {"ZoomSizeEdit", "CVAContainer", {1050, 105, 300, 285}, "Enter zoom size"},
    // Only so wide, for there the container ends.
    {"ZoomSizeSlider", "CVAContainer", {1335, 135, 675, 270}},
    {"CVACover", "CVAContainer", {0, 420, 2010, 720}, "Code View Area"},
    {"ASCLabel", "CVAContainer", {1080, 480, 450, 180}},
    {"AscCode", "CVAContainer", {1560, 480, 420, 180}},
    {"HexLabel", "CVAContainer", {1080, 675, 450, 180}},
    {"HexCode", "CVAContainer", {1560, 675, 420, 180}},
    {"OctLabel", "CVAContainer", {1080, 870, 450, 180}},
    {"OctCode", "CVAContainer", {1560, 870, 420, 180}},
    {"BinLabel", "CVAContainer", {60, 585, 1005, 180}},
    {"BinCode", "CVAContainer", {60, 765, 1005, 180}},
    {"KVACover", "CVAContainer", {0, 1140, 2010, 315}, "Keystroke View Area"},
    {"KSLabel", "CVAContainer", {30, 1185, 975, 240}},
    {"KS", "CVAContainer", {1065, 1185, 945, 240}},
    {"TextBoard", "Client", {2145, 735, 9375, 3405}, "", "TextBoard"},
    {"FindFrame", "Client", {2175, 3765, 9345, 345}, "", "Find bar"},
    // As wide as some desktops' fonts need it.
    {"FindStrLabel", "FindFrame", {60, 45, 480, 210}},
    {"FindString", "FindFrame", {555, 0, 2730, 345}},
    {"FindNextButton", "FindFrame", {3375, 15, 990, 315}},
    {"ClearFindButton", "FindFrame", {4455, 15, 990, 315}},
    {"FindOpt0", "FindFrame", {5535, 15, 1335, 315}},
    {"FindOpt1", "FindFrame", {6975, 15, 1335, 315}},
    {"CloseFindButton", "FindFrame", {8355, 15, 990, 315}},
    {"SplitBar", "Client", {105, 4140, 11370, 30}, "Pull FontMap Up/Down"},
    {"FMapContainer", "Client", {90, 4170, 11415, 3690}, "", "FontMap"},
    {"CharButton", "FMapContainer", {0, 0, 11415, 3690}, "", "Characters of the FontMap"},
    {"clbFontMap", "FMapContainer", {0, -15, 11415, 390}, "", "FontMap bar"},
    {"pbxSetFMapSize", "clbFontMap", {0, 0, 2505, 360}, "Adjust FontMap Size"},
    {"MapSizeLabel", "pbxSetFMapSize", {30, 60, 855, 240}},
    {"lblSetFMapSizeNumber",
     "pbxSetFMapSize",
     {915, 60, 270, 240},
     "FontMap Size (Click to Change)"},
    {"tbxSetFMapSizeNumber", "pbxSetFMapSize", {915, 45, 270, 285}, "Enter FontMap size"},
    {"sldSetFMapSize", "pbxSetFMapSize", {1215, 45, 1230, 270}},
    {"pbxCFMName", "clbFontMap", {0, 0, 4350, 360}, "Custom Map currently loaded"},
    {"lblCFMName", "pbxCFMName", {0, 60, 4350, 240}, "Currently loaded Custom FontMap file name"},
    {"LLVContainer", "Client", {90, 7860, 5775, 315}, "", "Credits"},
    {"SampleText0", "LLVContainer", {60, 60, 5700, 240}},
    {"SampleText1", "LLVContainer", {45, 45, 5700, 240}},
    {"StatBar", "Client", {9600, 7875, 1920, 300}, "", "Lock keys"},
};

const ControlRow &rowOf(const char *name)
{
    const auto row = std::ranges::find_if(
        Controls, [name](const ControlRow &r) { return qstrcmp(r.Name, name) == 0; });
    Q_ASSERT(row != std::end(Controls));
    return *row;
}

/// Places of the 224 cells at size 1: neighbours share 15 twips, one pixel.
std::vector<TwipRect> designCells()
{
    constexpr double side = 420;
    constexpr double pitch = 405;
    constexpr double firstTop = 375;
    std::vector<TwipRect> places;
    places.reserve(CellCount);
    for (int cell = 0; cell < CellCount; ++cell) {
        const int row = cell / MapColumns;
        places.push_back({.Left = pitch * (cell % MapColumns),
                          .Top = firstTop + pitch * row,
                          .Width = side,
                          .Height = side});
    }
    return places;
}

/// The box's own menu, without the keys that belong to the board's commands in the find bar too.
void OfferBoxMenu(QLineEdit *box, const QPoint &at)
{
    const auto isOfBox = [](const QKeySequence &key) {
        return key.matches(QKeySequence(QKeySequence::Undo)) == QKeySequence::ExactMatch ||
               key.matches(QKeySequence(QKeySequence::Redo)) == QKeySequence::ExactMatch;
    };
    QMenu *menu = box->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *item : menu->actions()) {
        const QString key = item->text().section('\t', 1);
        if (!key.isEmpty() && !isOfBox(QKeySequence(key, QKeySequence::NativeText)))
            item->setText(item->text().section('\t', 0, 0));
    }
    menu->popup(at);
}

void AddBands(BandBar *bar, std::initializer_list<QWidget *> contents,
              std::span<const qint32> widths)
{
    Q_ASSERT(contents.size() == widths.size());
    std::size_t band = 0;
    for (QWidget *content : contents)
        bar->addBand(content, widths[band++]);
}

} // namespace

template<class Widget, class... Arguments>
Widget *Zendova::Make(const char *name, Arguments &&...arguments)
{
    const ControlRow &row = rowOf(name);
    auto *control = new Widget(std::forward<Arguments>(arguments)..., Control(row.Parent));
    Adopt(control, name);
    return control;
}

void Zendova::Adopt(QWidget *control, const char *name)
{
    const ControlRow &row = rowOf(name);
    control->setObjectName(row.Name);
    control->setProperty("Tag", QString::fromLatin1(row.Tag));
    // A label speaks by its text, and its tag tells what the text is.
    const char *spoken = *row.Spoken ? row.Spoken : row.Tag;
    if (qobject_cast<QLabel *>(control) && !*row.Spoken)
        control->setAccessibleDescription(spoken);
    else if (*spoken)
        control->setAccessibleName(spoken);
    ControlsByName.insert(row.Name, control);
    if (row.Place != InBand)
        Form.place(control, row.Place);
}

QWidget *Zendova::Control(const QString &Name) const
{
    QWidget *control = ControlsByName.value(Name);
    Q_ASSERT(control);
    return control;
}

NumberSlider *Zendova::MakeNumberSlider(const NumberSliderNames &names, int least, int most,
                                        bool badTextCountsZero)
{
    auto *slider = new NumberSlider(Control(rowOf(names.Slider).Parent), least, most,
                                    badTextCountsZero ? NumberSlider::NoNumber::CountsZero
                                                      : NumberSlider::NoNumber::Ignored);
    Adopt(slider->slider(), names.Slider);
    Adopt(slider->number(), names.Number);
    Adopt(slider->edit(), names.Edit);
    slider->slider()->setToolTip(names.ToolTip);
    slider->slider()->setAccessibleName(names.ToolTip);
    connect(slider, &NumberSlider::Finished, this, [this] { TextBoard->setFocus(); });
    return slider;
}

QLabel *Zendova::MakeLabel(const char *name, const QString &text, Qt::Alignment alignment)
{
    auto *label = Make<QLabel>(name, text);
    label->setAlignment(alignment | Qt::AlignVCenter);
    return label;
}

void Zendova::CreateControls()
{
    Client = new QWidget(this);
    Client->setObjectName("Client");
    ControlsByName.insert("Client", Client);
    setCentralWidget(Client);
    CreateToolbars();

    const TwipScale scale = Form.scale();
    CoolBarCM = Make<BandBar>("CoolBarCM", scale);
    TBFContainer = Make<QWidget>("TBFContainer");
    FontLabel = MakeLabel("FontLabel", "Font Name:", Qt::AlignLeft);
    FontNameCombo = Make<FontCombo>("FontNameCombo");
    FontNameCombo->setToolTip("Select a Font");
    FSZContainer = Make<QWidget>("FSZContainer");
    FontSizeLabel = MakeLabel("FontSizeLabel", "Font Size:", Qt::AlignLeft);
    FontSizeSlider = MakeNumberSlider(
        {"FontSizeSlider", "FontSizeNumber", "FontSizeEdit", "Set Font Size"}, 8, 36, false);
    FontLabel->setBuddy(FontNameCombo);
    FontSizeLabel->setBuddy(FontSizeSlider->slider());
    AddBands(CoolBarCM, {LoadSaveTB, TBFContainer, FSZContainer, ZndvDefTB}, MainBandWidths);

    CoolBarTB = Make<BandBar>("CoolBarTB", scale);
    TBPContainer = Make<QWidget>("TBPContainer");
    NoOfChars = MakeLabel("NoOfChars", "0", Qt::AlignRight);
    ProgressBack = Make<QFrame>("ProgressBack");
    ProgressBack->setFrameStyle(QFrame::Box | QFrame::Plain);
    ProgressFore = MakeLabel("ProgressFore", {}, Qt::AlignLeft);
    ProgressFore->setAutoFillBackground(true);
    ProgressFore->setAttribute(Qt::WA_TransparentForMouseEvents);
    ProgressFore->hide();
    PercFilled = MakeLabel("PercFilled", "0%", Qt::AlignLeft);
    AddBands(CoolBarTB, {TBOperationsTB, TextEditTB, FontFormatTB, TextAlignTB, TBPContainer},
             TBBandWidths);

    CreateViews();

    TextBoard = new ::TextBoard(Client, [](const QString &name) {
        FontCatalog &catalog = FontCatalog::current();
        return BoardFont{.font = catalog.font(name),
                         .builtInBold = catalog.builtInBold(name),
                         .builtInItalic = catalog.builtInItalic(name)};
    });
    Adopt(TextBoard, "TextBoard");
    CreateFindBar();

    auto *split = Make<QFrame>("SplitBar");
    split->setFrameStyle(QFrame::HLine | QFrame::Raised);
    split->setCursor(Qt::SplitVCursor);
    split->installEventFilter(this);
    setAccessibleRole(split, QAccessible::Grip);
    SplitBar = split;

    CreateMap();

    LLVContainer = Make<QWidget>("LLVContainer");
    SampleText[0] =
        MakeLabel("SampleText0", " \u00B7 every character of every font", Qt::AlignLeft);
    SampleText[1] = MakeLabel("SampleText1", SampleText[0]->text(), Qt::AlignLeft);
    StatBar = Make<QWidget>("StatBar");
    CreateLockPanels();
    CreateSplitGrip();
    ConnectControls();
}

void Zendova::CreateFindBar()
{
    FindFrame = Make<QWidget>("FindFrame");
    FindFrame->hide();
    QLabel *label = MakeLabel("FindStrLabel", "Find:", Qt::AlignLeft);
    FindString = Make<FindBox>("FindString");
    FindString->setToolTip("Enter a serch string");
    FindString->setAccessibleName("Find");
    label->setBuddy(FindString);
    const auto makeButton = [this](const char *name, const char *caption, const char *toolTip) {
        auto *button = Make<QPushButton>(name, caption);
        button->setToolTip(toolTip);
        button->setAutoDefault(true); // takes Enter while it has the focus
        return button;
    };
    FindNextButton = makeButton("FindNextButton", "Find Next", "Find the next occurance");
    ClearFindButton = makeButton("ClearFindButton", "Clear", "Clear search field");
    ClearFindButton->setFocusPolicy(Qt::NoFocus);
    CloseFindButton = makeButton("CloseFindButton", "Close", "Close Find bar");
    FindOpt[0] = Make<QCheckBox>("FindOpt0", "Whole Word");
    FindOpt[0]->setToolTip("Check to search as whole word");
    FindOpt[1] = Make<QCheckBox>("FindOpt1", "Match Case");
    FindOpt[1]->setToolTip("Check for a case-sensitive search");
    FindString_Change();
}

void Zendova::CreateViews()
{
    ViewsContainer = Make<QWidget>("ViewsContainer");
    ViewsContainer->installEventFilter(this);
    ZSzContainer = Make<QWidget>("ZSzContainer");
    ViewsTB->setParent(ZSzContainer);
    ViewsTB->setContextMenuPolicy(Qt::PreventContextMenu); // a press on it is for no view
    Adopt(ViewsTB, "ViewsTB");
    TextZoom = new CharCells(1, ZSzContainer);
    Adopt(TextZoom, "TextZoom");
    TextZoom->setScale(Form.scale());
    TextZoom->setPlaces({{0, 0, 2010, 2010}});
    CVAContainer = Make<QWidget>("CVAContainer");
    QLabel *sizeLabel = MakeLabel("ZoomSizeLabel", "Zoom Size:", Qt::AlignLeft);
    ZoomSizeSlider = MakeNumberSlider(
        {"ZoomSizeSlider", "ZoomSizeNumber", "ZoomSizeEdit", "Set Zoom Size"}, 8, 72, true);
    sizeLabel->setBuddy(ZoomSizeSlider->slider());
    ZoomSizeSlider->slider()->setPageStep(5);
    for (const char *cover : {"CVACover", "KVACover"})
        Make<QFrame>(cover)->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    // The mouse over a text is over its cover, whose tooltip tells what it is.
    const auto makeText = [this](const char *name, const QString &text, Qt::Alignment alignment) {
        QLabel *label = MakeLabel(name, text, alignment);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        return label;
    };
    makeText("ASCLabel", "Dec:", Qt::AlignLeft);
    AscCode = makeText("AscCode", {}, Qt::AlignLeft);
    makeText("HexLabel", "Hex:", Qt::AlignLeft);
    HexCode = makeText("HexCode", {}, Qt::AlignLeft);
    makeText("OctLabel", "Oct:", Qt::AlignLeft);
    OctCode = makeText("OctCode", {}, Qt::AlignLeft);
    makeText("BinLabel", "Bin", Qt::AlignHCenter);
    BinCode = makeText("BinCode", {}, Qt::AlignHCenter);
    makeText("KSLabel", "Keystroke:", Qt::AlignLeft);
    KS = makeText("KS", {}, Qt::AlignLeft);
    KS->setTextFormat(Qt::PlainText);
}

void Zendova::CreateMap()
{
    FMapContainer = Make<QWidget>("FMapContainer");
    CharButton = new CharCells(CellCount, FMapContainer);
    Adopt(CharButton, "CharButton");
    CharButton->setScale(Form.scale());
    CharButton->setPlaces(designCells());
    CharButton->setReading(MapColumns, [this](int cell) { return SpokenCell(cell); });
    clbFontMap = Make<BandBar>("clbFontMap", Form.scale());
    pbxSetFMapSize = Make<QWidget>("pbxSetFMapSize");
    QLabel *sizeLabel = MakeLabel("MapSizeLabel", "Map Size:", Qt::AlignLeft);
    sldSetFMapSize = MakeNumberSlider(
        {"sldSetFMapSize", "lblSetFMapSizeNumber", "tbxSetFMapSizeNumber", "Set FontMap Size"}, 1,
        32, true);
    sizeLabel->setBuddy(sldSetFMapSize->slider());
    // The window follows the size, so it must not run away from under the thumb.
    sldSetFMapSize->slider()->setTracking(false);
    sldSetFMapSize->showNumber("0");
    pbxCFMName = Make<QWidget>("pbxCFMName");
    lblCFMName = MakeLabel("lblCFMName", {}, Qt::AlignLeft);
    lblCFMName->setTextFormat(Qt::PlainText);
    SizeMapContainers();
    FillMapToolbars();
    AddBands(clbFontMap, {tlbCustFMap, tlbCFMapFmt, tlbCFMapName}, FMBandWidths);
}

void Zendova::ConnectControls()
{
    connect(FontNameCombo, &FontCombo::Click, this, &Zendova::FontNameCombo_Click);
    connect(FontNameCombo, &FontCombo::CharacterKey, this, &Zendova::FontNameCombo_KeyPress);
    connect(FontSizeSlider, &NumberSlider::ValueChanged, this, &Zendova::FontSizeSlider_Change);
    connect(FontSizeSlider, &NumberSlider::Scrolled, this, [this](int value) {
        FontSizeSlider->showNumber(QString::number(value));
        TextBoard->setFocus();
    });
    connect(ZoomSizeSlider, &NumberSlider::ValueChanged, this, &Zendova::SetZoomSize);
    connect(ZoomSizeSlider, &NumberSlider::Scrolled, this, [this] { TextBoard->setFocus(); });
    connect(sldSetFMapSize, &NumberSlider::Scrolled, this,
            [this](int value) { sldSetFMapSize->showNumber(QString::number(value)); });
    connect(sldSetFMapSize, &NumberSlider::ValueChanged, this, &Zendova::sldSetFMapSize_Change);
    connect(CharButton, &CharCells::MouseDown, this, &Zendova::CharButton_MouseDown);
    connect(CharButton, &CharCells::MouseMove, this, &Zendova::CharButton_MouseMove);
    connect(TextBoard, &::TextBoard::Change, this, &Zendova::TextBoard_Change);
    connect(TextBoard, &::TextBoard::KeyUp, this, &Zendova::SyncEditCommands);
    connect(TextBoard, &::TextBoard::MouseUp, this, &Zendova::SyncEditCommands);
    connect(TextBoard, &::TextBoard::copyAvailable, this, &Zendova::SyncEditCommands);
    ClipboardHasText = ClipboardFormats::hasText();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &Zendova::Clipboard_Change);
    // The control's own menu would go round the Edit commands and what they keep.
    TextBoard->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(TextBoard, &QWidget::customContextMenuRequested, this, [this](const QPoint &at) {
        menuBar()->findChild<QMenu *>("ItemEdit")->popup(TextBoard->viewport()->mapToGlobal(at));
    });
    FindString->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(FindString, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &at) { OfferBoxMenu(FindString, FindString->mapToGlobal(at)); });
    connect(FindString, &FindBox::textChanged, this, &Zendova::FindString_Change);
    connect(FindString, &FindBox::returnPressed, FindNextButton, &QPushButton::click);
    connect(FindNextButton, &QPushButton::clicked, this, &Zendova::FindNextButton_Click);
    connect(ClearFindButton, &QPushButton::clicked, this, &Zendova::ClearFindButton_Click);
    connect(CloseFindButton, &QPushButton::clicked, this, &Zendova::CloseFindButton_Click);
    for (QCheckBox *option : FindOpt) {
        auto *enter = new QShortcut(option);
        enter->setKeys({Qt::Key_Return, Qt::Key_Enter});
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, FindNextButton, &QPushButton::click);
    }
    auto *escape = new QShortcut(Qt::Key_Escape, FindFrame);
    BoardEscape = new QShortcut(Qt::Key_Escape, TextBoard);
    BoardEscape->setEnabled(false);
    for (QShortcut *shortcut : {escape, BoardEscape}) {
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, &Zendova::CloseFindButton_Click);
    }
    connect(&SysInfo::current(), &SysInfo::DisplayChanged, this, &Zendova::SysInfo_DisplayChanged);
}
