// The controls of the window: six pages between the font at the top and the strip of the map at the
// bottom. The rows stand in the order in which the keyboard visits their controls; those of pages
// that are not shown it passes over.
#include "defaults/Options.h"

#include "platform/controls/CaptionFrame.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/CodePageValidator.h"
#include "platform/controls/DevicePixels.h"
#include "platform/controls/ElidedLabel.h"
#include "textboard/TextBoard.h"

#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QToolButton>
#include <QToolTip>

namespace {

constexpr double Width = 6060; // twips
constexpr double Height = 6150;

// The pages are placed by the tabs. The line of a frame is half a caption below its top.
constexpr ControlRow Rows[] = {
    {"Frame6", "Options", {15, -45, 4800, 840}, "", "Font"},
    {"Label9", "Frame6", {120, 330, 480, 240}},
    {"OCurrentFont", "Frame6", {630, 330, 2910, 240}, "Current font"},
    {"ChgFont", "Frame6", {3585, 285, 1095, 330}, "Change font"},
    {"Frame13", "Options", {4785, -45, 1260, 840}, "", "Size"},
    {"Label2", "Frame13", {120, 195, 480, 240}},
    {"OFontSizeNumber", "Frame13", {720, 195, 390, 240}, "Font size (click to change)"},
    {"OFontSizeEdit", "Frame13", {705, 165, 420, 285}, "Enter font size"},
    {"OFontSizeSlider", "Frame13", {105, 465, 1050, 270}, "Set font size"},

    {"TabBack", "Options", {15, 825, 6030, 3660}},
    {"SSTabOption", "TabBack", {30, 30, 5970, 3600}, "", "Kinds of options"},

    {"TextBoardPage", "SSTabOption", InBand},
    {"TestFont", "TextBoardPage", {0, 0, 300, 300}},
    {"Frame1", "TextBoardPage", {75, 45, 1875, 1080}},
    {"OFFontBold", "Frame1", {150, 255, 1620, 240}, "Set font Bold style on/off"},
    {"OFFontItalic", "Frame1", {150, 510, 1620, 240}, "Set font Italic style on/off"},
    {"Frame2", "TextBoardPage", {2010, 45, 1890, 1080}},
    {"OFFontUnderline", "Frame2", {150, 255, 1620, 240}, "Set font Underline effect on/off"},
    {"OFFontStrikethrough",
     "Frame2",
     {150, 510, 1620, 240},
     "Set font Strikethrough effect on/off"},
    {"Frame3", "TextBoardPage", {3960, 45, 1875, 1080}},
    {"OAlign0", "Frame3", {150, 255, 1620, 240}, "Select to left align text"},
    {"OAlign1", "Frame3", {150, 510, 1620, 240}, "Select to center text"},
    {"OAlign2", "Frame3", {150, 765, 1620, 240}, "Select to right align text"},
    {"Frame5", "TextBoardPage", {75, 1155, 5760, 645}},
    {"OTBFColor", "Frame5", {150, 285, 390, 240}, "Text color sample", "Text color sample"},
    {"OTBFColorName", "Frame5", {630, 285, 3360, 240}, "Text color name"},
    {"ChgTBFColor", "Frame5", {4515, 240, 1095, 330}, "Change text color"},
    {"OOptMaxTB",
     "TextBoardPage",
     {225, 1875, 5550, 240},
     "Check to drop Views Area below if window width increases"},
    {"Label1", "TextBoardPage", {75, 2190, 720, 240}},
    {"OTBSample", "TextBoardPage", {810, 2190, 5025, 915}, "TextBoard sample"},

    {"FontMapPage", "SSTabOption", InBand},
    {"Frame4", "FontMapPage", {75, 45, 5760, 1095}},
    {"LabelFore", "Frame4", {150, 285, 1080, 240}},
    {"OFMFPalName", "Frame4", {1275, 285, 690, 240}, "FontMap font color palette"},
    {"OFMFColorName", "Frame4", {1995, 285, 1860, 240}, "FontMap font color name"},
    {"OFMapFColor",
     "Frame4",
     {3960, 285, 390, 240},
     "FontMap font color sample",
     "FontMap font color sample"},
    {"ChgFMFColor", "Frame4", {4515, 240, 1095, 330}, "Change FontMap font color"},
    {"LabelBack", "Frame4", {150, 690, 1080, 240}},
    {"OFMBPalName", "Frame4", {1275, 690, 690, 240}, "FontMap background color palette"},
    {"OFMBColorName", "Frame4", {1995, 690, 1860, 240}, "FontMap background color name"},
    {"OFMapBColor",
     "Frame4",
     {3960, 690, 390, 240},
     "FontMap background color sample",
     "FontMap background color sample"},
    {"ChgFMBColor", "Frame4", {4515, 645, 1095, 330}, "Change FontMap background color"},
    {"OFMapBorders", "FontMapPage", {225, 1245, 2550, 240}, "Check to show FontMap grid"},
    {"OFMapHilite",
     "FontMapPage",
     {2925, 1245, 2850, 240},
     "Check to show FontMap mouse hightlight"},
    {"Frame17", "FontMapPage", {75, 1530, 5760, 1020}, "", "Startup Custom FontMap"},
    {"ochkInitMap", "Frame17", {150, 240, 5400, 240}, "Check to select a startup custom FontMap"},
    {"olblInitMap", "Frame17", {420, 585, 3870, 240}},
    {"ocmdInitMap", "Frame17", {4515, 540, 1095, 330}, "Select a custom FontMap"},

    {"ViewsPage", "SSTabOption", InBand},
    {"Frame7", "ViewsPage", {75, 45, 2700, 1080}},
    {"OViewZoom", "Frame7", {150, 255, 2400, 240}, "Check to show Zoom View"},
    {"OViewCode", "Frame7", {150, 510, 2400, 240}, "Check to show Code View"},
    {"OViewKS", "Frame7", {150, 765, 2400, 240}, "Check to show Keystroke View"},
    {"Frame9", "ViewsPage", {75, 1155, 2700, 825}},
    {"OVCOnL", "Frame9", {150, 255, 2400, 240}, "Select to position Views Area on left side"},
    {"OVCOnR", "Frame9", {150, 510, 2400, 240}, "Select to position Views Area on right side"},
    {"Frame8", "ViewsPage", {2850, 45, 2985, 3060}},
    {"OZoomSizeNumber", "Frame8", {150, 285, 390, 240}, "Zoom size (click to change)"},
    {"OZoomSizeEdit", "Frame8", {135, 255, 420, 285}, "Enter zoom size"},
    {"OZoomSizeSlider", "Frame8", {600, 270, 2235, 270}, "Set zoom size"},
    {"OTextZoom", "Frame8", {480, 780, 2010, 2010}, "Zoom View Area"},
    {"Label11", "ViewsPage", {75, 2100, 2700, 990}},

    {"DialogsPage", "SSTabOption", InBand},
    {"Frame10", "DialogsPage", {75, 45, 5760, 1170}},
    {"ODisplayCD", "Frame10", {150, 285, 5400, 240}, "Check to display this confirmation"},
    {"ODisplayEW", "Frame10", {150, 555, 5400, 240}, "Check to display this warning"},
    {"ODisplayOW", "Frame10", {150, 825, 5400, 240}, "Check to display this warning"},
    {"ODisplayCS",
     "DialogsPage",
     {225, 1305, 5400, 240},
     "Check to use FontMap colors for all dialogs"},

    {"ToolsPage", "SSTabOption", InBand},
    {"Frame14", "ToolsPage", {75, 45, 5760, 780}},
    {"oSampleText", "Frame14", {150, 315, 5400, 300}, "Sample text to display (45 chars)"},
    {"Frame19", "ToolsPage", {75, 900, 5760, 900}},
    {"ooptShiftDir0", "Frame19", {150, 285, 5400, 240}, "Select to move highlight horizontally"},
    {"ooptShiftDir1", "Frame19", {150, 555, 5400, 240}, "Select to move highlight vertically"},

    {"GeneralPage", "SSTabOption", InBand},
    {"Frame11", "GeneralPage", {75, 45, 5760, 900}},
    {"OOptLoadTD1",
     "Frame11",
     {150, 285, 5400, 240},
     "Select to load .TXT files with default settings"},
    {"OOptLoadTD2",
     "Frame11",
     {150, 555, 5400, 240},
     "Select to load .TXT files with current settings"},
    {"Frame12", "GeneralPage", {75, 1020, 5760, 900}},
    {"OOptUnloadTD1",
     "Frame12",
     {150, 285, 5400, 240},
     "Select to restore default settings after TextBoard unload"},
    {"OOptUnloadTD2",
     "Frame12",
     {150, 555, 5400, 240},
     "Select to keep current settings after TextBoard unload"},
    {"ODisplayTT", "GeneralPage", {225, 2010, 5400, 240}, "Check to show tooltips"},

    {"Frame16", "Options", {60, 4425, 5955, 1290}, "", "FontMap Sample"},
    {"Label10", "Frame16", {330, 210, 2205, 240}},
    {"Label7", "Frame16", {2595, 210, 420, 240}},
    {"OCharButtonStart", "Frame16", {3015, 210, 345, 240}, "First code of the sample"},
    {"Label6", "Frame16", {3375, 210, 90, 240}},
    {"OCharButtonEnd", "Frame16", {3480, 210, 345, 240}, "Last code of the sample"},
    {"OCharButtonScroll", "Frame16", {4455, 255, 1155, 180}, "Scroll FontMap sample"},
    {"OCharButton", "Frame16", {330, 495, 5280, 420}, "FontMap sample"},
    {"CharButtonBox", "OCharButton", {30, 30, 360, 360}, "Selected zoom character"},
    {"Label4", "Frame16", {330, 960, 5280, 240}},
    {"cmdOK", "Options", {3360, 5760, 1290, 330}},
    {"cmdCancel", "Options", {4710, 5760, 1290, 330}},
};

struct CaptionRow
{
    const char *Name;
    const char *Caption;
};

constexpr CaptionRow Pages[] = {{"TextBoardPage", "TextBoard"}, {"FontMapPage", "FontMap"},
                                {"ViewsPage", "Views"},         {"DialogsPage", "Dialogs"},
                                {"ToolsPage", "Tools"},         {"GeneralPage", "General"}};

constexpr CaptionRow Frames[] = {
    {"Frame1", "Text Styles:"},
    {"Frame2", "Text Effects:"},
    {"Frame3", "Text Alignment:"},
    {"Frame5", "Text Color:"},
    {"Frame4", "Colors:"},
    {"Frame17", ""},
    {"Frame7", "Show:"},
    {"Frame9", "Position Views:"},
    {"Frame8", "Zoom Size:"},
    {"Frame10", "Display:"},
    {"Frame14", "FontBrowser Sample Text:"},
    {"Frame19", "Custom FontMap Editor - Highlight Movement:"},
    {"Frame11", "Load .TXT Files:"},
    {"Frame12", "After TextBoard Unload:"},
};

/// A mark that shows on cells of any colours, and lets the mouse through to them.
class CellMark : public QWidget
{
public:
    explicit CellMark(QWidget *parent) : QWidget(parent) { setMouseTracking(true); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const DevicePixels device(painter.deviceTransform());
        const double line = device.line();
        QRectF box = device.between(rect());
        for (const Qt::GlobalColor color : {Qt::black, Qt::white}) {
            QPainterPath ring;
            ring.addRect(box);
            box.adjust(line, line, -line, -line);
            ring.addRect(box);
            painter.fillPath(ring, color);
        }
    }
};

} // namespace

