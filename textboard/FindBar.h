// The find bar under the board and its search, which goes forward only. It is given the board and
// the buffer that searches; the room that it takes from the board is the window's to give.
#pragma once

#include "platform/controls/ControlTable.h"

#include <QWidget>
#include <array>

class FindBox;
class QAction;
class QCheckBox;
class QPushButton;
class QShortcut;
class TextBoard;
class TextBoardRTF;

class FindBar : public QWidget
{
    Q_OBJECT

public:
    /// Board and buffer must outlive the bar. The buffer's text is replaced by a search.
    FindBar(const TwipScale &scale, ::TextBoard &board, ::TextBoardRTF &buffer, QWidget *parent);

    /// 1 opens the bar or fills it anew; any other value closes it.
    void ShowFindBar(int Value);
    /// Searches the board for FindText, from behind the caret or the start of the selection.
    void FindInBoard();
    void EditFindAgain_Click();
    void FindNextButton_Click();
    void ClearFindButton_Click();
    void CloseFindButton_Click();
    void FindString_Change();
    /// FindString has the focus of its window, which a menu or another window may be in front of:
    /// characters of the map go there.
    bool FindHasFocus() const;
    /// Lays the controls out for a bar of this width in twips.
    void Stretch(double width);
    void SetScale(const TwipScale &scale) { Form.setScale(scale); }

    FindBox *FindString = nullptr;
    QPushButton *FindNextButton = nullptr, *ClearFindButton = nullptr, *CloseFindButton = nullptr;
    std::array<QCheckBox *, 2> FindOpt{}; ///< whole word, match case
    QAction *EditFindAgain = nullptr;     ///< for a menu to show
    QString FindText;                     ///< of the last search

signals:
    /// The bar opens, or closes: it wants this room of the board, in twips.
    void RoomWanted(double height);
    /// The bar was closed by its own button, by Esc or since the board is empty.
    void Closed();

private:
    void createControls();
    void connectControls();
    void close();

    ::TextBoard &Board;
    ::TextBoardRTF &Buffer;
    ControlTable Form;
    QShortcut *BoardEscape = nullptr; ///< closes the bar from the board, while it is open
};
