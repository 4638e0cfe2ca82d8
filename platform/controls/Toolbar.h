// A row of small buttons, each under a key: the master copy of a command's state. Separators and
// containers stand among them.
#pragma once

#include <QHash>
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
    QToolButton *addButton(const QString &key, Kind kind);
    void addSeparator();
    /// Puts a container in front of the buttons; it keeps its own size.
    void addPlaceholder(const QString &key, QWidget *container);

    /// The button under a key; there must be one.
    QToolButton *button(const QString &key) const;

private:
    QHBoxLayout *Row;
    QHash<QString, QToolButton *> Buttons;
};
