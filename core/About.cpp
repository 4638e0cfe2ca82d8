// The window's controls on its background, and the two ways of closing it.
#include "core/About.h"

#include "core/GlobalDeclarations.h"
#include "platform/controls/Icons.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

namespace {

constexpr double Width = 5640; // twips
constexpr double Height = 3330;

constexpr ControlRow Rows[] = {
    {"Background", "About", {0, 0, Width, Height}},
    {"ZendovaLogo", "Background", {360, 300, 960, 960}, "", "Zendova"},
    {"ZendovaName", "Background", {1560, 300, 3840, 600}},
    {"ZendovaVer", "Background", {1590, 930, 3810, 240}},
    {"Line1", "Background", {360, 1470, 4920, 30}},
    {"ZendovaAuthor", "Background", {240, 1605, 5160, 240}},
    {"Label3", "Background", {240, 1845, 5160, 240}},
    {"Label2", "Background", {240, 2085, 5160, 480}},
    {"Line2", "Background", {360, 2700, 4920, 30}},
    {"Label5", "Background", {240, 2880, 5160, 240}},
};

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

About::About(QWidget *parent) : FormDialog("About", Rows, Width, Height, parent)
{
    setWindowTitle("About Zendova");
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
    Background = Form.Make<QFrame>("Background");
    Background->setAccessibleName(windowTitle());
    Background->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Background->setAutoFillBackground(true);
    Background->setBackgroundRole(QPalette::Base);
    Background->setForegroundRole(QPalette::Text);
    Background->installEventFilter(this);

    ZendovaLogo = makeText("ZendovaLogo", {}, Qt::AlignCenter);
    const QSize logo = Form.scale().toPixels(Form.rect(ZendovaLogo)).size();
    ZendovaLogo->setPixmap(Icons::application().pixmap(logo, devicePixelRatioF()));
    ZendovaName = makeText("ZendovaName", {}, Qt::AlignLeft);
    QFont large = messageFont();
    large.setPointSizeF(22);
    large.setBold(true);
    ZendovaName->setFont(large);
    ZendovaVer = makeText("ZendovaVer", QString(VersionSuffix).trimmed(), Qt::AlignLeft);

    Line1 = makeRule("Line1");
    ZendovaAuthor =
        makeText("ZendovaAuthor", ": made with patience and a love of letters", Qt::AlignHCenter);
    Label3 = makeText("Label3", "and", Qt::AlignHCenter);
    Label2 = makeText("Label2",
                      "dedicated to the passion, commitment and generosity of all the freeware "
                      "coders I am indebted to and have learnt from.",
                      Qt::AlignHCenter);
    Label2->setWordWrap(true);
    Line2 = makeRule("Line2");
    Label5 = makeText("Label5", "Press any key or click on box to continue...", Qt::AlignHCenter);
}

QLabel *About::makeText(const char *name, const QString &text, Qt::Alignment alignment)
{
    QLabel *label = Form.MakeLabel(name, text, alignment);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::Text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

QFrame *About::makeRule(const char *name)
{
    auto *rule = Form.Make<QFrame>(name);
    rule->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    rule->setAttribute(Qt::WA_TransparentForMouseEvents);
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
    return FormDialog::event(event);
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
        return FormDialog::eventFilter(watched, event);
    }
}
