// The font dialog for a board: it starts from what the board shows.
#pragma once

#include "platform/controls/CmnDlg.h"

#include <optional>

class TextBoard;

/// Lets a font, its styles and one of the sixteen colours be chosen, with a size within these
/// limits, in points. The fonts are one row each. Nothing is given after Cancel.
std::optional<ChosenFont> AskFont(QWidget *parent, QAbstractItemModel *fonts,
                                  const TextBoard &board, int leastSize, int mostSize);
