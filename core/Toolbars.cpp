// The toolbars of the main window: one row a button, with its picture, its tooltip and its command.
// A button is the master copy of its command's state; menus copy it when they open. Touches the
// buttons and the tooltips of the controls, nothing else.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FillBar.h"
#include "textboard/FindBar.h"

namespace {

using enum Toolbar::Kind;

constexpr ButtonRow<Zendova> Buttons[] = {
    {&Zendova::LoadSaveTB,
     {"Load", "Load", "Load Text from File", DropDown},
     [](Zendova &z) { z.FileLoad_Click(); },
     [](Zendova &z) { z.FillLoadMenu(); }},
    {&Zendova::LoadSaveTB,
     {"Save", "Save", "Save Text in File"},
     [](Zendova &z) { z.FileSave_Click(); }},
    {&Zendova::ZndvDefTB,
     {"Opt", "Opt", "Set Default Options"},
     [](Zendova &z) { z.ToolsOpt_Click(); }},
    {&Zendova::ZndvDefTB,
     {"KB", "KB", "View Keyboard Layout"},
     [](Zendova &z) { z.ToolsKB_Click(); }},
    {&Zendova::ZndvDefTB, {"FB", "FB", "Browse Fonts"}, [](Zendova &z) { z.ToolsFB_Click(); }},
    {&Zendova::TBOperationsTB,
     {"CopyButton", "TBCopy", "Copy TextBoard Contents to Clipboard"},
     [](Zendova &z) { z.ToolsCopy_Click(); }},
    {&Zendova::TBOperationsTB,
     {"CutButton", "TBCut", "Cut TextBoard Contents to Clipboard"},
     [](Zendova &z) { z.ToolsCut_Click(); }},
    {&Zendova::TBOperationsTB,
     {"FullScreen", "FullScr", "View TextBoard Full Screen"},
     [](Zendova &z) { z.ToolsFS_Click(); }},
    // Printing is the menu's alone; the button only keeps the state that the menu copies.
    {&Zendova::TBOperationsTB,
     {"PrintButton", "TBPrint", "Print TextBoard Contents"},
     [](Zendova &) {}},
    {&Zendova::TBOperationsTB,
     {"ClearButton", "TBClear", "Unload TextBoard Contents"},
     [](Zendova &z) { z.ToolsClear_Click(); }},
    {&Zendova::TextEditTB, {"Cut", "Cut", "Cut"}, [](Zendova &z) { z.EditCut_Click(); }},
    {&Zendova::TextEditTB, {"Copy", "Copy", "Copy"}, [](Zendova &z) { z.EditCopy_Click(); }},
    {&Zendova::TextEditTB, {"Paste", "Paste", "Paste"}, [](Zendova &z) { z.EditPaste_Click(); }},
    {&Zendova::TextEditTB,
     {"Find", "Find", "Find in TextBoard", Check},
     [](Zendova &z) {
         z.FindFrame->ShowFindBar(z.TextEditTB->button("Find")->isChecked() ? 1 : 0);
     }},
    {&Zendova::FontFormatTB,
     {"Bold", "Bold", "Toggle Bold Style", Check},
     [](Zendova &z) { z.SetBold(z.FontFormatTB->button("Bold")->isChecked()); }},
    {&Zendova::FontFormatTB,
     {"Italic", "Italic", "Toggle Italic Style", Check},
     [](Zendova &z) { z.SetItalic(z.FontFormatTB->button("Italic")->isChecked()); }},
    {&Zendova::FontFormatTB,
     {"Underline", "Underline", "Toggle Underline Effect", Check},
     [](Zendova &z) { z.SetUnderline(z.FontFormatTB->button("Underline")->isChecked()); }},
    {&Zendova::FontFormatTB,
     {"Strikethrough", "Strikethrough", "Toggle Strikethrough Effect", Check},
     [](Zendova &z) { z.SetStrikeout(z.FontFormatTB->button("Strikethrough")->isChecked()); }},
    {&Zendova::FontFormatTB,
     {"Color", "", "Set TextBoard Font Color (Currently "},
     [](Zendova &z) { z.ShowColorPicker(); }},
    {&Zendova::TextAlignTB,
     {"AlignLeft", "Left", "Align Text Left", Check},
     [](Zendova &z) { z.SetAlignment(0); }},
    {&Zendova::TextAlignTB,
     {"CenterText", "Center", "Center Text", Check},
     [](Zendova &z) { z.SetAlignment(2); }},
    {&Zendova::TextAlignTB,
     {"AlignRight", "Right", "Align Text Right", Check},
     [](Zendova &z) { z.SetAlignment(1); }},
};

} // namespace

void Zendova::CreateToolbars()
{
    AddButtons(*this, Buttons);
    EnableTextCommands(false);
}

void Zendova::SetToolbarImages()
{
    for (Toolbar *bar : Client->findChildren<Toolbar *>())
        bar->showPictures();
    CreditLine += ' ';
}

void Zendova::SetToolTips()
{
    Form.SetToolTips(ToolTipsOn);
    for (Toolbar *bar : Client->findChildren<Toolbar *>())
        bar->setToolTips(ToolTipsOn);
    RenewColorToolTip();
    ViewsContainer->SetToolTips(ToolTipsOn);
    FMapContainer->SetToolTips(ToolTipsOn);
    TBPContainer->SetToolTips(ToolTipsOn);
}
