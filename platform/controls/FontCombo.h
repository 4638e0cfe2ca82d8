// The font picker: a combo box with an icon a row, whose letter keys jump to the first font of that
// letter instead of searching as you type. Positions count from 1; 0 is no position.
#pragma once

#include "platform/controls/FontItems.h"

#include <QComboBox>
#include <QString>

class FontCombo : public QComboBox
{
    Q_OBJECT

public:
    using Item = FontItem;

    explicit FontCombo(QWidget *parent = nullptr);

    /// Takes all rows at once. Nothing is selected afterwards.
    void setItems(std::vector<Item> items);
    int ItemCount() const { return count(); }
    QString ItemText(int position) const { return itemText(position - 1); }
    /// Of the item with exactly this text; 0 if there is none.
    int PositionOf(const QString &text) const { return findText(text) + 1; }

    /// Selects without running the selection handler; a position that does not exist changes
    /// nothing.
    void SelectItem(int position);
    int SelectedItem() const { return currentIndex() + 1; }
    /// The text that the box shows; empty while nothing is selected.
    QString Text() const { return currentText(); }

    /// The keys that jump, by their code points; 65 to 122 at first, in which the six characters
    /// between "Z" and "a" lie too. Any other key that stands for a character selects again what
    /// is selected, so that the open list shows it.
    void setJumpKeys(int first, int last);

    void showPopup() override;
    /// Gives the open list the desktop's font as it is now; the box keeps its form's.
    void wearDesktopFont();

signals:
    /// The user selected a row, or pressed a jump key, whether or not a row begins with it.
    void Click();
    /// A row was taken from the open list, also the one that was selected before; comes behind
    /// Click. Keys on the closed box take none.
    void TakenFromList();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    class ListView;
    void takeCharacter(int key);

    bool ListWasOpened = false; ///< since the last key or turn of the wheel on the closed box
    int FirstJumpKey = 65;
    int LastJumpKey = 122;
};
