// Buttons that never take the focus: a click leaves the caret where the user types.
#include "platform/controls/Toolbar.h"

#include "platform/controls/Accessibility.h"
#include "platform/controls/Icons.h"

#include <QFrame>
#include <QHBoxLayout>

namespace {

constexpr int ButtonSide = 22; // pixels: a picture of 16 and its frame
constexpr int PictureSide = 16;
constexpr int ArrowWidth = 11; // pixels; wider, the button would not fit its band

} // namespace

Toolbar::Toolbar(QWidget *parent) : QWidget(parent), Row(new QHBoxLayout(this))
{
    Row->setContentsMargins(0, 0, 0, 0);
    Row->setSpacing(0);
    Row->addStretch();
    setAccessibleRole(this, QAccessible::ToolBar);
}

QToolButton *Toolbar::addButton(const ButtonLook &look)
{
    auto *button = new QToolButton(this);
    button->setObjectName(look.Key);
    button->setAccessibleName(look.Tag);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCheckable(look.ButtonKind == Kind::Check);
    button->setIconSize(QSize(PictureSide, PictureSide));
    button->setFixedSize(ButtonSide, ButtonSide);
    if (look.ButtonKind == Kind::DropDown) {
        button->setPopupMode(QToolButton::MenuButtonPopup);
        button->setMenu(new QMenu(button));
        button->setFixedWidth(ButtonSide + ArrowWidth);
    }
    Row->insertWidget(Row->count() - 1, button);
    Buttons.insert(look.Key, {button, look.Image, look.Tag});
    return button;
}

void Toolbar::addSeparator()
{
    auto *line = new QFrame(this);
    setAccessibleRole(line, QAccessible::Separator);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFixedSize(8, ButtonSide - 6);
    Row->insertWidget(Row->count() - 1, line);
}

void Toolbar::addPlaceholder(QWidget *container, int stretch)
{
    container->setParent(this);
    Row->insertWidget(0, container, stretch);
}

QToolButton *Toolbar::button(const QString &key) const
{
    QToolButton *found = Buttons.value(key).Control;
    Q_ASSERT(found);
    return found;
}

void Toolbar::showPictures()
{
    for (const Button &button : std::as_const(Buttons))
        if (!button.Image.isEmpty())
            button.Control->setIcon(Icons::icon(button.Image));
}

void Toolbar::setToolTips(bool on)
{
    for (const Button &button : std::as_const(Buttons))
        button.Control->setToolTip(on ? button.Tag : QString());
}
