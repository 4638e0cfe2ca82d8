// The menus of the main window: one row an item.
// Check marks that are not toggles of their own are copied from the buttons and the board when a
// menu opens, and before a key of one of its items acts; nothing updates them in between.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "defaults/Options.h"
#include "fontmap/Views.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <algorithm>
#include <array>

namespace {

using Command = void (Zendova::*)();

/// A Toggle is all there is to its command: whoever needs the state reads the check mark.
enum ItemFlag {
    Plain = 0,
    Checkable = 1,
    CheckedAtDesign = 3,
    Toggle = 7,
    Hidden = 8,
    Disabled = 16,
    OfPanel = 32 ///< a panel has made the item, with its command
};

struct MenuRow
{
    int Depth; ///< 0 for a menu of the bar; a row is a submenu if the next one is deeper
    const char *Name;
    const char *Caption;
    const char *Key = "";      ///< several are parted by "; ", and the menu shows the first
    Command Handler = nullptr; ///< for a menu: what runs as it opens
    QAction *Zendova::*Item = nullptr;
    int Flags = Plain;
    int HelpId = 0;   ///< context id of the topic in the help; 0 for the menu's
    int Elements = 0; ///< for an array of items, which are "Name1", "Name2", ...
    void (Zendova::*ElementHandler)(int) = nullptr; ///< takes the number of the item
};

constexpr const char *Line = "-";

constexpr int GeneralHelp = 6;
constexpr int CopyHelp = 9;
constexpr int ClearHelp = 10;
constexpr int ViewHelp = 11;

constexpr MenuRow Rows[] = {
    {0, "ItemFile", "&File", "", &Zendova::ItemFile_Click, nullptr, Plain, GeneralHelp},
    {1, "FileTF", "&Text File"},
    {2, "FileLoad", "&Load Text from File...", "Ctrl+L", &Zendova::FileLoad_Click},
    {2, "FileSave", "&Save Text in File...", "Ctrl+S", &Zendova::FileSave_Click},
    {2, "FileSep3", Line, "", nullptr, nullptr, Hidden},
    {2, "FileMRU", "", "", nullptr, nullptr, Hidden, 0, 9, &Zendova::FileMRU_Click},
    {1, "FileSep1", Line},
    {1, "FileCFM", "Custom Font&Map"},
    {2, "FileCFMLoad", "&Load...", "", nullptr, nullptr, OfPanel},
    {2, "FileCFMNew", "&New...", "", nullptr, nullptr, OfPanel},
    {2, "FileCFMEdit", "&Edit...", "", nullptr, nullptr, OfPanel | Disabled},
    {2, "FileCFMUnld", "&Unload", "", nullptr, nullptr, OfPanel | Disabled},
    {2, "FileSep2", Line, "", nullptr, nullptr, Hidden},
    {2, "CFMRU", "", "", nullptr, nullptr, Hidden, 0, 5, &Zendova::CFMRU_Click},
    {1, "FileSep4", Line},
    {1, "FileExit", "E&xit", "", &Zendova::FileExit_Click, nullptr, Plain, GeneralHelp},

    {0, "ItemEdit", "&Edit", "", &Zendova::ItemEdit_Click},
    {1, "EditCut", "Cu&t", "Ctrl+X; Shift+Del; F20; Cut", &Zendova::EditCut_Click},
    {1, "EditCopy", "&Copy", "Ctrl+C; Ctrl+Ins; F16; Copy", &Zendova::EditCopy_Click},
    {1, "EditPaste", "&Paste", "Ctrl+V; Shift+Ins; F18; Paste", &Zendova::EditPaste_Click},
    {1, "EditDelete", "&Delete", "Ctrl+D", &Zendova::EditDelete_Click, &Zendova::EditDelete},
    {1, "EditSep1", Line},
    {1, "EditSelectAll", "Select &All", "Ctrl+A", &Zendova::EditSelectAll_Click,
     &Zendova::EditSelectAll},
    {1, "EditSep2", Line},
    {1, "EditFind", "&Find...", "Ctrl+F", &Zendova::EditFind_Click, &Zendova::EditFind,
     Checkable | Disabled},
    {1, "EditFindAgain", "Find A&gain", "F3", nullptr, nullptr, OfPanel | Disabled},

    {0, "ItemView", "&Views", "", &Zendova::ItemView_Click, nullptr, Plain, GeneralHelp},
    {1, "ViewZoom", "&Zoom View", "", nullptr, nullptr, OfPanel | CheckedAtDesign, ViewHelp},
    {1, "ViewCode", "&Code View", "", nullptr, nullptr, OfPanel | CheckedAtDesign, ViewHelp},
    {1, "ViewKS", "&Keystroke View", "", nullptr, nullptr, OfPanel | CheckedAtDesign, ViewHelp},
    {1, "ViewSep", Line},
    {1, "ViewAll", "&All Views", "", nullptr, nullptr, OfPanel | CheckedAtDesign, ViewHelp},

    {0, "ItemFormat", "F&ormat", "", &Zendova::ItemFormat_Click},
    {1, "FormatTB", "&TextBoard"},
    {2, "FormatFont", "&Font...", "", &Zendova::FormatFont_Click, nullptr},
    {2, "FormatSep1", Line},
    {2, "FFontBold", "&Bold Font", "Ctrl+B", &Zendova::FFontBold_Click, &Zendova::FFontBold,
     CheckedAtDesign},
    {2, "FFontItalic", "&Italic Font", "Ctrl+I", &Zendova::FFontItalic_Click, &Zendova::FFontItalic,
     CheckedAtDesign},
    {2, "FormatSep2", Line},
    {2, "FFontUnderline", "&Underline Font", "Ctrl+U", &Zendova::FFontUnderline_Click,
     &Zendova::FFontUnderline, CheckedAtDesign},
    {2, "FFontStrikethrough", "Stri&kethrough Font", "Ctrl+K", &Zendova::FFontStrikethrough_Click,
     &Zendova::FFontStrikethrough, CheckedAtDesign},
    {2, "FFontColor", "Font C&olor...", "", &Zendova::ShowColorPicker, nullptr},
    {2, "FormatSep3", Line},
    {2, "AlignLeft", "&Left Align Text", "", &Zendova::AlignLeft_Click, &Zendova::AlignLeft,
     CheckedAtDesign},
    {2, "AlignCenter", "&Center Text", "", &Zendova::AlignCenter_Click, &Zendova::AlignCenter,
     CheckedAtDesign},
    {2, "AlignRight", "&Right Align Text", "", &Zendova::AlignRight_Click, &Zendova::AlignRight,
     CheckedAtDesign},
    {1, "FormatFM", "Font&Map"},
    {2, "FMSmaller", "&Smaller", "", nullptr, nullptr, OfPanel},
    {2, "FMLarger", "&Larger", "", nullptr, nullptr, OfPanel},
    {2, "FMRealign", "&Realign", "", nullptr, nullptr, OfPanel},
    {2, "FormatSep4", Line},
    {2, "FMFColor", "&Font Color...", "", nullptr, nullptr, OfPanel},
    {2, "FMBColor", "&Background Color...", "", nullptr, nullptr, OfPanel},
    {2, "FormatSep5", Line},
    {2, "FMHiLite", "&Mouse Highlight", "", nullptr, nullptr, OfPanel | Checkable},
    {2, "FormatSep6", Line},
    {2, "FMBorders", "Show &Grid", "", nullptr, nullptr, OfPanel | CheckedAtDesign},

    {0, "ItemTools", "&Tools", "", &Zendova::ItemTools_Click, nullptr, Plain, GeneralHelp},
    {1, "ToolsCopy", "&Copy TextBoard to Clipboard", "", &Zendova::ToolsCopy_Click, nullptr, Plain,
     CopyHelp},
    {1, "ToolsCut", "Cu&t TextBoard to Clipboard", "", &Zendova::ToolsCut_Click},
    {1, "ToolsFS", "&View TextBoard Full Screen...", "", &Zendova::ToolsFS_Click},
    {1, "ToolsPrint", "&Print TextBoard Contents...", "", &Zendova::ToolsPrint_Click},
    {1, "ToolsClear", "&Unload TextBoard Contents", "", &Zendova::ToolsClear_Click, nullptr, Plain,
     ClearHelp},
    {1, "ToolsSep1", Line},
    {1, "ToolsFB", "&Browse Fonts...", "", &Zendova::ToolsFB_Click},
    {1, "ToolsKB", "View &Keyboard Layout...", "", &Zendova::ToolsKB_Click},
    {1, "ToolsSep2", Line},
    {1, "ToolsOpt", "Default &Options...", "", &Zendova::ToolsOpt_Click},

    {0, "ItemDisplay", "To&ggles", "", &Zendova::ItemDisplay_Click},
    {1, "OptLoadTD", "&Load .TXT Files with TextBoard Defaults", "", nullptr, &Zendova::OptLoadTD,
     Toggle},
    {1, "OptUnloadTD", "&Restore TextBoard Defaults after Unload", "", nullptr,
     &Zendova::OptUnloadTD, Toggle},
    {1, "DisplaySep1", Line},
    {1, "OptPosVC", "&Position Views"},
    {2, "VCOnL", "On &Left", "", &Zendova::VCOnL_Click, &Zendova::VCOnL, CheckedAtDesign},
    {2, "VCOnR", "On &Right", "", &Zendova::VCOnR_Click, &Zendova::VCOnR, CheckedAtDesign},
    {1, "DisplaySep2", Line},
    {1, "DisplayCD", "Display \"Text Cut/Copied to Clipboard\" &Confirmation", "", nullptr,
     &Zendova::DisplayCD, Toggle},
    {1, "DisplayOW", "Display TextBoard &Overwrite Warning", "", nullptr, &Zendova::DisplayOW,
     Toggle},
    {1, "DisplayEW", "Display \"Discard Text and Exit?\" &Warning", "", nullptr,
     &Zendova::DisplayEW, Toggle},
    {1, "DisplaySep3", Line},
    {1, "DisplayCS", "Use FontMap Color Scheme in &Dialogs", "", &Zendova::DisplayCS_Click,
     &Zendova::DisplayCS, CheckedAtDesign},
    {1, "DisplaySep4", Line},
    {1, "DisplayTT", "Show &ToolTips", "", &Zendova::DisplayTT_Click, &Zendova::DisplayTT,
     CheckedAtDesign},

    {0, "ItemHelp", "&Help", "", nullptr, nullptr, Plain, GeneralHelp},
    {1, "HelpContents", "&Contents...", "", &Zendova::HelpContents_Click, &Zendova::HelpContents,
     Hidden, GeneralHelp},
    {1, "HelpReadme", "Open &Readme File", "", &Zendova::HelpReadme_Click},
    {1, "HelpSep1", Line},
    {1, "HelpCheckUpd", "Check for &Updates...", "", &Zendova::HelpCheckUpd_Click},
    {1, "HelpVisit", "Visit Zendova &Home Page...", "", &Zendova::HelpVisit_Click},
    {1, "HelpFeedback", "&E-Mail Zendova Feedback...", "", &Zendova::HelpFeedback_Click},
    {1, "HelpSep2", Line},
    {1, "HelpAbout", "&About...", "", &Zendova::HelpAbout_Click, nullptr, Plain, GeneralHelp},
};

enum class State { Enabled, Checked };

/// What an item takes from a button as its menu opens.
struct CopyRow
{
    const char *Menu;
    const char *Item;
    State Copied;
    Toolbar *Zendova::*Bar;
    const char *Button;
};

constexpr CopyRow Copies[] = {
    {"ItemFile", "FileSave", State::Enabled, &Zendova::LoadSaveTB, "Save"},
    {"ItemEdit", "EditCut", State::Enabled, &Zendova::TextEditTB, "Cut"},
    {"ItemEdit", "EditCopy", State::Enabled, &Zendova::TextEditTB, "Copy"},
    {"ItemEdit", "EditPaste", State::Enabled, &Zendova::TextEditTB, "Paste"},
    {"ItemEdit", "EditFind", State::Enabled, &Zendova::TextEditTB, "Find"},
    {"ItemEdit", "EditFind", State::Checked, &Zendova::TextEditTB, "Find"},
    {"ItemFormat", "FFontBold", State::Enabled, &Zendova::FontFormatTB, "Bold"},
    {"ItemFormat", "FFontItalic", State::Enabled, &Zendova::FontFormatTB, "Italic"},
    {"ItemFormat", "FFontUnderline", State::Enabled, &Zendova::FontFormatTB, "Underline"},
    {"ItemFormat", "FFontStrikethrough", State::Enabled, &Zendova::FontFormatTB, "Strikethrough"},
    {"ItemFormat", "AlignLeft", State::Checked, &Zendova::TextAlignTB, "AlignLeft"},
    {"ItemFormat", "AlignCenter", State::Checked, &Zendova::TextAlignTB, "CenterText"},
    {"ItemFormat", "AlignRight", State::Checked, &Zendova::TextAlignTB, "AlignRight"},
    {"ItemTools", "ToolsClear", State::Enabled, &Zendova::TBOperationsTB, "ClearButton"},
    {"ItemTools", "ToolsCopy", State::Enabled, &Zendova::TBOperationsTB, "CopyButton"},
    {"ItemTools", "ToolsCut", State::Enabled, &Zendova::TBOperationsTB, "CutButton"},
    {"ItemTools", "ToolsPrint", State::Enabled, &Zendova::TBOperationsTB, "PrintButton"},
    {"ItemTools", "ToolsFS", State::Enabled, &Zendova::TBOperationsTB, "FullScreen"},
};

/// An item without a topic of its own has that of its menu.
void setHelpId(QAction &item, const MenuRow &row, const QMenu *parent)
{
    const int ofMenu = parent ? parent->menuAction()->property("HelpId").toInt() : 0;
    item.setProperty("HelpId", row.HelpId ? row.HelpId : ofMenu);
}

QMenu *addMenu(Zendova &window, const MenuRow &row, QMenu *parent)
{
    QMenu *menu = parent ? parent->addMenu(row.Caption) : window.menuBar()->addMenu(row.Caption);
    menu->setObjectName(row.Name);
    menu->installEventFilter(&window); // for the key of the help
    setHelpId(*menu->menuAction(), row, parent);
    if (row.Handler)
        QObject::connect(menu, &QMenu::aboutToShow, &window, row.Handler);
    return menu;
}

void addElements(Zendova &window, const MenuRow &row, QMenu &parent)
{
    for (int element = 1; element <= row.Elements; ++element) {
        QAction *item = parent.addAction(row.Caption);
        item->setObjectName(row.Name + QString::number(element));
        setHelpId(*item, row, &parent);
        item->setVisible(!(row.Flags & Hidden));
        QObject::connect(
            item, &QAction::triggered, &window,
            [&window, element, handler = row.ElementHandler] { (window.*handler)(element); });
    }
}

void addItem(Zendova &window, const MenuRow &row, QMenu &parent)
{
    const bool ofPanel = row.Flags & OfPanel;
    auto *item = ofPanel ? window.findChild<QAction *>(row.Name) : new QAction(&parent);
    Q_ASSERT(item);
    parent.addAction(item);
    item->setText(row.Caption);
    item->setObjectName(row.Name);
    setHelpId(*item, row, &parent);
    item->setShortcuts(QKeySequence::listFromString(row.Key));
    item->setCheckable(row.Flags & Checkable);
    item->setAutoRepeat(!(row.Flags & Checkable)); // a held key would flicker
    item->setChecked((row.Flags & CheckedAtDesign) == CheckedAtDesign);
    item->setEnabled(!(row.Flags & Disabled));
    item->setVisible(!(row.Flags & Hidden));
    if (row.Handler)
        QObject::connect(item, &QAction::triggered, &window, row.Handler);
    if (row.Item)
        window.*row.Item = item;
}

void addSeparator(const MenuRow &row, QMenu &parent)
{
    QAction *line = parent.addSeparator();
    line->setObjectName(row.Name);
    line->setVisible(!(row.Flags & Hidden));
}

} // namespace

