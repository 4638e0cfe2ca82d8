// The interfaces that the toolkit's bridge asks for. A cell is no object: its interface is made at
// the first question, kept by the toolkit, and goes with the table's.
#include "platform/controls/Accessibility.h"

#include <QAccessibleWidget>
#include <QFrame>
#include <QHash>
#include <QPointer>
#include <algorithm>

namespace {

constexpr const char *RoleProperty = "AccessibleRole";

class CellInterface final : public QAccessibleInterface,
                            public QAccessibleTableCellInterface,
                            public QAccessibleActionInterface
{
public:
    CellInterface(QWidget *widget, SpokenCells *cells, int index)
        : Widget(widget), Cells(cells), Index(index)
    {
    }

    bool isValid() const override { return Widget && Index < Cells->spokenCount(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return table()->window(); }
    QAccessibleInterface *parent() const override { return table(); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid())
            return {};
        switch (kind) {
        case QAccessible::Name:
            return Cells->spokenName(Index);
        case QAccessible::Description:
            return Cells->spokenDescription(Index);
        default:
            return {};
        }
    }
    void setText(QAccessible::Text, const QString &) override {}

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect pixels = Cells->spokenPlace(Index);
        return QRect(Widget->mapToGlobal(pixels.topLeft()), pixels.size());
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid)
            return state;
        state.invisible = !Widget->isVisible();
        state.disabled = !Widget->isEnabled();
        state.focusable = Widget->focusPolicy() != Qt::NoFocus;
        state.selectable = true;
        state.selected = isSelected();
        state.active = isSelected();
        state.focused = isSelected() && Widget->hasFocus();
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
    int columnIndex() const override { return Index % Cells->spokenColumns(); }
    int rowIndex() const override { return Index / Cells->spokenColumns(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override
    {
        return QAccessible::queryAccessibleInterface(Widget);
    }

    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction() && isValid())
            Cells->pressCell(Index);
    }

private:
    QPointer<QWidget> Widget;
    SpokenCells *Cells; ///< the widget
    int Index;
};

/// A list in rows, as the toolkit tells its views of icons. In a table, screen readers read a whole
/// row at each step up or down.
class TableInterface final : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    TableInterface(QWidget *widget, SpokenCells *cells)
        : QAccessibleWidget(widget, QAccessible::List), Cells(cells)
    {
    }
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

    int childCount() const override { return Cells->spokenCount(); }
    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        if (const auto made = Made.constFind(index); made != Made.constEnd())
            return QAccessible::accessibleInterface(*made);
        auto *cell = new CellInterface(widget(), Cells, index);
        Made.insert(index, QAccessible::registerAccessibleInterface(cell));
        return cell;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return child(Cells->spokenAt(widget()->mapFromGlobal(QPoint(x, y))));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return Made.key(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child)), -1);
    }
    QAccessibleInterface *focusChild() const override { return child(Cells->spokenCell()); }

    int columnCount() const override { return Cells->spokenColumns(); }
    int rowCount() const override { return (childCount() + columnCount() - 1) / columnCount(); }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        const bool inside = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
        return inside ? child(row * columnCount() + column) : nullptr;
    }
    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }
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
    SpokenCells *Cells; ///< the widget

    mutable QHash<int, QAccessible::Id> Made;
};

/// A single cell: no table, but a sign.
class SignInterface final : public QAccessibleWidget
{
public:
    SignInterface(QWidget *widget, SpokenCells *cells)
        : QAccessibleWidget(widget, QAccessible::StaticText), Cells(cells)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Description ? Cells->spokenName(0)
                                                : QAccessibleWidget::text(kind);
    }

private:
    SpokenCells *Cells; ///< the widget
};

class BarInterface final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    BarInterface(QWidget *widget, SpokenBar *bar)
        : QAccessibleWidget(widget, QAccessible::Splitter), Bar(bar)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = true; // by a key of the window's, not by Tab
        return state;
    }
    QVariant currentValue() const override { return Bar->spokenRange().Now; }
    void setCurrentValue(const QVariant &value) override { Bar->pullTo(value.toInt()); }
    QVariant maximumValue() const override { return Bar->spokenRange().Most; }
    QVariant minimumValue() const override { return Bar->spokenRange().Least; }
    QVariant minimumStepSize() const override { return 1; }

private:
    SpokenBar *Bar; ///< the widget
};

/// The last news of a window. A tool is told that it shows, and asks for its name.
class News : public QObject
{
public:
    using QObject::QObject;

    QString Text;
};

class NewsInterface final : public QAccessibleObject
{
public:
    explicit NewsInterface(News *news) : QAccessibleObject(news) {}

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(object()->parent());
    }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? static_cast<News *>(object())->Text : QString();
    }
};

/// Lines and frames that hold something. The toolkit tells all as borders, which some tools take
/// for windows.
QAccessible::Role roleOf(const QFrame &frame)
{
    const bool isLine = frame.frameShape() == QFrame::HLine || frame.frameShape() == QFrame::VLine;
    return isLine ? QAccessible::Separator : QAccessible::Grouping;
}

QAccessibleInterface *make(const QString &, QObject *object)
{
    if (auto *news = dynamic_cast<News *>(object))
        return new NewsInterface(news);
    if (!object->isWidgetType())
        return nullptr;
    auto *widget = static_cast<QWidget *>(object);
    if (auto *cells = dynamic_cast<SpokenCells *>(object)) {
        if (cells->spokenCount() == 1)
            return new SignInterface(widget, cells);
        return new TableInterface(widget, cells);
    }
    if (auto *bar = dynamic_cast<SpokenBar *>(object))
        return new BarInterface(widget, bar);
    if (const QVariant role = object->property(RoleProperty); role.isValid())
        return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
    if (object->metaObject() == &QFrame::staticMetaObject)
        return new QAccessibleWidget(widget, roleOf(static_cast<QFrame &>(*widget)));
    return nullptr;
}

} // namespace

void setAccessibleRole(QWidget *control, QAccessible::Role role)
{
    installAccessibility();
    control->setProperty(RoleProperty, static_cast<int>(role));
}

void tellCurrentCell(QWidget *cells, int index)
{
    if (index < 0 || !cells->hasFocus())
        return;
    QAccessibleEvent focus(cells, QAccessible::Focus);
    focus.setChild(index);
    QAccessible::updateAccessibility(&focus);
}

void tellPlace(QWidget *bar)
{
    QAccessibleValueChangeEvent moved(bar, dynamic_cast<SpokenBar &>(*bar).spokenRange().Now);
    QAccessible::updateAccessibility(&moved);
}

void announce(const QWidget *from, const QString &text)
{
    if (text.isEmpty())
        return;
    QWidget *window = from->window();
    const auto &children = window->children();
    const auto there = std::ranges::find_if(
        children, [](const QObject *child) { return dynamic_cast<const News *>(child); });
    auto *news = there == children.end() ? new News(window) : static_cast<News *>(*there);
    news->Text = text;
    // The name is one that tools may have kept from the last time.
    for (const auto event : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent shown(news, event);
        QAccessible::updateAccessibility(&shown);
    }
}

void installAccessibility()
{
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(&make);
        return true;
    }();
}
