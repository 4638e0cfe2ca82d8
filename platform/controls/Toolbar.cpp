// Buttons that never take the focus: a click leaves the caret where the user types.
#include "platform/controls/Toolbar.h"

#include "platform/controls/Accessibility.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>

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

QToolButton *Toolbar::addButton(const QString &key, Kind kind)
{
    auto *button = new QToolButton(this);
    button->setObjectName(key);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCheckable(kind == Kind::Check);
    button->setIconSize(QSize(PictureSide, PictureSide));
    button->setFixedSize(ButtonSide, ButtonSide);
    if (kind == Kind::DropDown) {
        button->setPopupMode(QToolButton::MenuButtonPopup);
        button->setMenu(new QMenu(button));
        button->setFixedWidth(ButtonSide + ArrowWidth);
    }
    Row->insertWidget(Row->count() - 1, button);
    Buttons.insert(key, button);
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

void Toolbar::addPlaceholder(const QString &key, QWidget *container)
{
    container->setParent(this);
    container->setProperty("key", key);
    Row->insertWidget(0, container);
}

QToolButton *Toolbar::button(const QString &key) const
{
    QToolButton *found = Buttons.value(key);
    Q_ASSERT(found);
    return found;
}
