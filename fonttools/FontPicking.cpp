// The fonts of the system in the font picker of the main window: filling it once at start, finding
// and selecting a font in it, and taking over a font from the windows that show them. Positions
// count from 1.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "fonttools/FillFontCombo.h"
#include "fonttools/FontBrowser.h"
#include "fonttools/Keyboard.h"
#include "platform/FontCatalog.h"
#include "platform/controls/FontCombo.h"
#include "textboard/TextBoard.h"

#include <algorithm>

void Zendova::InitFonts()
{
    LoadFontList(FontList);
    CreditLine += 'W';
    bool found = false;
    for (int i = 0; i < FontCount; ++i) {
        const QString &entry = FontList.entry(i);
        countFont(fontClass(entry) == FontClass::TrueType ? TTFontCount : SysFontCount);
        if (!found && fontFaceName(entry) == Format.TBFontName) {
            Format.TBFontIndex = i + 1;
            found = true;
        }
    }
    FillFontCombo(*FontNameCombo, FontList);
    if (found) {
        FontNameCombo->SelectItem(Format.TBFontIndex);
        return;
    }
    ZndvMsg("\r\rThe font last used by Zendova is unavailable.\r\rContinue Loading?\r\r"
            "• Press Yes to load Zendova with a default font.\r"
            "• Press No to terminate loading.",
            "YN", "Zendova Font Initialization Error", false, 1);
    // Without any font there is nothing to go on with, whatever the answer.
    if (MsgResult && FontCount > 0)
        FontNameCombo->SelectItem(1);
    else
        LoadAborted = true;
}

int Zendova::FindCurrentFontIndex() const
{
    return FontNameCombo->PositionOf(Format.TBFontName);
}

bool Zendova::FindFontItem(const QString &FaceName)
{
    const int position = FontNameCombo->PositionOf(FaceName);
    if (position > 0)
        Format.TBFontIndex = position;
    return position > 0;
}

void Zendova::SelectStoredFont()
{
    Format.TBFontIndex = std::max(FindCurrentFontIndex(), 1);
    FontNameCombo->SelectItem(Format.TBFontIndex);
    Format.TBFontName = FontNameCombo->Text();
}

void Zendova::SelectFontByName(const QString &FaceName)
{
    FindFontItem(FaceName);
    FontNameCombo->SelectItem(Format.TBFontIndex);
    Format.TBFontName = FontNameCombo->Text();
}

void Zendova::FontNameCombo_Click()
{
    if (FontNameCombo->Text() == Format.TBFontName)
        return;
    ApplyFontToAll();
    Format.TBFontName = FontNameCombo->Text();
    Format.TBFontIndex = FontNameCombo->SelectedItem();
}

bool Zendova::IsSymbolFont(const QString &Name)
{
    const FontCatalog &catalog = FontCatalog::current();
    const auto &families = catalog.families();
    const auto family = std::ranges::find(families, Name, &FontFamily::name);
    return family != families.end() &&
           catalog.traits(static_cast<int>(family - families.begin())).symbol;
}

void Zendova::ToolsFB_Click()
{
    QString chosen;
    {
        FontBrowser browser(FontList, BrowserFont, this);
        browser.FontNameXchg(Format.TBFontIndex, Format.TBFontName);
        browser.exec();
        chosen = browser.ChosenFont();
    }
    // The browser has given its fonts back by now.
    TakeFont(chosen);
}

void Zendova::ToolsKB_Click()
{
    QString chosen;
    {
        Keyboard keyboard(FontList, this);
        // The picker's position: where the stored font is gone, only the picker shows the board's.
        keyboard.SetupKeyboard(FontNameCombo->SelectedItem(), TextBoard->FontName(),
                               TextBoard->FontSize());
        keyboard.exec();
        chosen = keyboard.ChosenFont();
    }
    // So has the keyboard.
    TakeFont(chosen);
}

void Zendova::TakeFont(const QString &Chosen)
{
    if (!Chosen.isEmpty())
        TextBoard->setFontName(Chosen);
    if (TextBoard->FontName() != FontNameCombo->Text())
        SelectFontByName(TextBoard->FontName());
    ApplyFontToAll();
}
