// From the board to the dialog.
#include "textboard/FontChoice.h"

#include "fonttools/PassingFonts.h"
#include "textboard/QBColors.h"
#include "textboard/TextBoard.h"

#include <vector>

std::optional<ChosenFont> AskFont(QWidget *parent, QAbstractItemModel *fonts,
                                  const TextBoard &board, int leastSize, int mostSize)
{
    ChosenFont choice{.Name = board.FontName(),
                      .Size = board.FontSize(),
                      .Bold = board.FontBold(),
                      .Italic = board.FontItalic(),
                      .Underline = board.FontUnderline(),
                      .Strikeout = board.FontStrikethru(),
                      .Color = FromColor(board.ForeColor())};
    std::vector<NamedColor> colors;
    colors.reserve(QBColors.size());
    for (const QBColorRow &row : QBColors)
        colors.push_back({.Name = row.CellLabel, .Value = row.Value});
    PassingFonts shown;
    const FontOffer offer{.Fonts = fonts,
                          .FontOf = [&shown](const QString &name) { return shown.font(name); },
                          .Colors = colors,
                          .LeastSize = leastSize,
                          .MostSize = mostSize};
    if (!CmnDlg::ShowFont(parent, offer, choice))
        return std::nullopt;
    return choice;
}
