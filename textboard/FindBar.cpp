// Opening and closing the bar, what its controls do, and the search.
#include "textboard/FindBar.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/controls/Accessibility.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"
#include "textboard/TextBoardRTF.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <algorithm>

namespace {

constexpr ControlRow Rows[] = {
    // As wide as some desktops' fonts need it.
    {"FindStrLabel", "FindFrame", {60, 60, 480, 225}},
    {"FindString", "FindFrame", {555, 0, 2730, 345}},
    {"FindNextButton", "FindFrame", {3375, 15, 990, 315}},
    {"ClearFindButton", "FindFrame", {4455, 15, 990, 315}},
    {"FindOpt0", "FindFrame", {5535, 15, 1335, 315}},
    {"FindOpt1", "FindFrame", {6975, 15, 1335, 315}},
    {"CloseFindButton", "FindFrame", {8355, 15, 990, 315}},
};
constexpr double Height = 345; // twips, of the bar

/// Without the blanks at both ends; other white space stays.
QString withoutBlanks(const QString &text)
{
    const auto isBlank = [](QChar c) { return c == ' '; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), text.rend(), isBlank).base();
    return first < last ? QString(first, last - first) : QString();
}

/// As a message shows what was looked for, and as a line is read out: in one paragraph, as in the
/// box, and no longer than leaves room for the reason below it.
QString inMessage(const QString &text)
{
    constexpr qsizetype most = 120; // characters
    const QString shown =
        withoutBlanks(text).replace("\r\n", " ").replace('\r', ' ').replace('\n', ' ');
    return shown.size() > most ? shown.left(most) + u'\u2026' : shown;
}

/// The box's own menu, without the keys that belong to the board's commands in the find bar too.
void offerBoxMenu(QLineEdit *box, const QPoint &at)
{
    const auto isOfBox = [](const QKeySequence &key) {
        return key.matches(QKeySequence(QKeySequence::Undo)) == QKeySequence::ExactMatch ||
               key.matches(QKeySequence(QKeySequence::Redo)) == QKeySequence::ExactMatch;
    };
    QMenu *menu = box->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *item : menu->actions()) {
        const QString key = item->text().section('\t', 1);
        if (!key.isEmpty() && !isOfBox(QKeySequence(key, QKeySequence::NativeText)))
            item->setText(item->text().section('\t', 0, 0));
    }
    menu->popup(at);
}

} // namespace

FindBar::FindBar(const TwipScale &scale, ::TextBoard &board, ::TextBoardRTF &buffer,
                 QWidget *parent)
    : QWidget(parent), Board(board), Buffer(buffer), Form(Rows, "FindFrame", this, scale)
{
    hide();
    createControls();
    connectControls();
    FindString_Change();
}

void FindBar::createControls()
{
    QLabel *label = Form.MakeLabel("FindStrLabel", "Find:", Qt::AlignLeft);
    FindString = Form.Make<FindBox>("FindString");
    FindString->setToolTip("Enter a serch string");
    FindString->setAccessibleName("Find");
    label->setBuddy(FindString);
    const auto button = [this](const char *name, const char *caption, const char *toolTip) {
        auto *made = Form.Make<QPushButton>(name, caption);
        made->setToolTip(toolTip);
        made->setAutoDefault(true); // takes Enter while it has the focus
        return made;
    };
    FindNextButton = button("FindNextButton", "Find Next", "Find the next occurance");
    ClearFindButton = button("ClearFindButton", "Clear", "Clear search field");
    ClearFindButton->setFocusPolicy(Qt::NoFocus);
    CloseFindButton = button("CloseFindButton", "Close", "Close Find bar");
    FindOpt[0] = Form.Make<QCheckBox>("FindOpt0", "Whole Word");
    FindOpt[0]->setToolTip("Check to search as whole word");
    FindOpt[1] = Form.Make<QCheckBox>("FindOpt1", "Match Case");
    FindOpt[1]->setToolTip("Check for a case-sensitive search");
    EditFindAgain = ControlTable::MakeCommand(this, "EditFindAgain");
}

