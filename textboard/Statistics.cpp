// The live reactions to every change of the board's text: count, percentage, fill bar, the changed
// flag and what is enabled while the board is empty. Reads the length of the text, never the text.
#include "core/Zendova.h"

#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/ClipboardFormats.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FillBar.h"
#include "textboard/FindBar.h"
#include "textboard/FindBox.h"
#include "textboard/QBColors.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>
#include <QSlider>
#include <utility>

namespace {

/// The commands that need text on the board, by their buttons.
constexpr std::pair<Toolbar * Zendova::*, const char *> TextCommands[] = {
    {&Zendova::LoadSaveTB, "Save"},
    {&Zendova::TBOperationsTB, "ClearButton"},
    {&Zendova::TBOperationsTB, "CopyButton"},
    {&Zendova::TBOperationsTB, "CutButton"},
    {&Zendova::TBOperationsTB, "PrintButton"},
    {&Zendova::TBOperationsTB, "FullScreen"},
    {&Zendova::TextEditTB, "Find"},
};

} // namespace

void Zendova::TextBoard_Change()
{
    const int n = TextBoard->TextLength();
    TBPContainer->ShowCount(n);
    TextFile.TextChanged = true;
    EnableTextCommands(n > 0);
    EditFind->setEnabled(n > 0);
    EditSelectAll->setEnabled(n > 0);
    if (n == 0 && !FindFrame->isHidden())
        FindFrame->CloseFindButton_Click();
}

void Zendova::EnableTextCommands(bool On)
{
    for (const auto &[bar, key] : TextCommands)
        (this->*bar)->enableButton(key, On);
}

void Zendova::UpdateProgressBar()
{
    TBPContainer->UpdateProgressBar(TextBoard->TextLength());
}

void Zendova::SyncEditCommands()
{
    EditSelectAll->setEnabled(TextBoard->TextLength() > 0);
    const bool selected = TextBoard->SelLength() > 0;
    TextEditTB->enableButton("Cut", selected);
    TextEditTB->enableButton("Copy", selected);
    EditDelete->setEnabled(selected);
    // Its owner may take long to answer: the window is there first.
    if (!FirstPaint && std::exchange(ClipboardDue, false))
        ClipboardHasText = ClipboardFormats::hasText();
    TextEditTB->enableButton("Paste", ClipboardHasText);
}

void Zendova::ApplyTextBoardSettings()
{
    FontSizeSlider->showNumber(QString::number(FontSizeSlider->value()));
    for (int style = 0; style < static_cast<int>(Format.TBStyle.size()); ++style)
        SetStyle(style, Format.TBStyle.at(static_cast<std::size_t>(style)));
    SetAlignment(TextBoard->Alignment());
    SyncEditCommands();
    TextBoard->setForeColor(ToColor(QBColor(Format.TBColorIndex), palette()));
    RenewColorButton();
}

void Zendova::SetTabOrder()
{
    // One order serves with the find bar and without it: what is hidden is passed over.
    const FindBar &find = *FindFrame;
    QWidget *const order[] = {TextBoard,
                              ViewsContainer->ZoomSizeSlider->slider(),
                              FontNameCombo,
                              FontSizeSlider->slider(),
                              find.FindString,
                              find.FindOpt[0],
                              find.FindOpt[1],
                              find.FindNextButton,
                              find.CloseFindButton,
                              FMapContainer->sldSetFMapSize->slider(),
                              FMapContainer->CharButton};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}
