// The toolbars of the main window: one row a button, with its picture, its tooltip and its command.
// A button is the master copy of its command's state; menus copy it when they open. Touches the
// buttons and the tooltips of the controls, nothing else.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "platform/controls/Icons.h"
#include "platform/controls/Toolbar.h"

#include <QAction>
#include <QLayout>
#include <QMenu>

namespace {

using Kind = Toolbar::Kind;
/// What a click does; null while the command is not built, and the button stays off.
using Command = void (*)(Zendova &);

struct ButtonRow
{
    Toolbar *Zendova::*Bar;
    const char *Key;   ///< empty for a separator
    const char *Image; ///< empty for a button that gets its picture elsewhere
    const char *Tag;
    Kind ButtonKind = Kind::Push;
    Command Action = nullptr;
    Command FillMenu = nullptr; ///< for a drop-down: runs each time before it opens
};

constexpr auto Check = Kind::Check;
constexpr auto Push = Kind::Push;

const ButtonRow Buttons[] = {
    {&Zendova::LoadSaveTB, "Load", "Load", "Load Text from File", Kind::DropDown,
     [](Zendova &z) { z.FileLoad_Click(); }, [](Zendova &z) { z.FillLoadMenu(); }},
    {&Zendova::LoadSaveTB, "Save", "Save", "Save Text in File", Push,
     [](Zendova &z) { z.FileSave_Click(); }},
    {&Zendova::ZndvDefTB, "Opt", "Opt", "Set Default Options"},
    {&Zendova::ZndvDefTB, "KB", "KB", "View Keyboard Layout"},
    {&Zendova::ZndvDefTB, "FB", "FB", "Browse Fonts"},
    {&Zendova::ViewsTB, "VCLeft", "VCLeft", "Views on the Left", Check,
     [](Zendova &z) { z.PutViews("L"); }},
    {&Zendova::ViewsTB, "", "", ""},
    {&Zendova::ViewsTB, "Zoom", "Zoom", "Zoom View On/Off", Check,
     [](Zendova &z) { z.ZoomViewSet(z.ViewsTB->button("Zoom")->isChecked()); }},
    {&Zendova::ViewsTB, "Code", "Code", "Code View On/Off", Check,
     [](Zendova &z) { z.CodeViewSet(z.ViewsTB->button("Code")->isChecked()); }},
    {&Zendova::ViewsTB, "KS", "KS", "Keystroke View On/Off", Check,
     [](Zendova &z) { z.KeystrokeViewSet(z.ViewsTB->button("KS")->isChecked()); }},
    {&Zendova::ViewsTB, "", "", ""},
    {&Zendova::ViewsTB, "VCRight", "VCRight", "Views on the Right", Check,
     [](Zendova &z) { z.PutViews("R"); }},
    {&Zendova::TBOperationsTB, "CopyButton", "TBCopy", "Copy TextBoard Contents to Clipboard", Push,
     [](Zendova &z) { z.ToolsCopy_Click(); }},
    {&Zendova::TBOperationsTB, "CutButton", "TBCut", "Cut TextBoard Contents to Clipboard", Push,
     [](Zendova &z) { z.ToolsCut_Click(); }},
    {&Zendova::TBOperationsTB, "FullScreen", "FullScr", "View TextBoard Full Screen"},
    // Printing is the menu's alone; the button only keeps the state that the menu copies.
    {&Zendova::TBOperationsTB, "PrintButton", "TBPrint", "Print TextBoard Contents", Push,
     [](Zendova &) {}},
    {&Zendova::TBOperationsTB, "ClearButton", "TBClear", "Unload TextBoard Contents", Push,
     [](Zendova &z) { z.ToolsClear_Click(); }},
    {&Zendova::TextEditTB, "Cut", "Cut", "Cut", Push, [](Zendova &z) { z.EditCut_Click(); }},
    {&Zendova::TextEditTB, "Copy", "Copy", "Copy", Push, [](Zendova &z) { z.EditCopy_Click(); }},
    {&Zendova::TextEditTB, "Paste", "Paste", "Paste", Push,
     [](Zendova &z) { z.EditPaste_Click(); }},
    {&Zendova::TextEditTB, "Find", "Find", "Find in TextBoard", Check,
     [](Zendova &z) { z.ShowFindBar(z.TextEditTB->button("Find")->isChecked() ? 1 : 0); }},
    {&Zendova::FontFormatTB, "Bold", "Bold", "Toggle Bold Style", Check,
     [](Zendova &z) { z.SetBold(z.FontFormatTB->button("Bold")->isChecked()); }},
    {&Zendova::FontFormatTB, "Italic", "Italic", "Toggle Italic Style", Check,
     [](Zendova &z) { z.SetItalic(z.FontFormatTB->button("Italic")->isChecked()); }},
    {&Zendova::FontFormatTB, "Underline", "Underline", "Toggle Underline Effect", Check,
     [](Zendova &z) { z.SetUnderline(z.FontFormatTB->button("Underline")->isChecked()); }},
    {&Zendova::FontFormatTB, "Strikethrough", "Strikethrough", "Toggle Strikethrough Effect", Check,
     [](Zendova &z) { z.SetStrikeout(z.FontFormatTB->button("Strikethrough")->isChecked()); }},
    {&Zendova::FontFormatTB, "Color", "", "Set TextBoard Font Color (Currently ", Push,
     [](Zendova &z) { z.ShowColorPicker(); }},
    {&Zendova::TextAlignTB, "AlignLeft", "Left", "Align Text Left", Check,
     [](Zendova &z) { z.SetAlignment(0); }},
    {&Zendova::TextAlignTB, "CenterText", "Center", "Center Text", Check,
     [](Zendova &z) { z.SetAlignment(2); }},
    {&Zendova::TextAlignTB, "AlignRight", "Right", "Align Text Right", Check,
     [](Zendova &z) { z.SetAlignment(1); }},
    {&Zendova::tlbCustFMap, "CFMapLoad", "CFMapLoad", "Load a Cutsom FontMap"},
    {&Zendova::tlbCustFMap, "CFMapNew", "CFMapNew", "Create a New Custom FontMap"},
    {&Zendova::tlbCustFMap, "CFMapEdit", "CFMapEdit", "Edit Current Custom FontMap"},
    {&Zendova::tlbCustFMap, "CFMapUnld", "CFMapUnld", "Unload Current Custom FontMap"},
    {&Zendova::tlbCFMapFmt, "FMap-", "FMap-", "Reduce FontMap Size", Push,
     [](Zendova &z) { z.FMSmaller_Click(); }},
    {&Zendova::tlbCFMapFmt, "FMap+", "FMap+", "Increase FontMap Size", Push,
     [](Zendova &z) { z.FMLarger_Click(); }},
    {&Zendova::tlbCFMapFmt, "RAFMap", "RAFMap", "Realign FontMap (Activates Map Sizing)", Push,
     [](Zendova &z) { z.FMRealign_Click(); }},
    {&Zendova::tlbCFMapFmt, "", "", ""},
    {&Zendova::tlbCFMapFmt, "FMapFC", "FMapFC", "Set FontMap Font Color"},
    {&Zendova::tlbCFMapFmt, "FMapBC", "FMapBC", "Set FontMap Back Color"},
    {&Zendova::tlbCFMapFmt, "", "", ""},
    {&Zendova::tlbCFMapFmt, "FMapH", "FMapH", "Show Mouse Highlight", Check,
     [](Zendova &z) { z.FMHiLite->trigger(); }},
    {&Zendova::tlbCFMapFmt, "FMapG", "FMapG", "Toggle FontMap Gridlines", Check,
     [](Zendova &z) { z.FMBorders->trigger(); }},
};

/// The controls beside the buttons whose tooltips the toggle switches.
constexpr const char *TaggedControls[] = {
    "ZoomSizeNumber",
    "ZoomSizeEdit",
    "TextZoom",
    "FontSizeNumber",
    "FontSizeEdit",
    "NoOfChars",
    "ProgressBack",
    "PercFilled",
    "CVACover",
    "KVACover",
    "SplitBar",
    "tbxSetFMapSizeNumber",
    "lblSetFMapSizeNumber",
    "lblCFMName",
    "pbxSetFMapSize",
    "pbxCFMName",
};

struct BarRow
{
    Toolbar *Zendova::*Bar;
    const char *Name;
    const char *Spoken; ///< accessible name
};

constexpr BarRow Bars[] = {
    {&Zendova::LoadSaveTB, "LoadSaveTB", "Text files"},
    {&Zendova::ZndvDefTB, "ZndvDefTB", "Tools"},
    {&Zendova::ViewsTB, "ViewsTB", "Views"},
    {&Zendova::TBOperationsTB, "TBOperationsTB", "TextBoard"},
    {&Zendova::TextEditTB, "TextEditTB", "Editing"},
    {&Zendova::FontFormatTB, "FontFormatTB", "Font style"},
    {&Zendova::TextAlignTB, "TextAlignTB", "Alignment"},
    {&Zendova::tlbCustFMap, "tlbCustFMap", "Custom FontMaps"},
    {&Zendova::tlbCFMapFmt, "tlbCFMapFmt", "FontMap format"},
    {&Zendova::tlbCFMapName, "tlbCFMapName", "Custom FontMap's name"},
};

} // namespace

