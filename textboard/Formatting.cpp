// Font, size, styles, colour and alignment: set for the board as a whole, never for a part of its
// text. Name and size reach the map too. Formatting is no change of the text.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/Icons.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBar.h"
#include "textboard/FindBox.h"
#include "textboard/FontChoice.h"
#include "textboard/QBColors.h"
#include "textboard/TBColorPicker.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QSlider>
#include <algorithm>

namespace {

/// The four styles in the order of Format.TBStyle: the board's property, the zoom's, and the
/// button.
struct StyleRow
{
    bool (TextBoard::*Get)() const;
    void (TextBoard::*Set)(bool);
    void (QFont::*SetFont)(bool);
    const char *Button;
};
constexpr StyleRow Styles[] = {
    {&TextBoard::FontBold, &TextBoard::setFontBold, &QFont::setBold, "Bold"},
    {&TextBoard::FontItalic, &TextBoard::setFontItalic, &QFont::setItalic, "Italic"},
    {&TextBoard::FontUnderline, &TextBoard::setFontUnderline, &QFont::setUnderline, "Underline"},
    {&TextBoard::FontStrikethru, &TextBoard::setFontStrikethru, &QFont::setStrikeOut,
     "Strikethrough"},
};
enum StyleIndex { Bold, Italic, Underline, Strikeout, StyleCount };

} // namespace

QToolButton *Zendova::StyleButton(int style) const
{
    return FontFormatTB->button(Styles[style].Button);
}

void Zendova::ApplyFontToAll()
{
    const QString name = FontNameCombo->Text();
    QFont face = ShownFonts.font(name);
    face.setPointSize(FontSizeSlider->value());
    FMapContainer->CharButton->setCellFont(face);

    const ::TextBoard::FontChange inOneGo(*TextBoard);
    TextBoard->setFontName(name);
    TextBoard->setFontSize(FontSizeSlider->value());
    for (const StyleRow &style : Styles)
        (TextBoard->*style.Set)(false);
    for (int style = 0; style < StyleCount; ++style) {
        // What the board still reports is built into the font: its button is pressed for good.
        const bool builtIn = (TextBoard->*Styles[style].Get)();
        QToolButton *button = StyleButton(style);
        button->setChecked(builtIn);
        button->setEnabled(!builtIn);
        if (!builtIn)
            button->setChecked(Format.TBStyle.at(static_cast<std::size_t>(style)) != 0);
        (TextBoard->*Styles[style].Set)(button->isChecked());
    }
    face.setPointSize(ViewsContainer->ZoomSizeSlider->value());
    ViewsContainer->TextZoom->setCellFont(face);
    ShowStylesInZoom();
    face.setPointSizeF(FindFrame->FindString->font().pointSizeF());
    FindFrame->FindString->setFont(face);
}

void Zendova::ShowStylesInZoom()
{
    QFont font = ViewsContainer->TextZoom->cellFont();
    for (int style = 0; style < StyleCount; ++style) {
        // A style that is built into the font is there already; asked for again it would be drawn
        // bolder or more slanted than the font is.
        const bool asked = (TextBoard->*Styles[style].Get)() && StyleButton(style)->isEnabled();
        (font.*Styles[style].SetFont)(asked);
    }
    ViewsContainer->TextZoom->setCellFont(font);
}

void Zendova::FontSizeSlider_Change(int Value)
{
    QFont face = FMapContainer->CharButton->cellFont();
    face.setPointSize(Value);
    FMapContainer->CharButton->setCellFont(face);
    TextBoard->setFontSize(Value);
    // The find bar keeps its height whatever the board's size.
    QFont inFindBar = FindFrame->FindString->font();
    inFindBar.setPointSize(std::min(Value, 12));
    FindFrame->FindString->setFont(inFindBar);
    FontSizeSlider->showNumber(QString::number(Value));
}

void Zendova::SetStyle(int style, int on)
{
    Format.TBStyle.at(static_cast<std::size_t>(style)) = on;
    (TextBoard->*Styles[style].Set)(on == 1);
    ShowStylesInZoom();
}

void Zendova::SetBold(int On)
{
    SetStyle(Bold, On);
}

void Zendova::SetItalic(int On)
{
    SetStyle(Italic, On);
}

void Zendova::SetUnderline(int On)
{
    SetStyle(Underline, On);
}

