// The find bar under the board: opening and closing it, where it stands, and the search, which goes
// forward only and runs in the rich-text buffer.
#include "core/Zendova.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/controls/Toolbar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>
#include <utility>

namespace {

/// Without the blanks at both ends; other white space stays.
QString withoutBlanks(const QString &text)
{
    const auto isBlank = [](QChar c) { return c == ' '; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), text.rend(), isBlank).base();
    return first < last ? QString(first, last - first) : QString();
}

/// As a message shows what was looked for: in one paragraph, as in the box, and no longer than
/// leaves room for the reason below it.
QString inMessage(const QString &text)
{
    constexpr qsizetype most = 120; // characters
    const QString shown =
        withoutBlanks(text).replace("\r\n", " ").replace('\r', ' ').replace('\n', ' ');
    return shown.size() > most ? shown.left(most) + u'\u2026' : shown;
}

} // namespace

// Opening and closing

void Zendova::ShowFindBar(int Value)
{
    if (Value != 1) {
        CloseFindBar();
        return;
    }
    if (FindFrame->isHidden()) {
        FindRoom = Form.height(FindFrame) + 2 * TwipsY;
        Form.setHeight(TextBoard, Form.height(TextBoard) - FindRoom);
        PlaceFindBar();
        FindFrame->show();
        BoardEscape->setEnabled(true);
        TextBoard->ensureCursorVisible();
    }
    FindString->setText(TextBoard->SelText());
    FindString->selectAll();
    FindString->setFocus();
}

void Zendova::CloseFindBar()
{
    if (FindFrame->isHidden())
        return;
    if (FindFrame->isAncestorOf(focusWidget()))
        TextBoard->setFocus();
    Form.setHeight(TextBoard, Form.height(TextBoard) + std::exchange(FindRoom, 0));
    FindFrame->hide();
    BoardEscape->setEnabled(false);
}

void Zendova::EditFind_Click()
{
    // The menu's mark is a copy of the button's state, and the toolkit has flipped it by now.
    QToolButton *button = TextEditTB->button("Find");
    button->setChecked(!button->isChecked());
    ShowFindBar(button->isChecked() ? 1 : 0);
}

void Zendova::CloseFindButton_Click()
{
    TextEditTB->button("Find")->setChecked(false);
    ShowFindBar(0);
    TextBoard->setFocus();
}

void Zendova::PlaceFindBar()
{
    Form.setTop(FindFrame, Form.top(TextBoard) + Form.height(TextBoard) + 2 * TwipsY);
}

void Zendova::StretchFindBar()
{
    Form.setLeft(FindFrame, Form.left(TextBoard));
    Form.setWidth(FindFrame, Form.width(TextBoard) - 2 * TwipsX);
    // On a dense screen a pixel has fewer twips than the buttons were drawn for, and they would lie
    // on each other.
    constexpr double designPixel = 15;
    const double pixel = std::max(TwipsX, designPixel);
    const double width = Form.width(FindFrame);
    const double next = width - 400 * pixel;
    Form.setWidth(FindString, std::max(0.0, width - 443 * pixel));
    Form.setLeft(FindNextButton, next);
    Form.setLeft(ClearFindButton, next + 72 * pixel);
    Form.setLeft(FindOpt[0], next + 144 * pixel);
    Form.setLeft(FindOpt[1], next + 240 * pixel);
    Form.setLeft(CloseFindButton, next + 332 * pixel);
}

bool Zendova::FindHasFocus() const
{
    return focusWidget() == FindString;
}

// The search

void Zendova::FindString_Change()
{
    const bool something = !FindString->text().isEmpty();
    ClearFindButton->setEnabled(something);
    FindNextButton->setEnabled(something);
}

void Zendova::ClearFindButton_Click()
{
    FindString->clear();
    FindString->setFocus();
}

void Zendova::FindNextButton_Click()
{
    FindText = FindString->text();
    EditFindAgain->setEnabled(true);
    FindInBoard();
}

void Zendova::EditFindAgain_Click()
{
    if (!FindText.isEmpty())
        FindInBoard();
}

void Zendova::FindInBoard()
{
    // One behind the caret or the selection's start, so that each search goes on from the last hit.
    const int start = TextBoard->SelStart() + 1;
    TextBoardRTF.setText(TextBoard->Text());
    TextBoardRTF.setSelStart(start);
    QString failure = "Word not found upto end of TextBoard.";
    std::optional<qsizetype> end;
    // Only a selection of several lines can be meant as a limit: within one line it is the last
    // hit.
    if (TextBoard->SelText().contains('\r')) {
        failure = "Word not found within selection.";
        end = start + TextBoard->SelLength();
        TextBoardRTF.setSelLength(TextBoard->SelLength());
    }
    const int options = (FindOpt[0]->isChecked() ? ::TextBoardRTF::WholeWord : 0) +
                        (FindOpt[1]->isChecked() ? ::TextBoardRTF::MatchCase : 0);
    const qsizetype position = TextBoardRTF.Find(FindText, start, end, options);
    if (position < 0) {
        ZndvMsg("\r\r\r" + inMessage(FindText) + "\r\r" + failure, "OK",
                ProductName + " Find Error", false, 1);
    } else {
        TextBoard->setSelStart(static_cast<int>(position));
        TextBoard->setSelLength(static_cast<int>(TextBoardRTF.SelLength()));
    }
    if (!FindFrame->isHidden())
        FindNextButton->setFocus();
}