void Zendova::CreateMenus()
{
    WearDesktopFonts();
    constexpr int Deepest = 3;
    std::array<QMenu *, Deepest> open{}; // by depth
    for (std::size_t i = 0; i < std::size(Rows); ++i) {
        const MenuRow &row = Rows[i];
        const auto depth = static_cast<std::size_t>(row.Depth);
        QMenu *parent = depth ? open[depth - 1] : nullptr;
        if (i + 1 < std::size(Rows) && Rows[i + 1].Depth > row.Depth)
            open[depth] = addMenu(*this, row, parent);
        else if (!parent)
            qFatal("%s is in no menu.", row.Name);
        else if (qstrcmp(row.Caption, Line) == 0)
            addSeparator(row, *parent);
        else if (row.Elements > 0)
            addElements(*this, row, *parent);
        else
            addItem(*this, row, *parent);
    }
    FormatFM = menuBar()->findChild<QMenu *>("FormatFM");
    // The key that opens the help where no menu is open; the menu does not show it.
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this, [this] {
        if (HelpContents->isVisible())
            HelpContents_Click();
    });
}

void Zendova::PrepareShortcut(const QKeyEvent &Key)
{
    const QKeySequence pressed(
        QKeyCombination(Key.modifiers() & ~Qt::KeypadModifier, Qt::Key(Key.key())));
    Command opening = nullptr;
    for (const MenuRow &row : Rows) {
        if (row.Depth == 0)
            opening = row.Handler;
        if (opening && *row.Key && QKeySequence::listFromString(row.Key).contains(pressed))
            (this->*opening)();
    }
}

