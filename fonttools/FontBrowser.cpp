// The controls of the font browser, what a font chosen in the list shows, and the ways out.
#include "fonttools/FontBrowser.h"

#include "core/GlobalDeclarations.h"
#include "core/RegistryFunctions.h"
#include "core/SettingsDefaults.h"
#include "fonttools/FillFontCombo.h"
#include "fonttools/FontLoadProcedure.h"
#include "fonttools/FormResizeFunctions.h"
#include "fonttools/SamplePlate.h"
#include "fonttools/TakeFont.h"
#include "platform/SysInfo.h"
#include "platform/controls/CaptionFrame.h"
#include "platform/controls/DesktopKeys.h"
#include "platform/controls/SplitBar.h"

#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>

namespace {

constexpr double Width = 12765; // twips
constexpr double Height = 9480;

constexpr ControlRow Rows[] = {
    {"Label2", "FontBrowser", {195, 180, 3195, 225}},
    {"FontListView", "FontBrowser", {165, 480, 3480, 7395}, "", "Fonts"},
    {"SummaryFrame", "FontBrowser", {180, 8025, 3480, 975}},
    {"Label1", "SummaryFrame", {240, 225, 1980, 210}},
    {"TotalFonts", "SummaryFrame", {2220, 225, 720, 210}, "No. of installed fonts"},
    {"Label7", "SummaryFrame", {240, 435, 2205, 210}},
    {"SysFonts", "SummaryFrame", {2445, 435, 720, 210}, "No. of System fonts"},
    {"Label5", "SummaryFrame", {240, 645, 2370, 210}},
    {"TTFonts", "SummaryFrame", {2610, 645, 720, 210}, "No. of Truetype fonts"},
    {"SplitBar", "FontBrowser", {3645, 1215, 60, 6660}, "", "Width of the list"},
    {"FontNameLabel", "FontBrowser", {3810, 345, 90, 270}},
    {"SPlateHolder", "FontBrowser", {3705, 1185, 8880, 7815}, "", "Sample sheet, scrolls by keys"},
    {"SPlateView", "SPlateHolder", {30, 30, 8820, 7755}, "", "Visible part of the sheet"},
    {"SamplePlate", "SPlateView", {0, 0, 6030, 4215}},
    {"SHScroll", "SPlateView", {0, 7485, 8535, 270}, "", "Scroll left and right"},
    {"SVScroll", "SPlateView", {8550, 0, 270, 7500}, "", "Scroll up and down"},
    {"SHoleBlock", "SPlateView", {8550, 7515, 270, 270}, "", "Corner"},
    {"SetFontButton", "FontBrowser", {8115, 9075, 3135, 330}, "Set this as Current Font and Exit"},
    {"OkButton", "FontBrowser", {11310, 9075, 1290, 330}, "Ok"},
};

/// One font is always selected: a click with Ctrl held does not take that back.
class SingleChoice : public QListView
{
public:
    using QListView::QListView;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override
    {
        const auto command = QListView::selectionCommand(index, event);
        return command & (QItemSelectionModel::Toggle | QItemSelectionModel::Deselect)
                   ? QItemSelectionModel::ClearAndSelect
                   : command;
    }
};

} // namespace

FontBrowser::FontBrowser(const FontList &fonts, QString &shown, QWidget *parent)
    : FormDialog("FontBrowser", Rows, Width, Height, parent), Fonts(fonts), SelFont(shown)
{
    setWindowTitle("Zendova Font Browser");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    createControls();
    // Unlike the dialogs of a fixed size, it gives way on a small screen.
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    HoldTrackSize(*this);
    const SysInfo &screen = SysInfo::current();
    const QSize room(Form.scale().across(screen.WorkAreaWidth()),
                     Form.scale().down(screen.WorkAreaHeight()));
    resize(size().boundedTo(room - SizableFrame));
}

void FontBrowser::createControls()
{
    QLabel *label = Form.MakeLabel("Label2", "Select a font from the list below:", Qt::AlignLeft);
    FontListView = Form.Make<SingleChoice>("FontListView");
    label->setBuddy(FontListView);
    FontListView->setToolTip("Select a Font");
    FontListView->setFont(TwipForm::desktopFont("QAbstractItemView"));
    FontListView->setIconSize(QSize(16, 16));
    FontListView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // No look at every row, however many there are: a name that is too long ends in dots.
    FontListView->setUniformItemSizes(true);
    FontListView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    createSummary();
    FontNameLabel = Form.MakeLabel("FontNameLabel", {}, Qt::AlignLeft);
    FontNameLabel->setTextFormat(Qt::PlainText);
    FontNameLabel->setFont(messageFont());
    createSheet();
    SplitBar = new ::SplitBar(Form.scale(), this, Qt::Horizontal);
    Form.Adopt(SplitBar, "SplitBar");
    SplitBar->setReachAbove(0); // there is the scroll bar of the list
    SetFontButton = Form.Make<QPushButton>("SetFontButton", "Set this as Current Font and Exit");
    SetFontButton->setEnabled(false);
    OkButton = Form.Make<QPushButton>("OkButton", "Ok");
    OkButton->setDefault(true);
    connect(SetFontButton, &QPushButton::clicked, this, &FontBrowser::SetFontButton_Click);
    connect(OkButton, &QPushButton::clicked, this, &FontBrowser::OkButton_Click);
    const double edge = 242 * Form.TwipsX();
    SplitBar->setLimits([this, edge] {
        return ::SplitBar::Limits{.First = edge, .Last = width() * Form.TwipsX() - edge};
    });
    connect(SplitBar, &::SplitBar::Dragged, this, &FontBrowser::SplitBar_MouseMove);
    new BarRing(this, {SplitBar});
}

