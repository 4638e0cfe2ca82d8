// The message dialog: an area of fixed size, in which a long text is scrolled, one or two buttons
// and the box that silences a warning.
#include "core/Message.h"

#include "core/ColorScheme.h"
#include "core/GlobalDeclarations.h"
#include "platform/FileName.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace {

constexpr double Width = 5475; // twips
constexpr double Height = 2310;
constexpr TwipRect FirstPlace = {2790, 1950, 1290, 330};
constexpr TwipRect SecondPlace = {4140, 1950, 1290, 330};

constexpr ControlRow Rows[] = {
    {"MessageArea", "Message", {15, 60, 5445, 1845}},
    {"Button1", "Message", FirstPlace},
    {"Button2", "Message", SecondPlace},
    // Up to the first button: in some desktops' fonts the caption needs all of it.
    {"DisplayAgainCheck", "Message", {105, 1980, 2655, 270}},
};

constexpr QChar BreakPlace(0x200B);      // a line may end at this invisible space
constexpr QChar LeftToRightMark(0x200E); // as a letter of a left-to-right script, but invisible

/// The same with invisible places to break a line behind separators of folders and in words too
/// long for one, as file names can be: they would be cut off at both ends. Neighbouring folders in
/// a right-to-left script keep their order.
QString withBreaks(const QString &text)
{
    constexpr int most = 30; // characters that fit whatever they are
    QString result;
    int inWord = 0;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype from = 0, to = characters.toNextBoundary(); to >= 0;
         from = to, to = characters.toNextBoundary()) {
        const QStringView character = QStringView(text).sliced(from, to - from);
        result += character;
        inWord = character.front().isSpace() ? 0 : inWord + 1;
        if (character == u'/')
            (result += LeftToRightMark) += BreakPlace;
        else if (inWord == most)
            result += BreakPlace;
        if (character == u'/' || inWord == most)
            inWord = 0;
    }
    return result;
}

/// The window that a message belongs to: the one that the user works in, or the program's only one
/// while he works in another program; null before there is one.
QWidget *windowInFront()
{
    if (QWidget *active = QApplication::activeModalWidget())
        return active;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto visible = std::ranges::find_if(
        windows, [](const QWidget *w) { return w->isVisible() && w->windowType() == Qt::Window; });
    return visible == windows.end() ? nullptr : *visible;
}

} // namespace

void ZndvMsg(const QString &MsgText, const QString &Buttons, const QString &Title, bool ShowCheck,
             int DefaultButton)
{
    MsgResult = false;
    MsgDontRepeat = false;
    MsgOkMode = Buttons == "OK";
    Message dialog(FileName::shown(MsgText), Buttons, Title, ShowCheck, DefaultButton,
                   windowInFront());
    dialog.exec();
}

bool IsDialogOpen()
{
    return QApplication::activeModalWidget() != nullptr;
}

Message::Message(const QString &MsgText, const QString &Buttons, const QString &Title,
                 bool ShowCheck, int DefaultButton, QWidget *parent)
    : FormDialog("Message", Rows, Width, Height, parent)
{
    createControls();
    WearColorScheme({MessageArea});
    setWindowTitle(Title);
    showText(withBreaks(MsgText).replace('\r', '\n'));
    MessageArea->setAccessibleName(MsgText.simplified());
    setAccessibleDescription(MsgText.simplified());
    if (Buttons == "OK") {
        Button1->setText("Ok");
        Form.place(Button1, SecondPlace);
        Button2->hide();
    } else if (Buttons == "YN") {
        Button1->setText("Yes");
        Button2->setText("No");
    }
    DisplayAgainCheck->setVisible(ShowCheck);
    QPushButton *first = DefaultButton == 1 || Buttons == "OK" ? Button1 : Button2;
    first->setDefault(true);
    first->setFocus();
    if (first == Button2) {
        setTabOrder(Button2, Button1);
        setTabOrder(Button1, DisplayAgainCheck);
    }
}

/// Blank lines that only move a short text to the middle make room for a long one; what needs more
/// room than that is scrolled.
void Message::showText(QString text)
{
    const auto isTooHigh = [this] {
        return MessageArea->heightForWidth(MessageArea->width()) > MessageArea->height();
    };
    MessageArea->setText(text);
    while (text.startsWith('\n') && isTooHigh())
        MessageArea->setText(text.remove(0, 1));
    if (!isTooHigh())
        return;
    Scroll = new QScrollArea(this);
    Scroll->setFrameStyle(MessageArea->frameStyle());
    Scroll->setFocusPolicy(Qt::NoFocus); // keys come by keyPressEvent, whatever has the focus
    Scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Scroll->setWidgetResizable(true);
    Form.place(Scroll, Form.rect(MessageArea));
    MessageArea->setFrameStyle(QFrame::NoFrame);
    Scroll->setWidget(MessageArea);
}

void Message::createControls()
{
    setFont(messageFont());
    MessageArea = Form.Make<QLabel>("MessageArea");
    MessageArea->setTextFormat(Qt::PlainText);
    MessageArea->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    MessageArea->setWordWrap(true);
    MessageArea->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Button1 = Form.Make<QPushButton>("Button1");
    Button2 = Form.Make<QPushButton>("Button2");
    DisplayAgainCheck = Form.Make<QCheckBox>("DisplayAgainCheck", "Do not display again");
    DisplayAgainCheck->setToolTip("Check not to display this message again");

    connect(Button1, &QPushButton::clicked, this, [this] {
        MsgResult = true;
        accept();
    });
    connect(Button2, &QPushButton::clicked, this, &QDialog::reject);
    connect(DisplayAgainCheck, &QCheckBox::clicked, this,
            [](bool checked) { MsgDontRepeat = checked; });
    // A notice closes at any key of a character, before the control that has the focus takes it.
    for (QWidget *control : {static_cast<QWidget *>(Button1), static_cast<QWidget *>(Button2),
                             static_cast<QWidget *>(DisplayAgainCheck)})
        control->installEventFilter(this);
}

bool Message::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->isAutoRepeat()) // still held from before, when there was nothing to answer
            return true;
        if (!MsgOkMode)
            return FormDialog::eventFilter(watched, event);
        const bool moves = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Delete;
        if (!key->text().isEmpty() && !moves) {
            reject();
            return true;
        }
    }
    return FormDialog::eventFilter(watched, event);
}

void Message::keyPressEvent(QKeyEvent *event)
{
    // A question is answered by its buttons and its close box alone: Esc is no answer, and Enter
    // one only on a button, which takes it before it comes here.
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!MsgOkMode)
            return;
        break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        if (Scroll)
            QCoreApplication::sendEvent(Scroll->verticalScrollBar(), event);
        return;
    default:
        break;
    }
    FormDialog::keyPressEvent(event);
}