void Zendova::CreateToolbars()
{
    for (const BarRow &row : Bars) {
        auto *bar = new Toolbar(Client);
        bar->setObjectName(row.Name);
        bar->setAccessibleName(row.Spoken);
        this->*row.Bar = bar;
    }
    for (const ButtonRow &row : Buttons) {
        Toolbar *bar = this->*row.Bar;
        if (!*row.Key) {
            bar->addSeparator();
            continue;
        }
        QToolButton *button = bar->addButton(row.Key, row.ButtonKind);
        button->setProperty("Tag", QString::fromLatin1(row.Tag));
        button->setProperty("HasCommand", row.Action != nullptr);
        button->setAccessibleName(QString::fromLatin1(row.Tag));
        button->setEnabled(row.Action != nullptr);
        if (row.Action)
            connect(button, &QToolButton::clicked, this,
                    [this, action = row.Action] { action(*this); });
        if (row.FillMenu)
            connect(button->menu(), &QMenu::aboutToShow, this,
                    [this, fill = row.FillMenu] { fill(*this); });
    }
    EnableTextCommands(false);
}

void Zendova::FillMapToolbars()
{
    tlbCFMapFmt->addPlaceholder("FMapSld", pbxSetFMapSize);
    tlbCFMapName->addPlaceholder("CFMName", pbxCFMName);
}

void Zendova::EnableButton(Toolbar *Bar, const QString &Key, bool On)
{
    QToolButton *button = Bar->button(Key);
    button->setEnabled(On && button->property("HasCommand").toBool());
}

void Zendova::SetToolbarImages()
{
    for (const ButtonRow &row : Buttons)
        if (*row.Image)
            (this->*row.Bar)->button(row.Key)->setIcon(Icons::icon(row.Image));
    CreditLine += ' ';
}

void Zendova::SetToolTips()
{
    const auto tip = [](const QWidget *control) {
        return ToolTipsOn ? control->property("Tag").toString() : QString();
    };
    for (const ButtonRow &row : Buttons) {
        if (!*row.Key)
            continue;
        QToolButton *button = (this->*row.Bar)->button(row.Key);
        button->setToolTip(tip(button));
    }
    RenewColorToolTip();
    for (const char *name : TaggedControls)
        Control(name)->setToolTip(tip(Control(name)));
}
