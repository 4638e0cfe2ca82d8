// The editor's controls on their form, its menus, and the keyboard.
#include "fontmap/CustomMap.h"

#include "core/GlobalDeclarations.h"
#include "fontmap/CharList.h"
#include "fontmap/MapSize.h"
#include "fonttools/FillFontCombo.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"

#include <QAction>
#include <QButtonGroup>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSlider>
#include <QSpinBox>
#include <QStyleOptionFrame>
#include <QVBoxLayout>

namespace {

constexpr double Width = 11610; // twips
constexpr double Height = 6690;

constexpr ControlRow Rows[] = {
    {"Client", "CustomMap", InBand, "", "Map editor"},
    {"FontLabel", "Client", {105, 135, 960, 240}},
    {"cmbFontName", "Client", {1125, 90, 4485, 330}, "Select a Font"},
    {"FontSizeLabel", "Client", {5895, 135, 825, 240}},
    {"optFontSize0", "Client", {6765, 120, 720, 270}, "", "Font size of the list"},
    {"optFontSize1", "Client", {7515, 120, 720, 270}, "", "Font size of the map"},
    {"lblFontSizeNumber", "Client", {8295, 135, 300, 240}, "Font Size (Click to Change)"},
    {"tbxFontSizeNumber", "Client", {8280, 105, 330, 300}, "Enter font size"},
    {"sldFontSize", "Client", {8655, 120, 2850, 270}, "Set Font Size"},
    {"KSContainer", "Client", {105, 465, 2010, 300}, "", "Keystroke View"},
    {"KSLabel", "KSContainer", {75, 30, 915, 240}},
    {"lblKeyStroke", "KSContainer", {1020, 30, 930, 240}, "Keystroke View Area"},
    {"ZSzContainer", "Client", {105, 765, 2040, 2475}, "", "Zoom View"},
    {"ZoomLabel", "ZSzContainer", {0, 195, 2010, 240}},
    {"lblTextZoom", "ZSzContainer", {0, 450, 2010, 2025}, "Zoom View Area"},
    {"cmdListToMap", "Client", {2175, 465, 3435, 330}},
    {"cmdMapToList", "Client", {5685, 465, 3435, 330}},
    {"InListLabel", "Client", {2175, 825, 990, 225}},
    {"lblCharsInList", "Client", {3180, 825, 420, 225}},
    {"InMapLabel", "Client", {3825, 825, 1050, 225}},
    {"lblCharsInMap", "Client", {4905, 825, 420, 225}},
    {"ColumnsLabel", "Client", {6600, 825, 1770, 225}},
    {"lstFontChars", "Client", {2175, 1065, 6945, 2175}, "", "Characters of the list"},
    {"updListColumns", "Client", {8445, 855, 660, 240}, "Adjust List Column Width"},
    {"ShiftContainer", "Client", {9180, 465, 2325, 1230}, "", "Map highlight movement"},
    {"ShiftLabel", "ShiftContainer", {90, 90, 2205, 240}},
    {"optShiftDir0",
     "ShiftContainer",
     {120, 420, 2085, 270},
     "",
     "Map highlight moves horizontally"},
    {"optShiftDir1", "ShiftContainer", {90, 795, 2085, 270}, "", "Map highlight moves vertically"},
    {"btnSaveCFMap", "Client", {9180, 2055, 2325, 345}},
    {"btnSaveAsCFMap", "Client", {9180, 2475, 2325, 345}},
    {"btnCancel", "Client", {9180, 2895, 2325, 345}},
    {"imgCMMFMapHolder", "Client", {105, 3285, 11400, 3300}, "", "Map"},
    {"lblCFMap", "imgCMMFMapHolder", {15, 15, 11355, 3255}, "", "Characters of the map"},
};

struct ItemRow
{
    const char *Menu;
    const char *Name; ///< none for a line
    const char *Caption = "";
    const char *Keys = "";
    QAction *CustomMap::*Item = nullptr;
    void (CustomMap::*Handler)() = nullptr;
};
constexpr ItemRow Items[] = {
    {"&File", "CFMapSave", "&Save Map", "Ctrl+S", &CustomMap::CFMapSave,
     &CustomMap::btnSaveCFMap_Click},
    {"&File", "CFMapSaveAs", "Save &As...", "Ctrl+Shift+S", &CustomMap::CFMapSaveAs,
     &CustomMap::btnSaveAsCFMap_Click},
    {"&File", nullptr},
    {"&File", "MapExit", "E&xit", "Ctrl+Q", &CustomMap::MapExit, &CustomMap::reject},
    {"&Move", "MoveLtoM", "Character from &List to Map", "Ctrl+Down", &CustomMap::MoveLtoM,
     &CustomMap::cmdListToMap_Click},
    {"&Move", "MoveMtoL", "Character from &Map to List", "Ctrl+Up", &CustomMap::MoveMtoL,
     &CustomMap::cmdMapToList_Click},
};

/// Round the slots a line that tells whether the keyboard is theirs.
class MapHolder : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        QStyleOptionFrame line;
        line.initFrom(this);
        line.rect = focusProxy()->geometry().adjusted(-1, -1, 1, 1);
        style()->drawPrimitive(QStyle::PE_FrameLineEdit, &line, &painter, this);
    }
};

} // namespace

