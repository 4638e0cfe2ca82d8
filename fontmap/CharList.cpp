// The list's model, how a character is painted, and how the keys move.
#include "fontmap/CharList.h"

#include "fontmap/CharInfo.h"
#include "platform/CodePage.h"
#include "platform/controls/CellGlyphs.h"
#include "platform/controls/DevicePixels.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>

class CharList::Codes : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(Items.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole)
            return CharacterOf(code(index.row()));
        if (role == Qt::AccessibleTextRole && TextOf)
            return TextOf(code(index.row()));
        return {};
    }

    int code(int position) const { return Items.at(static_cast<std::size_t>(position)); }

    /// The position of a code, or of the first greater one.
    int placeOf(int code) const
    {
        return static_cast<int>(std::ranges::lower_bound(Items, code) - Items.begin());
    }

    void set(std::vector<int> codes)
    {
        beginResetModel();
        Items = std::move(codes);
        endResetModel();
    }

    void insert(int code)
    {
        const int position = placeOf(code);
        beginInsertRows({}, position, position);
        Items.insert(Items.begin() + position, code);
        endInsertRows();
    }

    void remove(int position)
    {
        beginRemoveRows({}, position, position);
        Items.erase(Items.begin() + position);
        endRemoveRows();
    }

    std::function<QString(int)> TextOf;

private:
    std::vector<int> Items;
};

class CharList::Painter : public QStyledItemDelegate
{
public:
    explicit Painter(CharList *list) : QStyledItemDelegate(list), List(list), Glyphs(list->font())
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return List->gridSize();
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const DevicePixels device(painter->deviceTransform());
        const QRectF box = device.between(option.rect);
        const double line = device.line();
        // In the colours of a list that has the keyboard, so that it can be seen at any time.
        const bool selected = option.state & QStyle::State_Selected;
        const auto color = [&](QPalette::ColorRole role) {
            return option.palette.color(QPalette::Active, role);
        };
        if (selected)
            painter->fillRect(box, color(QPalette::Highlight));
        const QColor ink = color(selected ? QPalette::HighlightedText : QPalette::Text);
        if (selected && List->hasFocus()) {
            painter->setPen(QPen(ink, line, Qt::DotLine));
            const double middle = line * 1.5;
            painter->drawRect(box.adjusted(middle, middle, -middle, -middle));
        }
        Glyphs.paint(*painter, device, box, box,
                     List->Model->data(index, Qt::DisplayRole).toString(), ink);
    }

    CharList *List;
    CellGlyphs Glyphs;
};

CharList::CharList(QWidget *parent)
    : QListView(parent), Model(new Codes(this)), Delegate(new Painter(this))
{
    setModel(Model);
    setItemDelegate(Delegate);
    setFlow(QListView::TopToBottom);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The other one stays where it is when the characters run out, and so do the rows.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(this, &QListView::pressed, this, &CharList::Click);
}

void CharList::setCodes(std::vector<int> codes)
{
    Model->set(std::move(codes));
}

void CharList::insertCode(int code)
{
    Model->insert(code);
}

void CharList::removeItem(int position)
{
    const QScopedValueRollback quiet(Changing, true);
    Model->remove(position);
}

int CharList::ListCount() const
{
    return Model->rowCount();
}

void CharList::setListIndex(int position)
{
    {
        const QScopedValueRollback quiet(Changing, true);
        setCurrentIndex(Model->index(position));
    }
    emit Click();
}

int CharList::code(int position) const
{
    return Model->code(position);
}

void CharList::setColumns(int columns)
{
    ColumnsSeen = columns;
    layOut();
}

void CharList::setCharFont(const QFont &font)
{
    if (Delegate->Glyphs.setFont(font))
        layOut();
}

const QFont &CharList::charFont() const
{
    return Delegate->Glyphs.font();
}

void CharList::setReading(std::function<QString(int)> textOf)
{
    Model->TextOf = std::move(textOf);
}

/// A key that types a character selects it, as long as it is in the list: letters are not sought
/// without their case, as the toolkit would.
void CharList::keyboardSearch(const QString &search)
{
    const auto wanted =
        search.isEmpty() ? std::nullopt : CodePage::toCode(search.front().unicode());
    if (!wanted)
        return;
    const int position = Model->placeOf(*wanted);
    if (position < ListCount() && code(position) == *wanted)
        setListIndex(position);
}

void CharList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!Changing && current.isValid())
        emit Click();
}

QModelIndex CharList::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int last = ListCount() - 1;
    if (last < 0)
        return {};
    int position = ListIndex();
    switch (action) {
    case MoveUp:
    case MovePrevious:
        --position;
        break;
    case MoveDown:
    case MoveNext:
        ++position;
        break;
    case MoveLeft:
        position -= rowsSeen();
        break;
    case MoveRight:
        position += rowsSeen();
        break;
    case MovePageUp:
        position -= rowsSeen() * ColumnsSeen;
        break;
    case MovePageDown:
        position += rowsSeen() * ColumnsSeen;
        break;
    case MoveHome:
        position = 0;
        break;
    case MoveEnd:
        position = last;
        break;
    }
    return Model->index(std::clamp(position, 0, last));
}

/// One character is selected as long as there is one.
QItemSelectionModel::SelectionFlags CharList::selectionCommand(const QModelIndex &,
                                                               const QEvent *) const
{
    return QItemSelectionModel::ClearAndSelect;
}

void CharList::resizeEvent(QResizeEvent *event)
{
    layOut();
    QListView::resizeEvent(event);
}

void CharList::layOut()
{
    constexpr int air = 2; // pixels between the lines of text
    const int most = viewport()->height();
    const int height = static_cast<int>(std::ceil(Delegate->Glyphs.lineHeight())) + air;
    setGridSize(
        QSize(std::max(1, viewport()->width() / ColumnsSeen), std::max(1, std::min(height, most))));
    viewport()->update(); // another font may need the same room
    scrollTo(currentIndex());
}

int CharList::rowsSeen() const
{
    return std::max(1, viewport()->height() / gridSize().height());
}
