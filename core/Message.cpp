// The message dialog: an area of fixed size, one or two buttons and the box that silences a
// warning.
#include "core/Message.h"

#include "core/ColorScheme.h"
#include "core/GlobalDeclarations.h"
#include "platform/FileName.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
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

/// The same with invisible places to break a line (U+200B) in words too long for one, as file names
/// can be: they would be cut off at both ends.
QString withBreaks(const QString &text)
{
    constexpr int most = 30; // characters that fit whatever they are
    QString result;
    int inWord = 0;
    for (const QChar c : text) {
        inWord = c.isSpace() ? 0 : inWord + 1;
        result += c;
        if (inWord >= most && !c.isHighSurrogate()) {
            result += QChar(0x200B);
            inWord = 0;
        }
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
    MessageArea->setText(withBreaks(MsgText).replace('\r', '\n'));
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
    default:
        break;
    }
    FormDialog::keyPressEvent(event);
}
