// The live reactions to every change of the board's text: count, percentage, fill bar, the changed
// flag and what is enabled while the board is empty. Reads the length of the text, never the text.
#include "core/Zendova.h"

#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FillBar.h"
#include "textboard/FindBox.h"
#include "textboard/QBColors.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSlider>

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

/// With the locale's separator before the last three of four digits and more. The toolkit leaves it
/// out of four digits where the locale's own habit does.
QString grouped(int n)
{
    constexpr int group = 3;
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QString digits = locale.toString(n);
    if (digits.size() > group)
        digits.insert(digits.size() - group, locale.groupSeparator());
    return digits;
}

} // namespace

void Zendova::TextBoard_Change()
{
    const int n = TextBoard->TextLength();
    NoOfChars->setText(grouped(n));
    PercFilled->setText(QString::number(n * (100.0 / TBLimit), 'f', 0) + '%');
    UpdateProgressBar();
    TextChanged = true;
    EnableTextCommands(n > 0);
    EditFind->setEnabled(n > 0);
    EditSelectAll->setEnabled(n > 0);
    if (n == 0 && !FindFrame->isHidden())
        CloseFindButton_Click();
}

void Zendova::EnableTextCommands(bool On)
{
    for (const auto &[bar, key] : TextCommands)
        EnableButton(this->*bar, key, On);
}

void Zendova::UpdateProgressBar()
{
    const int n = TextBoard->TextLength();
    const double width = FillWidth(n, TBLimit, ProgressWidth);
    ProgressFore->setVisible(width >= LeastFillWidth);
    if (width >= LeastFillWidth)
        Form.setWidth(ProgressFore, width);
    // Not a colour of the desktop: the bar warns in the same colours on every one.
    QPalette own = ProgressFore->palette();
    own.setColor(QPalette::Window, ToColor(FillColor(n, TBLimit), palette()));
    ProgressFore->setPalette(own);
}

void Zendova::SyncEditCommands()
{
    EditSelectAll->setEnabled(TextBoard->TextLength() > 0);
    const bool selected = TextBoard->SelLength() > 0;
    EnableButton(TextEditTB, "Cut", selected);
    EnableButton(TextEditTB, "Copy", selected);
    EditDelete->setEnabled(selected);
    EnableButton(TextEditTB, "Paste", ClipboardHasText);
}

void Zendova::ApplyTextBoardSettings()
{
    FontSizeSlider->showNumber(QString::number(FontSizeSlider->value()));
    for (int style = 0; style < static_cast<int>(TBStyle.size()); ++style)
        SetStyle(style, TBStyle.at(static_cast<std::size_t>(style)));
    SetAlignment(TextBoard->Alignment());
    SyncEditCommands();
    TextBoard->setForeColor(ToColor(QBColor(TBColorIndex), palette()));
    RenewColorButton();
}

void Zendova::SetTabOrder()
{
    // One order serves with the find bar and without it: what is hidden is passed over.
    QWidget *const order[] = {TextBoard,       ZoomSizeSlider->slider(),
                              FontNameCombo,   FontSizeSlider->slider(),
                              FindString,      FindOpt[0],
                              FindOpt[1],      FindNextButton,
                              CloseFindButton, sldSetFMapSize->slider()};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}