void Zendova::SetStrikeout(int On)
{
    SetStyle(Strikeout, On);
}

void Zendova::ToggleStyle(int style, const QAction *item)
{
    StyleButton(style)->setChecked(item->isChecked());
    SetStyle(style, item->isChecked() ? 1 : 0);
}

void Zendova::FFontBold_Click()
{
    ToggleStyle(Bold, FFontBold);
}

void Zendova::FFontItalic_Click()
{
    ToggleStyle(Italic, FFontItalic);
}

void Zendova::FFontUnderline_Click()
{
    ToggleStyle(Underline, FFontUnderline);
}

void Zendova::FFontStrikethrough_Click()
{
    ToggleStyle(Strikeout, FFontStrikethrough);
}

void Zendova::SetAlignment(int Alignment)
{
    constexpr const char *keys[] = {"AlignLeft", "AlignRight", "CenterText"};
    for (const char *key : keys)
        TextAlignTB->button(key)->setChecked(false);
    TextBoard->setAlignment(Alignment);
    if (Alignment >= 0 && Alignment < static_cast<int>(std::size(keys)))
        TextAlignTB->button(keys[Alignment])->setChecked(true);
}

void Zendova::AlignLeft_Click()
{
    if (WasUnchecked(AlignLeft))
        SetAlignment(0);
}

void Zendova::AlignCenter_Click()
{
    if (WasUnchecked(AlignCenter))
        SetAlignment(2);
}

void Zendova::AlignRight_Click()
{
    if (WasUnchecked(AlignRight))
        SetAlignment(1);
}

void Zendova::FormatFont_Click()
{
    const auto chosenFont =
        AskFont(this, FontNameCombo->model(), *TextBoard, FontSizeSlider->slider()->minimum(),
                FontSizeSlider->slider()->maximum());
    if (!chosenFont)
        return;
    const ChosenFont &choice = *chosenFont;
    if (choice.Name != FontNameCombo->Text())
        SelectFontByName(choice.Name);
    ApplyFontToAll();
    if (choice.Color != FromColor(TextBoard->ForeColor()))
        SetColorFromDialog(choice.Color);
    if (choice.Size != FontSizeSlider->value())
        FontSizeSlider->setValue(NumberSlider::whole(choice.Size));
    const bool chosen[] = {choice.Bold, choice.Italic, choice.Underline, choice.Strikeout};
    for (int style = 0; style < StyleCount; ++style) {
        if (chosen[style] != (TextBoard->*Styles[style].Get)())
            SetStyle(style, chosen[style] ? 1 : 0);
        StyleButton(style)->setChecked((TextBoard->*Styles[style].Get)());
    }
    TextBoard->setFocus();
}

bool Zendova::FindColorIndex(ColorValue Color)
{
    const std::optional<int> index = FindQBColor(Color);
    if (index)
        Format.TBColorIndex = *index;
    return index.has_value();
}

void Zendova::SetColorFromDialog(ColorValue Color)
{
    FindColorIndex(Color);
    TextBoard->setForeColor(ToColor(Color, palette()));
    Format.TBColorName = QBColorName(Format.TBColorIndex);
    RenewColorButton();
}

void Zendova::ShowColorPicker()
{
    PickColorIndex = Format.TBColorIndex;
    PickColorValue = QString::number(FromColor(TextBoard->ForeColor()));
    TBColorPicker(this).exec();
    if (PickColorIndex == Format.TBColorIndex)
        return;
    Format.TBColorIndex = PickColorIndex;
    Format.TBColorName = QBColorName(Format.TBColorIndex);
    TextBoard->setForeColor(ToColor(QBColor(Format.TBColorIndex), palette()));
    RenewColorButton();
}

void Zendova::RenewColorButton()
{
    FontFormatTB->button("Color")->setIcon(
        Icons::colorButton(ToColor(QBColor(Format.TBColorIndex), palette())));
    RenewColorToolTip();
}

void Zendova::RenewColorToolTip()
{
    QToolButton *button = FontFormatTB->button("Color");
    // The tag is the beginning of the sentence.
    const QString tip = FontFormatTB->tag("Color") + Format.TBColorName + ')';
    button->setToolTip(ToolTipsOn ? tip : QString());
    button->setAccessibleName(tip);
}