void FindBar::connectControls()
{
    FindString->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(FindString, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &at) { offerBoxMenu(FindString, FindString->mapToGlobal(at)); });
    connect(FindString, &FindBox::textChanged, this, &FindBar::FindString_Change);
    connect(FindString, &FindBox::returnPressed, FindNextButton, &QPushButton::click);
    connect(FindNextButton, &QPushButton::clicked, this, &FindBar::FindNextButton_Click);
    connect(ClearFindButton, &QPushButton::clicked, this, &FindBar::ClearFindButton_Click);
    connect(CloseFindButton, &QPushButton::clicked, this, &FindBar::CloseFindButton_Click);
    connect(EditFindAgain, &QAction::triggered, this, &FindBar::EditFindAgain_Click);
    for (QCheckBox *option : FindOpt) {
        auto *enter = new QShortcut(option);
        enter->setKeys({Qt::Key_Return, Qt::Key_Enter});
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, FindNextButton, &QPushButton::click);
    }
    auto *escape = new QShortcut(Qt::Key_Escape, this);
    BoardEscape = new QShortcut(Qt::Key_Escape, &Board);
    BoardEscape->setEnabled(false);
    for (QShortcut *shortcut : {escape, BoardEscape}) {
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, &FindBar::CloseFindButton_Click);
    }
}

// Opening and closing

void FindBar::ShowFindBar(int Value)
{
    if (Value != 1) {
        close();
        return;
    }
    if (isHidden()) {
        emit RoomWanted(Height + 2 * Form.TwipsY());
        show();
        BoardEscape->setEnabled(true);
        Board.ensureCursorVisible();
    }
    FindString->setText(Board.SelText());
    FindString->selectAll();
    FindString->setFocus();
}

void FindBar::close()
{
    if (isHidden())
        return;
    if (isAncestorOf(window()->focusWidget()))
        Board.setFocus();
    emit RoomWanted(0);
    hide();
    BoardEscape->setEnabled(false);
}

void FindBar::CloseFindButton_Click()
{
    emit Closed();
    ShowFindBar(0);
    Board.setFocus();
}

void FindBar::Stretch(double width)
{
    // On a dense screen a pixel has fewer twips than the buttons were drawn for, and they would lie
    // on each other.
    constexpr double designPixel = 15;
    const double pixel = std::max(Form.TwipsX(), designPixel);
    const double next = width - 400 * pixel;
    Form.setWidth(FindString, std::max(0.0, width - 443 * pixel));
    Form.setLeft(FindNextButton, next);
    Form.setLeft(ClearFindButton, next + 72 * pixel);
    Form.setLeft(FindOpt[0], next + 144 * pixel);
    Form.setLeft(FindOpt[1], next + 240 * pixel);
    Form.setLeft(CloseFindButton, next + 332 * pixel);
}

bool FindBar::FindHasFocus() const
{
    return window()->focusWidget() == FindString;
}

// The search

void FindBar::FindString_Change()
{
    const bool something = !FindString->text().isEmpty();
    ClearFindButton->setEnabled(something);
    FindNextButton->setEnabled(something);
}

void FindBar::ClearFindButton_Click()
{
    FindString->clear();
    FindString->setFocus();
}

void FindBar::FindNextButton_Click()
{
    FindText = FindString->text();
    EditFindAgain->setEnabled(true);
    FindInBoard();
}

void FindBar::EditFindAgain_Click()
{
    if (!FindText.isEmpty())
        FindInBoard();
}

void FindBar::FindInBoard()
{
    // One behind the caret or the selection's start, so that each search goes on from the last hit.
    const int start = Board.SelStart() + 1;
    Buffer.setText(Board.Text());
    Buffer.setSelStart(start);
    QString failure = "Word not found upto end of TextBoard.";
    std::optional<qsizetype> end;
    // Only a selection of several lines can be meant as a limit: within one line it is the last
    // hit.
    if (Board.SelText().contains('\r')) {
        failure = "Word not found within selection.";
        end = start + Board.SelLength();
        Buffer.setSelLength(Board.SelLength());
    }
    const int options = (FindOpt[0]->isChecked() ? ::TextBoardRTF::WholeWord : 0) +
                        (FindOpt[1]->isChecked() ? ::TextBoardRTF::MatchCase : 0);
    const qsizetype position = Buffer.Find(FindText, start, end, options);
    if (position < 0) {
        ZndvMsg("\r\r\r" + inMessage(FindText) + "\r\r" + failure, "OK",
                ProductName + " Find Error", false, 1);
    } else {
        Board.setSelStart(static_cast<int>(position));
        Board.setSelLength(static_cast<int>(Buffer.SelLength()));
        const QTextBlock line = Board.textCursor().block();
        announce(this, QString("Found in line %1: %2")
                           .arg(line.blockNumber() + 1)
                           .arg(inMessage(line.text())));
    }
    if (!isHidden())
        FindNextButton->setFocus();
}