/// They are in the window but no part of the form.
void Zendova::WearDesktopFonts()
{
    menuBar()->setFont(TwipForm::desktopFont("QMenuBar"));
    FontNameCombo->wearDesktopFont();
}

void Zendova::CopyButtonStates(const char *Menu)
{
    for (const CopyRow &row : Copies) {
        if (qstrcmp(row.Menu, Menu) != 0)
            continue;
        auto *item = menuBar()->findChild<QAction *>(row.Item);
        const QToolButton *button = (this->*row.Bar)->button(row.Button);
        if (row.Copied == State::Checked)
            item->setChecked(button->isChecked());
        else
            item->setEnabled(button->isEnabled());
    }
}

void Zendova::ItemFile_Click()
{
    CopyButtonStates("ItemFile");
}

void Zendova::ItemEdit_Click()
{
    CopyButtonStates("ItemEdit");
}

void Zendova::ItemView_Click()
{
    const Views &views = *ViewsContainer;
    views.ViewAll->setChecked(views.ViewZoom->isChecked() && views.ViewCode->isChecked() &&
                              views.ViewKS->isChecked());
}

void Zendova::ItemFormat_Click()
{
    FFontBold->setChecked(TextBoard->FontBold());
    FFontItalic->setChecked(TextBoard->FontItalic());
    FFontUnderline->setChecked(TextBoard->FontUnderline());
    FFontStrikethrough->setChecked(TextBoard->FontStrikethru());
    CopyButtonStates("ItemFormat");
}

