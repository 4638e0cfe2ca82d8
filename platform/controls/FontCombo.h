// The font picker: a combo box with an icon a row, whose letter keys jump to the first font of that
// letter instead of searching as you type. Positions count from 1; 0 is no position.
#pragma once

#include <QComboBox>
#include <QString>
#include <vector>

class FontCombo : public QComboBox
{
    Q_OBJECT

public:
    struct Item
    {
        QString Text;
        QString IconKey;
    };

    explicit FontCombo(QWidget *parent = nullptr);

    /// Takes all rows at once. Nothing is selected afterwards.
    void setItems(std::vector<Item> items);
    int ItemCount() const { return count(); }
    QString ItemText(int position) const { return itemText(position - 1); }

    /// Selects without running the selection handler; a position that does not exist changes
    /// nothing.
    void SelectItem(int position);
    int SelectedItem() const { return currentIndex() + 1; }
    /// The text that the box shows; empty while nothing is selected.
    QString Text() const { return currentText(); }

signals:
    /// The user selected a row.
    void Click();
    /// A key that stands for a character was pressed, with its code point.
    void CharacterKey(int key);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