CustomMap::CustomMap(const FontList &fonts, QWidget *parent)
    : FormDialog("CustomMap", Rows, Width, Height, parent)
{
    setWindowTitle("Zendova Custom Map Editor");
    createMenus();
    createControls();
    FillFontCombo(*cmbFontName, fonts);
    readSettings();
    connectControls();
    EditorToolTips();
    setTabOrders();
}

// The controls

void CustomMap::createControls()
{
    createFontControls();
    Form.Make<QFrame>("KSContainer")->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Form.MakeLabel("KSLabel", "Keystroke:", Qt::AlignLeft);
    lblKeyStroke = Form.MakeLabel("lblKeyStroke", {}, Qt::AlignLeft);
    lblKeyStroke->setTextFormat(Qt::PlainText);
    Form.Make<QWidget>("ZSzContainer");
    Form.MakeLabel("ZoomLabel", "Zoom Area:", Qt::AlignLeft);
    lblTextZoom = new CharCells(1, Form.Control("ZSzContainer"));
    Form.Adopt(lblTextZoom, "lblTextZoom");
    lblTextZoom->setScale(Form.scale());
    lblTextZoom->setPlaces({{0, 0, 2010, 2025}});

    cmdListToMap = Form.Make<QPushButton>("cmdListToMap", "Move character from List to Map");
    cmdMapToList = Form.Make<QPushButton>("cmdMapToList", "Move character from Map to List");
    Form.MakeLabel("InListLabel", "Now in List:", Qt::AlignLeft);
    lblCharsInList = Form.MakeLabel("lblCharsInList", {}, Qt::AlignLeft);
    Form.MakeLabel("InMapLabel", "Now in Map:", Qt::AlignLeft);
    lblCharsInMap = Form.MakeLabel("lblCharsInMap", {}, Qt::AlignLeft);
    QLabel *columns = Form.MakeLabel("ColumnsLabel", "List Columns:", Qt::AlignRight);
    lstFontChars = Form.Make<CharList>("lstFontChars");
    lstFontChars->setReading([this](int code) { return spoken(CharacterOf(code)); });
    updListColumns = Form.Make<QSpinBox>("updListColumns");
    updListColumns->setRange(8, 30);
    columns->setBuddy(updListColumns);

    Form.Make<QFrame>("ShiftContainer")->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Form.MakeLabel("ShiftLabel", "Map Highlight Movement:", Qt::AlignLeft);
    optShiftDir[0] = Form.Make<QRadioButton>("optShiftDir0", "Horizontal");
    optShiftDir[1] = Form.Make<QRadioButton>("optShiftDir1", "Vertical");
    btnSaveCFMap = Form.Make<QPushButton>("btnSaveCFMap", "Save Map");
    btnSaveAsCFMap = Form.Make<QPushButton>("btnSaveAsCFMap", "Save As...");
    btnCancel = Form.Make<QPushButton>("btnCancel", "Cancel");
    for (QPushButton *button : findChildren<QPushButton *>())
        button->setAutoDefault(false);
    createMap();
}

void CustomMap::createFontControls()
{
    QLabel *font = Form.MakeLabel("FontLabel", "Font Name:", Qt::AlignLeft);
    cmbFontName = Form.Make<FontCombo>("cmbFontName");
    font->setBuddy(cmbFontName);
    QLabel *size = Form.MakeLabel("FontSizeLabel", "Font Size:", Qt::AlignLeft);
    optFontSize[0] = Form.Make<QRadioButton>("optFontSize0", "List");
    optFontSize[1] = Form.Make<QRadioButton>("optFontSize1", "Map");
    sldFontSize = Form.MakeNumberSlider(
        {"sldFontSize", "lblFontSizeNumber", "tbxFontSizeNumber", "Set Font Size"}, 8, 36,
        NumberSlider::NoNumber::CountsZero);
    sldFontSize->setValue(10);
    size->setBuddy(sldFontSize->slider());
}

