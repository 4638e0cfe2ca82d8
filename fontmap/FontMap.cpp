// What the cells of the map hold and how they look: the default map, clicks, colours, the highlight
// and the grid lines. Their size is another topic, as is what is told of a character.
#include "core/Zendova.h"

#include "platform/controls/CharCells.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

void Zendova::FillDefaultMap()
{
    for (int cell = 0; cell < CellCount; ++cell) {
        CharButton->setCaption(cell, CharacterOf(FirstCode + cell));
        CharInfo.at(static_cast<std::size_t>(cell)) = DefaultCharTexts(FirstCode + cell);
    }
}

void Zendova::CharButton_MouseDown(int Index, Qt::MouseButton Button, const QPoint &At)
{
    if (Button == Qt::LeftButton) {
        if (FindHasFocus()) {
            FindString->setFocus();
            FindString->insert(CharButton->Caption(Index));
        } else {
            TextBoard->setFocus();
            TextBoard->setSelText(CharButton->Caption(Index));
        }
    } else if (Button == Qt::RightButton) {
        FormatFM->popup(At);
    }
}

void Zendova::ApplyFontMapColors(bool SetFore, ColorValue Fore, bool SetBack, ColorValue Back)
{
    if (!SetFore && !SetBack)
        return;
    for (int cell = 0; cell < CellCount; ++cell)
        CharButton->setColors(cell, SetFore ? Fore : CharButton->ForeColor(cell),
                              SetBack ? Back : CharButton->BackColor(cell));
    TextZoom->setColors(0, ForeColor, BackColor);
    ColorSampleText();
}

void Zendova::ColorSampleText()
{
    // Two copies of one line, a pixel apart: the lower one is the upper one's shadow.
    const std::array colors = {TextZoom->BackColor(0), TextZoom->ForeColor(0)};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        QPalette own = SampleText[i]->palette();
        own.setColor(QPalette::WindowText, ToColor(colors[i], palette()));
        SampleText[i]->setPalette(own);
    }
}

void Zendova::SetCellBorders(int Style)
{
    if (CharButton->BorderStyle(1) == Style)
        return;
    for (int cell = 0; cell < CellCount; ++cell)
        CharButton->setBorderStyle(cell, FMBorders->isChecked() ? 1 : 0);
}

void Zendova::FMHiLite_Click()
{
    tlbCFMapFmt->button("FMapH")->setChecked(FMHiLite->isChecked());
    CharButton->setColors(LastCell, TextZoom->ForeColor(0), TextZoom->BackColor(0));
}

void Zendova::FMBorders_Click()
{
    tlbCFMapFmt->button("FMapG")->setChecked(FMBorders->isChecked());
    SetCellBorders(FMBorders->isChecked() ? 1 : 0);
}
