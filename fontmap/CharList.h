// The list of characters in the map editor: in code order, down each column and on into the next,
// all in one font. Knows codes and glyphs, no map.
#pragma once

#include <QListView>
#include <functional>
#include <vector>

class CharList : public QListView
{
    Q_OBJECT

public:
    explicit CharList(QWidget *parent);

    /// The characters' codes, 32 to 255, each behind the smaller ones. Nothing is selected
    /// afterwards.
    void setCodes(std::vector<int> codes);
    /// Takes a character in at its place; the selected one stays selected.
    void insertCode(int code);
    /// Takes out the character at a position. What is selected then is the caller's affair.
    void removeItem(int position);

    int ListCount() const;
    /// The selected position, from 0; -1 for none.
    int ListIndex() const { return currentIndex().row(); }
    /// Selects and shows a position that is there, which counts as a click.
    void setListIndex(int position);
    int code(int position) const;

    /// How many columns are seen at once.
    int Columns() const { return ColumnsSeen; }
    void setColumns(int columns);

    /// The font of the characters. It must not merge glyphs from other fonts.
    void setCharFont(const QFont &font);
    const QFont &charFont() const;
    /// What assistive tools are told of a character.
    void setReading(std::function<QString(int code)> textOf);

    void keyboardSearch(const QString &search) override;

signals:
    /// A character was selected, by hand or by code, or pressed again.
    void Click();

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class Codes;
    class Painter;
    void layOut();
    int rowsSeen() const;

    Codes *Model;
    Painter *Delegate;
    int ColumnsSeen = 1;
    bool Changing = false; ///< the selection moves, but nobody clicks
};
