// A row of small buttons, each under a key: the master copy of a command's state. Separators and
// containers stand among them.
#pragma once

#include <QHash>
#include <QMenu>
#include <QString>
#include <QToolButton>
#include <QWidget>

class QHBoxLayout;

class Toolbar : public QWidget
{
    Q_OBJECT

public:
    explicit Toolbar(QWidget *parent = nullptr);

    /// A DropDown is a push button with an arrow beside it that opens the button's menu.
    enum class Kind { Push, Check, DropDown };
    struct ButtonLook
    {
        const char *Key;
        const char *Image; ///< key of its picture; empty for a button that gets it elsewhere
        const char *Tag;   ///< tooltip that can be switched off; also what is told of the button
        Kind ButtonKind = Kind::Push;
    };
    QToolButton *addButton(const ButtonLook &look);
    void addSeparator();
    /// Puts a container in front of the buttons. It keeps its own size, unless it has a stretch
    /// above 0: then it takes the room that is left.
    void addPlaceholder(QWidget *container, int stretch = 0);

    /// The button under a key; there must be one.
    QToolButton *button(const QString &key) const;
    void enableButton(const QString &key, bool on) { button(key)->setEnabled(on); }

    QString tag(const QString &key) const { return Buttons.value(key).Tag; }

    void showPictures();
    /// Every button's tag as its tooltip, or none.
    void setToolTips(bool on);

private:
    struct Button
    {
        QToolButton *Control = nullptr;
        QString Image;
        QString Tag;
    };
    QHBoxLayout *Row;
    QHash<QString, Button> Buttons;
};

/// A button of a window or panel, and what a click does in its owner. An empty key is a separator.
template<class Owner>
struct ButtonRow
{
    Toolbar *Owner::*Bar;
    Toolbar::ButtonLook Look;
    void (*Action)(Owner &) = nullptr;
    void (*FillMenu)(Owner &) = nullptr; ///< for a drop-down: runs each time before it opens
};

/// Fills the owner's toolbars, which are made already, with the buttons of the rows in their order.
template<class Owner, std::size_t Count>
void AddButtons(Owner &owner, const ButtonRow<Owner> (&rows)[Count])
{
    for (const ButtonRow<Owner> &row : rows) {
        Toolbar *bar = owner.*row.Bar;
        if (!*row.Look.Key) {
            bar->addSeparator();
            continue;
        }
        QToolButton *button = bar->addButton(row.Look);
        QObject::connect(button, &QToolButton::clicked, &owner,
                         [&owner, action = row.Action] { action(owner); });
        if (row.FillMenu)
            QObject::connect(button->menu(), &QMenu::aboutToShow, &owner,
                             [&owner, fill = row.FillMenu] { fill(owner); });
    }
}