void FontBrowser::createSummary()
{
    Form.Make<CaptionFrame>("SummaryFrame", "Summary:");
    Form.MakeLabel("Label1", "Total number of fonts:", Qt::AlignLeft);
    TotalFonts = Form.MakeLabel("TotalFonts", QString::number(FontCount), Qt::AlignLeft);
    Form.MakeLabel("Label7", "Number of System fonts:", Qt::AlignLeft);
    SysFonts = Form.MakeLabel("SysFonts", QString::number(SysFontCount), Qt::AlignLeft);
    Form.MakeLabel("Label5", "Number of TrueType fonts:", Qt::AlignLeft);
    TTFonts = Form.MakeLabel("TTFonts", QString::number(TTFontCount), Qt::AlignLeft);
}

void FontBrowser::createSheet()
{
    SPlateHolder = Form.Make<SampleFrame>("SPlateHolder");
    auto *view = Form.Make<QWidget>("SPlateView");
    view->setAutoFillBackground(true);
    view->setBackgroundRole(QPalette::Base);
    SamplePlate = new ::SamplePlate(Form.scale(), view);
    Form.Adopt(SamplePlate, "SamplePlate");
    SHScroll = Form.Make<QScrollBar>("SHScroll", Qt::Horizontal);
    SVScroll = Form.Make<QScrollBar>("SVScroll", Qt::Vertical);
    auto *corner = Form.Make<QFrame>("SHoleBlock");
    corner->setAutoFillBackground(true);
    SPlateHolder->setBars(SHScroll, SVScroll);
    connect(SHScroll, &QScrollBar::valueChanged, this, &FontBrowser::SHScroll_Change);
    connect(SVScroll, &QScrollBar::valueChanged, this, &FontBrowser::SVScroll_Change);
}

void FontBrowser::FontNameXchg(int /*position*/, const QString &name)
{
    OpenFontName = name;
    Form_Load();
    const QAbstractItemModel &items = *FontListView->model();
    for (int row = 0; row < items.rowCount(); ++row) {
        if (items.index(row, 0).data().toString() != name)
            continue;
        if (SelFont == name)
            showDesignSheet();
        FontListView->setCurrentIndex(items.index(row, 0));
        break;
    }
    if (!FontListView->currentIndex().isValid())
        showDesignSheet();
    SetToolTips(ToolTipsOn);
}

void FontBrowser::Form_Load()
{
    FontListView->setModel(new FontItemModel(FontItemsOf(Fonts), this));
    connect(FontListView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &item) {
                if (item.isValid())
                    FontListView_ItemClick(item.row());
            });
    SamplePlate->setSampleText(
        SampleTextFor(toText(RegReadValue(HKEY_CURRENT_USER, SettingsPath(u"FB"), u"SampleText"))));
    FontNameLabel->setText(OpenFontName);
    nameInSize(12);
    FitFontNameLabel();
}

/// What the sheet shows while no font was drawn on it.
void FontBrowser::showDesignSheet()
{
    const QString design = QStringLiteral("Arial");
    SamplePlate->ShowFont(Shown.font(design), design, false);
    placeSheet();
}

void FontBrowser::FontListView_ItemClick(int row)
{
    const QString text = fontFaceName(Fonts.entry(row));
    if (text != SelFont) {
        const auto column = static_cast<std::size_t>(Fonts.column(row));
        FontNameLabel->setText(FontLF.at(column).lfFaceName);
        FitFontNameLabel();
        ShowFontSamples(text);
    }
    SelFont = text;
}

void FontBrowser::ShowFontSamples(const QString &name)
{
    SamplePlate->ShowFont(Shown.font(name), name);
    takeMinimum();
    placeSheet();
    SetFontButton->setEnabled(name != OpenFontName);
}

void FontBrowser::SetFontButton_Click()
{
    if (!AskToSetFont(SelFont))
        return;
    Chosen = SelFont;
    SelFont.clear();
    accept();
}

void FontBrowser::OkButton_Click()
{
    SelFont.clear();
    accept();
}

void FontBrowser::showEvent(QShowEvent *event)
{
    FormDialog::showEvent(event);
    // Only now the list knows how much of it can be seen.
    FontListView->scrollTo(FontListView->currentIndex());
    FontListView->setFocus();
}

void FontBrowser::keyPressEvent(QKeyEvent *event)
{
    // Unlike the close box, which leaves SelFont as it is.
    if (event->matches(QKeySequence::Cancel))
        OkButton_Click();
    else
        FormDialog::keyPressEvent(event);
}
