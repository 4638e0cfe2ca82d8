// The interfaces that the toolkit's bridge asks for. A cell of CharCells is no object: its
// interface is made at the first question, kept by the toolkit, and goes with the table's.
#include "platform/controls/Accessibility.h"

#include "platform/controls/CharCells.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace {

constexpr const char *RoleProperty = "AccessibleRole";

class CellInterface final : public QAccessibleInterface,
                            public QAccessibleTableCellInterface,
                            public QAccessibleActionInterface
{
public:
    CellInterface(CharCells *cells, int index) : Cells(cells), Index(index) {}

    bool isValid() const override { return Cells && Index < Cells->count(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return table()->window(); }
    QAccessibleInterface *parent() const override { return table(); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid())
            return {};
        switch (kind) {
        case QAccessible::Name:
            return Cells->reading(Index);
        case QAccessible::Description:
            return Cells->toolTip(Index);
        default:
            return {};
        }
    }
    void setText(QAccessible::Text, const QString &) override {}

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect pixels = Cells->pixels(Index);
        return QRect(Cells->mapToGlobal(pixels.topLeft()), pixels.size());
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.invisible = !Cells->isVisible();
        state.disabled = !Cells->isEnabled();
        state.selectable = true;
        state.selected = isSelected();
        state.active = isSelected();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface *>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    bool isSelected() const override { return isValid() && Cells->spokenCell() == Index; }
    QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return Index % Cells->columns(); }
    int rowIndex() const override { return Index / Cells->columns(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override
    {
        return QAccessible::queryAccessibleInterface(Cells);
    }

    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction() && isValid())
            emit Cells->MouseDown(Index, Qt::LeftButton, rect().center());
    }

private:
    QPointer<CharCells> Cells;
    int Index;
};

class TableInterface final : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit TableInterface(CharCells *cells) : QAccessibleWidget(cells, QAccessible::Table) {}
    ~TableInterface() override
    {
        for (const QAccessible::Id id : std::as_const(Made))
            QAccessible::deleteAccessibleInterface(id);
    }
    Q_DISABLE_COPY_MOVE(TableInterface)

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return cells()->count(); }
    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        if (const auto made = Made.constFind(index); made != Made.constEnd())
            return QAccessible::accessibleInterface(*made);
        auto *cell = new CellInterface(cells(), index);
        Made.insert(index, QAccessible::registerAccessibleInterface(cell));
        return cell;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return child(cells()->cellAt(cells()->mapFromGlobal(QPoint(x, y))));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return Made.key(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child)), -1);
    }
    QAccessibleInterface *focusChild() const override { return child(cells()->spokenCell()); }

    int columnCount() const override { return cells()->columns(); }
    int rowCount() const override
    {
        return (cells()->count() + cells()->columns() - 1) / cells()->columns();
    }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        const bool inside = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
        return inside ? child(row * columnCount() + column) : nullptr;
    }
    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }
    // Where no cell can be selected, it is the one that the mouse is over.
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface *> selectedCells() const override
    {
        QAccessibleInterface *active = focusChild();
        return active ? QList{active} : QList<QAccessibleInterface *>();
    }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent *) override {}

private:
    CharCells *cells() const { return static_cast<CharCells *>(object()); }

    mutable QHash<int, QAccessible::Id> Made;
};

/// A single cell: no table, but a sign.
class SignInterface final : public QAccessibleWidget
{
public:
    explicit SignInterface(CharCells *cells) : QAccessibleWidget(cells, QAccessible::StaticText) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Description)
            return static_cast<CharCells *>(object())->reading(0);
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *make(const QString &, QObject *object)
{
    if (auto *cells = qobject_cast<CharCells *>(object)) {
        if (cells->count() == 1)
            return new SignInterface(cells);
        return new TableInterface(cells);
    }
    const QVariant role = object->property(RoleProperty);
    if (role.isValid() && object->isWidgetType())
        return new QAccessibleWidget(static_cast<QWidget *>(object),
                                     static_cast<QAccessible::Role>(role.toInt()));
    return nullptr;
}

} // namespace

void setAccessibleRole(QWidget *control, QAccessible::Role role)
{
    installAccessibility();
    control->setProperty(RoleProperty, static_cast<int>(role));
}

void installAccessibility()
{
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(&make);
        return true;
    }();
}
