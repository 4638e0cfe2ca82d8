// The window's controls on its background, and the two ways of closing it.
#include "core/About.h"

#include "core/GlobalDeclarations.h"
#include "platform/FontCatalog.h"
#include "platform/SysInfo.h"
#include "platform/controls/Icons.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

namespace {

constexpr TwipRect ClientSize = {0, 0, 5640, 3330};

/// The font of the messages, where it is installed.
QFont nameFont()
{
    QFont font = TwipForm::font();
    if (constexpr auto name = "Verdana"; FontCatalog::current().contains(name)) {
        font = FontCatalog::current().font(name);
        font.setStyleStrategy(QFont::PreferDefault);
    }
    font.setPointSizeF(22);
    font.setBold(true);
    return font;
}

/// Held down on the way to another key, or to another window: no answer to "press any key".
bool isModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return true;
    default:
        return false;
    }
}

} // namespace

About::About(QWidget *parent) : QDialog(parent), Form(SysInfo::current().scale())
{
    setFont(TwipForm::font());
    setWindowTitle("About Zendova");
    setFixedSize(Form.scale().toPixels(ClientSize).size());
    createControls();
    ZendovaName->setText(ProductName);
    ZendovaAuthor->setText(CreditLine + ZendovaAuthor->text());
    QStringList texts;
    for (const QLabel *label : {ZendovaName, ZendovaVer, ZendovaAuthor, Label3, Label2, Label5})
        texts += label->text();
    setAccessibleDescription(texts.join(' '));
}

void About::createControls()
{
    Background = new QFrame(this);
    Background->setObjectName("Background");
    Background->setAccessibleName(windowTitle());
    Background->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Background->setAutoFillBackground(true);
    Background->setBackgroundRole(QPalette::Base);
    Background->setForegroundRole(QPalette::Text);
    Background->installEventFilter(this);
    Form.place(Background, ClientSize);

    ZendovaLogo = makeLabel("ZendovaLogo", {360, 300, 960, 960}, {}, Qt::AlignCenter);
    ZendovaLogo->setAccessibleName("Zendova");
    const QSize logo = Form.scale().toPixels(Form.rect(ZendovaLogo)).size();
    ZendovaLogo->setPixmap(Icons::application().pixmap(logo, devicePixelRatioF()));
    ZendovaName = makeLabel("ZendovaName", {1560, 300, 3840, 600}, {}, Qt::AlignLeft);
    ZendovaName->setFont(nameFont());
    ZendovaVer = makeLabel("ZendovaVer", {1590, 930, 3810, 240}, QString(VersionSuffix).trimmed(),
                           Qt::AlignLeft);

    Line1 = makeRule("Line1", {360, 1470, 4920, 30});
    ZendovaAuthor = makeLabel("ZendovaAuthor", {240, 1605, 5160, 240},
                              ": made with patience and a love of letters", Qt::AlignHCenter);
    Label3 = makeLabel("Label3", {240, 1845, 5160, 240}, "and", Qt::AlignHCenter);
    Label2 = makeLabel("Label2", {240, 2085, 5160, 480},
                       "dedicated to the passion, commitment and generosity of all the freeware "
                       "coders I am indebted to and have learnt from.",
                       Qt::AlignHCenter);
    Label2->setWordWrap(true);
    Line2 = makeRule("Line2", {360, 2700, 4920, 30});
    Label5 = makeLabel("Label5", {240, 2880, 5160, 240},
                       "Press any key or click on box to continue...", Qt::AlignHCenter);
}

QLabel *About::makeLabel(const char *name, const TwipRect &place, const QString &text,
                         Qt::Alignment alignment)
{
    auto *label = new QLabel(text, Background);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->setForegroundRole(QPalette::Text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    Form.place(label, place);
    return label;
}

QFrame *About::makeRule(const char *name, const TwipRect &place)
{
    auto *rule = new QFrame(Background);
    rule->setObjectName(name);
    rule->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    rule->setAttribute(Qt::WA_TransparentForMouseEvents);
    Form.place(rule, place);
    return rule;
}

bool About::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        // The key that opened the window may still be held down.
        if (!key->isAutoRepeat() && !isModifier(key->key()))
            accept();
        return true;
    }
    return QDialog::event(event);
}

bool About::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        Pressed = static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
        return true;
    case QEvent::MouseButtonRelease: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (Pressed && mouse->button() == Qt::LeftButton &&
            Background->rect().contains(mouse->position().toPoint()))
            accept();
        return true;
    }
    default:
        return QDialog::eventFilter(watched, event);
    }
}