void Zendova::ItemTools_Click()
{
    CopyButtonStates("ItemTools");
}

void Zendova::ToolsOpt_Click()
{
    Options(FontNameCombo->model(), *FMColorPalette, this).exec();
}

void Zendova::ItemDisplay_Click()
{
    VCOnL->setChecked(ViewsContainer->ViewsTB->button("VCLeft")->isChecked());
    VCOnR->setChecked(ViewsContainer->ViewsTB->button("VCRight")->isChecked());
}

void Zendova::OfferCommand(QAction *Command, const QPoint &At)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->installEventFilter(this); // for the key of the help
    menu->addAction(Command);
    menu->popup(At);
}

void Zendova::DisplayCS_Click()
{
    ColorSchemeOn = DisplayCS->isChecked();
}

void Zendova::DisplayTT_Click()
{
    ToolTipsOn = DisplayTT->isChecked();
    SetToolTips();
}

void Zendova::VCOnL_Click()
{
    if (WasUnchecked(VCOnL))
        PutViews("L");
}

void Zendova::VCOnR_Click()
{
    if (WasUnchecked(VCOnR))
        PutViews("R");
}

/// For an item that does nothing while it is checked. The toolkit has flipped the mark by now: one
/// that was set is set again.
bool Zendova::WasUnchecked(QAction *item)
{
    const bool wasUnchecked = item->isChecked();
    item->setChecked(true);
    return wasUnchecked;
}