Options::Options(QAbstractItemModel *fonts, FMColorPalette &palette, QWidget *parent)
    : FormDialog("Options", Rows, Width, Height, parent), Fonts(fonts), Palette(palette)
{
    setWindowTitle("Default Options");
    createControls();
    connectControls();
    ReadOptions();
    setTabOrders();
    ChgFont->setFocus();
}

void Options::createControls()
{
    createFontControls();
    Form.Make<QWidget>("TabBack");
    SSTabOption = Form.Make<QTabWidget>("SSTabOption");
    SSTabOption->setUsesScrollButtons(true); // where the font is wide; the keys need none of them
    for (auto *scroll : SSTabOption->tabBar()->findChildren<QToolButton *>())
        scroll->setFocusPolicy(Qt::NoFocus);
    for (const auto &[name, caption] : Pages)
        SSTabOption->addTab(Form.Make<QWidget>(name), caption);
    for (const auto &[name, caption] : Frames)
        Form.Make<CaptionFrame>(name, caption);
    createBoxes();
    createTextBoardPage();
    createFontMapPage();
    createViewsPage();
    createToolsPage();
    createStrip();
    cmdOK = makeButton("cmdOK", "Set", &Options::cmdOK_Click);
    cmdOK->setDefault(true);
    makeButton("cmdCancel", "Cancel", &Options::reject);
}

