// The preview's controls, their places on the work area of now, and the caret's way in and out.
#include "textboard/TBPreview.h"

#include "core/GlobalDeclarations.h"
#include "platform/SysInfo.h"
#include "textboard/TextBoard.h"

#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <cmath>

namespace {

/// As made; they get their places from the work area.
constexpr ControlRow Rows[] = {
    {"Heading", "TBPreview", {60, 75, 3000, 240}},
    {"CloseButton", "TBPreview", {960, 585, 1230, 285}, "Close Preview"},
    {"PreviewTBHolder", "TBPreview", {75, 75, 1290, 960}},
    {"PreviewTB", "PreviewTBHolder", {105, 0, 2235, 1530}, "", "TextBoard Full Screen Preview"},
};

} // namespace

TBPreview::TBPreview(const TextBoard &board, QWidget *parent)
    : FormDialog("TBPreview", Rows, SysInfo::current().WorkAreaWidth(),
                 SysInfo::current().WorkAreaHeight(), parent)
{
    setWindowTitle(ProductName + " TextBoard Full Screen Preview");
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    createControls();
    coverWorkArea();
    showBoard(board);
    SetToolTips(ToolTipsOn);
    connect(&SysInfo::current(), &SysInfo::DisplayChanged, this, &TBPreview::coverWorkArea);
    PreviewTB->setFocus();
}

void TBPreview::createControls()
{
    Heading = Form.MakeLabel("Heading", windowTitle(), Qt::AlignLeft);
    PreviewTBHolder = Form.Make<QFrame>("PreviewTBHolder");
    // The margin beside the text belongs to its paper.
    QPalette paper = PreviewTBHolder->palette();
    paper.setColor(QPalette::Window, Qt::white);
    PreviewTBHolder->setPalette(paper);
    PreviewTBHolder->setAutoFillBackground(true);
    PreviewTB = new TextBoard(PreviewTBHolder, CatalogBoardFont);
    Form.Adopt(PreviewTB, "PreviewTB");
    PreviewTB->setFrameShape(QFrame::NoFrame);
    // The caret moves by keys and mouse, and what is typed changes nothing.
    PreviewTB->setReadOnly(true);
    PreviewTB->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    PreviewTB->installEventFilter(this);
    CloseButton = Form.Make<QPushButton>("CloseButton", "Close");
    connect(CloseButton, &QPushButton::clicked, this, &TBPreview::CloseButton_Click);
}

/// Moves the window over the work area; where that is not the program's affair, the desktop lays it
/// over the whole screen.
void TBPreview::coverWorkArea()
{
    const SysInfo &screen = SysInfo::current();
    Form.setScale(screen.scale());
    const QRect area = Form.scale().toPixels({screen.WorkAreaLeft(), screen.WorkAreaTop(),
                                              screen.WorkAreaWidth(), screen.WorkAreaHeight()});
    if (screen.PlacesWindows()) {
        setFixedSize(area.size());
        move(area.topLeft());
    } else {
        setMinimumSize(0, 0);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        setWindowState(Qt::WindowFullScreen);
    }
    placeControls();
}

void TBPreview::placeControls()
{
    const double width = this->width() * Form.TwipsX();
    const double height = this->height() * Form.TwipsY();
    const double closeWidth = Form.width(CloseButton);
    const double closeLeft = width - 60 - closeWidth;
    Form.place(Heading, {180, 75, closeLeft - 180 - 60, Form.height(Heading)});
    Form.place(CloseButton, {closeLeft, 45, closeWidth, Form.height(CloseButton)});
    Form.place(PreviewTBHolder, {60, 360, width - 120, height - 360});
    const double textLeft = Form.left(PreviewTB);
    Form.place(PreviewTB, {textLeft, 0, width - 120 - textLeft, height - 360});
}

void TBPreview::showBoard(const TextBoard &board)
{
    {
        const TextBoard::FontChange inOneGo(*PreviewTB);
        PreviewTB->setFontName(board.FontName());
        PreviewTB->setFontSize(board.FontSize());
        PreviewTB->setFontBold(board.FontBold());
        PreviewTB->setFontItalic(board.FontItalic());
        PreviewTB->setFontUnderline(board.FontUnderline());
        PreviewTB->setFontStrikethru(board.FontStrikethru());
    }
    PreviewTB->setForeColor(board.ForeColor());
    PreviewTB->setAlignment(board.Alignment());
    PreviewTB->setText(board.Text()); // last, so that it is laid out once
    PreviewTB->setSelStart(board.SelStart());
}

void TBPreview::showEvent(QShowEvent *event)
{
    FormDialog::showEvent(event);
    PreviewTB->ensureCursorVisible(); // now that its height is known
}

void TBPreview::resizeEvent(QResizeEvent *event)
{
    FormDialog::resizeEvent(event);
    placeControls();
}

bool TBPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == PreviewTB && event->type() == QEvent::FocusIn) {
        // A window or a menu that was in front gives the focus back: the caret stays.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            PreviewTB_GotFocus();
    }
    if (watched == PreviewTB && event->type() == QEvent::KeyPress)
        return takeKey(static_cast<QKeyEvent &>(*event));
    return FormDialog::eventFilter(watched, event);
}

/// The keys that the board leaves to the window's commands, of which there are none here.
bool TBPreview::takeKey(QKeyEvent &key)
{
    if (key.matches(QKeySequence::Copy))
        PreviewTB->copy();
    else if (key.matches(QKeySequence::SelectAll))
        PreviewTB->selectAll();
    else if (key.matches(QKeySequence::InsertParagraphSeparator))
        key.ignore(); // a text that can't be changed leaves it to the button
    else
        return false;
    return true;
}

void TBPreview::PreviewTB_GotFocus()
{
    PreviewTB->setSelStart(static_cast<int>(std::lround(TextSelStart)));
}

void TBPreview::CloseButton_Click()
{
    TextSelStart = PreviewTB->SelStart();
    accept();
}
