// Texts, width and colour of the parts.
#include "textboard/FillBar.h"

#include "platform/controls/Accessibility.h"

#include <QFrame>
#include <QLabel>
#include <QLocale>

namespace {

constexpr ControlRow Rows[] = {
    {"NoOfChars", "TBPContainer", {45, 60, 600, 240}, "Number of Characters on TextBoard"},
    {"ProgressBack", "TBPContainer", {720, 85, 900, 150}, "Percentage of TextBoard Filled"},
    {"ProgressFore", "TBPContainer", {720, 85, 900, 150}, "", "Filled part"},
    {"PercFilled", "TBPContainer", {1710, 60, 495, 240}, "Percentage of TextBoard Filled"},
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

FillBar::FillBar(const TwipScale &scale, int limit, QWidget *parent)
    : QWidget(parent), Form(Rows, "TBPContainer", this, scale), Limit(limit)
{
    NoOfChars = Form.MakeLabel("NoOfChars", "0", Qt::AlignRight);
    ProgressBack = Form.Make<QFrame>("ProgressBack");
    ProgressBack->setFrameStyle(QFrame::Box | QFrame::Plain);
    ProgressFore = Form.MakeLabel("ProgressFore", {}, Qt::AlignLeft);
    ProgressFore->setAutoFillBackground(true);
    ProgressFore->setAttribute(Qt::WA_TransparentForMouseEvents);
    ProgressFore->hide();
    ProgressBack->raise(); // its frame stays whole
    PercFilled = Form.MakeLabel("PercFilled", "0%", Qt::AlignLeft);
    ProgressWidth = Form.width(ProgressBack);
}

double FillBar::leastWidth() const
{
    return Form.left(PercFilled) + Form.width(PercFilled);
}

void FillBar::ShowCount(int n)
{
    NoOfChars->setText(grouped(n));
    PercFilled->setText(QString::number(n * (100.0 / Limit), 'f', 0) + '%');
    UpdateProgressBar(n);
    tellLevel(n);
}

void FillBar::tellLevel(int n)
{
    const FillLevel level = FillLevelOf(n, Limit);
    if (level > Told)
        announce(this, level == FillLevel::Full ? "The TextBoard is full."
                                                : "The TextBoard is nearly full: room for " +
                                                      grouped(Limit - n) + " characters.");
    Told = level;
}

void FillBar::UpdateProgressBar(int n)
{
    const double width = FillWidth(n, Limit, ProgressWidth);
    ProgressFore->setVisible(width >= LeastFillWidth);
    if (width >= LeastFillWidth)
        Form.setWidth(ProgressFore, width);
    // Not a colour of the desktop: the bar warns in the same colours on every one.
    SetBackColor(ProgressFore, FillColor(n, Limit));
}