void CustomMap::createMap()
{
    imgCMMFMapHolder = Form.Make<MapHolder>("imgCMMFMapHolder");
    lblCFMap = new CharCells(CellCount, imgCMMFMapHolder);
    Form.Adopt(lblCFMap, "lblCFMap");
    lblCFMap->setFocusPolicy(Qt::StrongFocus);
    lblCFMap->setScale(Form.scale());
    lblCFMap->setPlaces(MapSize::Cells(0));
    lblCFMap->setReading(MapColumns, [this](int slot) { return spoken(Map.caption(slot)); });
    imgCMMFMapHolder->setFocusProxy(lblCFMap);
    for (QWidget *control : {imgCMMFMapHolder, static_cast<QWidget *>(lblCFMap)})
        control->installEventFilter(this);
}

void CustomMap::createMenus()
{
    auto *bar = new QMenuBar(this);
    bar->setNativeMenuBar(false);
    bar->setFont(TwipForm::desktopFont("QMenuBar"));
    QMenu *menu = nullptr;
    for (const ItemRow &row : Items) {
        if (!menu || menu->title() != row.Menu)
            menu = bar->addMenu(row.Menu);
        if (!row.Name) {
            menu->addSeparator();
            continue;
        }
        const QKeySequence keys(row.Keys);
        QAction *item =
            menu->addAction(row.Caption + ('\t' + keys.toString(QKeySequence::NativeText)));
        item->setObjectName(row.Name);
        connect(item, &QAction::triggered, this, row.Handler);
        this->*row.Item = item;
        // A key goes by the slot of now, which other keys may have left behind the buttons.
        connect(new QShortcut(keys, this), &QShortcut::activated, item, [this, item] {
            followSlot();
            item->trigger();
        });
    }
    connect(menu, &QMenu::aboutToShow, this, &CustomMap::followSlot);

    auto *client = Form.Make<QWidget>("Client");
    client->setFixedSize(size());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setMenuBar(bar);
    column->addWidget(client);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void CustomMap::connectControls()
{
    const auto toList = [this] { lstFontChars->setFocus(); };
    const auto group = [this](std::span<QRadioButton *> options) {
        auto *buttons = new QButtonGroup(this);
        for (int i = 0; QRadioButton * option : options)
            buttons->addButton(option, i++);
        return buttons;
    };
    group(optShiftDir);
    connect(group(optFontSize), &QButtonGroup::idClicked, this, &CustomMap::optFontSize_Click);
    connect(cmbFontName, &FontCombo::Click, this, &CustomMap::cmbFontName_Click);
    connect(sldFontSize, &NumberSlider::ValueChanged, this, &CustomMap::sldFontSize_Change);
    connect(sldFontSize, &NumberSlider::Scrolled, this, toList);
    connect(sldFontSize, &NumberSlider::Finished, this, toList);
    connect(updListColumns, &QSpinBox::valueChanged, lstFontChars, &CharList::setColumns);
    connect(lstFontChars, &CharList::Click, this, &CustomMap::lstFontChars_Click);
    connect(lblCFMap, &CharCells::MouseDown, this, [this](int slot, Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            lblCFMap_Click(slot);
    });
    connect(lblCFMap, &CharCells::MouseMove, this, &CustomMap::lblCFMap_MouseMove);
    connect(cmdListToMap, &QPushButton::clicked, this, &CustomMap::cmdListToMap_Click);
    connect(cmdMapToList, &QPushButton::clicked, this, &CustomMap::cmdMapToList_Click);
    connect(btnSaveCFMap, &QPushButton::clicked, this, &CustomMap::btnSaveCFMap_Click);
    connect(btnSaveAsCFMap, &QPushButton::clicked, this, &CustomMap::btnSaveAsCFMap_Click);
    connect(btnCancel, &QPushButton::clicked, this, &CustomMap::reject);
}

void CustomMap::setTabOrders()
{
    QWidget *const order[] = {lstFontChars,   cmbFontName,    sldFontSize->slider(), optFontSize[0],
                              optFontSize[1], optShiftDir[0], optShiftDir[1],        cmdListToMap,
                              cmdMapToList,   btnSaveAsCFMap, btnSaveCFMap,          btnCancel,
                              updListColumns, lblCFMap};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void CustomMap::EditorToolTips()
{
    SetToolTips(ToolTipsOn);
}

// The keyboard

bool CustomMap::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool command = key->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
        return !command && imgCMMFMapHolder_KeyDown(key->key());
    }
    case QEvent::FocusOut:
        followSlot();
        [[fallthrough]];
    case QEvent::FocusIn:
        imgCMMFMapHolder->update();
        break;
    default:
        break;
    }
    return FormDialog::eventFilter(watched, event);
}

void CustomMap::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return FormDialog::keyPressEvent(event);
    // Enter presses the button that has the focus. Held down it does so once: the focus changes to
    // the opposite button where no more can be moved.
    auto *button = qobject_cast<QPushButton *>(focusWidget());
    if (button && !event->isAutoRepeat())
        button->click();
}