void Options::createFontControls()
{
    Form.Make<CaptionFrame>("Frame6");
    Form.MakeLabel("Label9", "Font:", Qt::AlignLeft);
    OCurrentFont = Form.Make<ElidedLabel>("OCurrentFont");
    ChgFont = makeButton("ChgFont", "Change...", &Options::ChgFont_Click);
    // The two frames share an edge, which is this one's.
    Form.Make<CaptionFrame>("Frame13")->setAutoFillBackground(true);
    QLabel *size = Form.MakeLabel("Label2", "Size:", Qt::AlignLeft);
    OFontSizeSlider =
        makeSlider({"OFontSizeSlider", "OFontSizeNumber", "OFontSizeEdit", "Set font size"},
                   OptionLimits::MostFontSize, &OptionValues::FontSize);
    size->setBuddy(OFontSizeSlider->slider());
}

void Options::createTextBoardPage()
{
    const auto makeBoard = [this](const char *name) {
        auto *board = new TextBoard(Form.Control("TextBoardPage"), &CatalogBoardFont);
        board->setFocusPolicy(Qt::NoFocus);
        Form.Adopt(board, name);
        return board;
    };
    TestFont = makeBoard("TestFont");
    TestFont->hide();
    OTBFColor = makeSwatch("OTBFColor");
    OTBFColorName = Form.Make<ElidedLabel>("OTBFColorName");
    makeButton("ChgTBFColor", "Change...", &Options::ChgTBFColor_Click);
    Form.MakeLabel("Label1", "Sample:", Qt::AlignLeft);
    OTBSample = makeBoard("OTBSample");
    OTBSample->setText("AaBbYyZz");
    OTBSample->document()->setDocumentMargin(2); // the largest letters need the room
    OTBSample->setReadOnly(true);
    OTBSample->setTextInteractionFlags(Qt::NoTextInteraction);
    OTBSample->viewport()->setCursor(Qt::ArrowCursor);
    OTBSample->setContextMenuPolicy(Qt::NoContextMenu);
    OTBSample->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void Options::createFontMapPage()
{
    Form.MakeLabel("LabelFore", "Font:", Qt::AlignLeft);
    OFMFPalName = Form.MakeLabel("OFMFPalName", {}, Qt::AlignLeft);
    OFMFColorName = Form.Make<ElidedLabel>("OFMFColorName");
    OFMapFColor = makeSwatch("OFMapFColor");
    makeButton("ChgFMFColor", "Change...", &Options::ChgFMFColor_Click);
    Form.MakeLabel("LabelBack", "Background:", Qt::AlignLeft);
    OFMBPalName = Form.MakeLabel("OFMBPalName", {}, Qt::AlignLeft);
    OFMBColorName = Form.Make<ElidedLabel>("OFMBColorName");
    OFMapBColor = makeSwatch("OFMapBColor");
    makeButton("ChgFMBColor", "Change...", &Options::ChgFMBColor_Click);
    olblInitMap = Form.Make<ElidedLabel>("olblInitMap");
    ocmdInitMap = makeButton("ocmdInitMap", "Select...", &Options::ocmdInitMap_Click);
}

void Options::createViewsPage()
{
    OZoomSizeSlider =
        makeSlider({"OZoomSizeSlider", "OZoomSizeNumber", "OZoomSizeEdit", "Set zoom size"},
                   OptionLimits::MostZoomSize, &OptionValues::ZoomSize);
    OTextZoom = new CharCells(1, Form.Control("Frame8"));
    Form.Adopt(OTextZoom, "OTextZoom");
    OTextZoom->setScale(Form.scale());
    OTextZoom->setPlaces({{0, 0, 2010, 2010}});
    QLabel *hint = Form.MakeLabel(
        "Label11", "Click on any letter below for it to be displayed here", Qt::AlignLeft);
    hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    hint->setWordWrap(true);
}

void Options::createToolsPage()
{
    oSampleText = Form.Make<QLineEdit>("oSampleText");
    oSampleText->setMaxLength(OptionLimits::LongestSampleText);
    oSampleText->setValidator(new CodePageValidator(oSampleText));
}

void Options::createStrip()
{
    Form.Make<CaptionFrame>("Frame16");
    Form.MakeLabel("Label10", "FontMap Sample (size 1):", Qt::AlignLeft);
    Form.MakeLabel("Label7", "Dec:", Qt::AlignRight);
    OCharButtonStart = Form.MakeLabel("OCharButtonStart", {}, Qt::AlignRight);
    Form.MakeLabel("Label6", "-", Qt::AlignHCenter);
    OCharButtonEnd = Form.MakeLabel("OCharButtonEnd", {}, Qt::AlignLeft);
    OCharButtonScroll = Form.Make<QScrollBar>("OCharButtonScroll", Qt::Horizontal);
    OCharButtonScroll->setRange(OptionLimits::FirstStripCode, OptionLimits::LastStripCode);
    OCharButtonScroll->setPageStep(79);
    OCharButtonScroll->setFocusPolicy(Qt::StrongFocus);

    OCharButton = new CharCells(OptionLimits::StripCells, Form.Control("Frame16"));
    Form.Adopt(OCharButton, "OCharButton");
    OCharButton->setScale(Form.scale());
    std::vector<TwipRect> places;
    for (int cell = 0; cell < OCharButton->count(); ++cell)
        places.push_back({405.0 * cell, 0, 420, 420}); // neighbours share a line
    OCharButton->setPlaces(places);
    OCharButton->setReading(OCharButton->count(), [this](int cell) {
        return QString("%1, %2").arg(Values.OFMapStart + cell).arg(OCharButton->Caption(cell));
    });
    CharButtonBox = Form.Make<CellMark>("CharButtonBox");
    Form.MakeLabel("Label4", "Click on any letter to zoom it (in \"Views\" tab)", Qt::AlignLeft);
}

QLabel *Options::makeSwatch(const char *name)
{
    auto *swatch = Form.Make<QLabel>(name);
    swatch->setAutoFillBackground(true);
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    return swatch;
}

QPushButton *Options::makeButton(const char *name, const char *caption, void (Options::*click)())
{
    auto *made = Form.Make<QPushButton>(name, caption);
    connect(made, &QPushButton::clicked, this, click);
    return made;
}

NumberSlider *Options::makeSlider(const ControlTable::NumberSliderNames &names, int most,
                                  int OptionValues::*value)
{
    NumberSlider *made = Form.MakeNumberSlider(names, OptionLimits::LeastSize, most,
                                               NumberSlider::NoNumber::CountsZero);
    connect(made, &NumberSlider::ValueChanged, this, [this, value](int size) {
        Values.*value = size;
        showSamples();
    });
    connect(made, &NumberSlider::Scrolled, this, [made](int size) {
        QToolTip::showText(QCursor::pos(), QString::number(size), made->slider());
    });
    connect(made, &NumberSlider::Finished, made->slider(), qOverload<>(&QWidget::setFocus));
    return made;
}

void Options::connectControls()
{
    connect(oSampleText, &QLineEdit::textChanged, this,
            [this](const QString &text) { Values.SampleText = text; });
    connect(OCharButtonScroll, &QScrollBar::valueChanged, this, &Options::OCharButtonScroll_Change);
    connect(OCharButton, &CharCells::MouseDown, this, [this](int cell, Qt::MouseButton pressed) {
        if (pressed == Qt::LeftButton)
            OCharButton_Click(cell);
    });
    connect(OCharButton, &CharCells::MouseMove, this, &Options::OCharButton_MouseMove);
    oSampleText->installEventFilter(this);
    OCharButtonScroll->installEventFilter(this);
}

void Options::setTabOrders()
{
    QWidget *last = ChgFont;
    for (const ControlRow &row : Rows) {
        QWidget *control = Form.Control(row.Name);
        if (control->focusPolicy() == Qt::NoFocus || control == SSTabOption)
            continue;
        setTabOrder(last, control);
        last = control;
    }
    setTabOrder(last, SSTabOption->tabBar());
}
