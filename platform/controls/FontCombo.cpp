// A combo box over a plain table: ten thousand rows cost no items of their own.
#include "platform/controls/FontCombo.h"

#include "platform/controls/FontItems.h"
#include "platform/controls/TwipForm.h"

#include <QKeyEvent>
#include <QListView>
#include <QProxyStyle>

namespace {

/// The list as a box below with a scroll bar: some styles make of it a menu over the whole screen.
class ListBelow : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

/// The open list: a letter is the box's affair here too, not the list's own search.
class FontCombo::ListView : public QListView
{
public:
    explicit ListView(FontCombo *combo) : QListView(combo), Combo(combo) {}

    void keyboardSearch(const QString &search) override
    {
        if (!search.isEmpty())
            Combo->takeCharacter(search.at(0).unicode());
    }

private:
    FontCombo *Combo;
};

FontCombo::FontCombo(QWidget *parent) : QComboBox(parent)
{
    // Neither the box nor its list looks at every row to find its size.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(10);
    setMaxVisibleItems(20);
    // Before the list, which takes over from the style whether it has a scroll bar.
    auto *below = new ListBelow;
    below->setParent(this);
    setStyle(below);
    auto *list = new ListView(this);
    list->setUniformItemSizes(true);
    list->setLayoutMode(QListView::Batched);
    setView(list);
    wearDesktopFont();
    setIconSize(QSize(16, 16));
    connect(this, &QComboBox::activated, this, [this] {
        emit Click();
        if (std::exchange(ListWasOpened, false))
            emit TakenFromList();
    });
}

void FontCombo::setItems(std::vector<Item> items)
{
    setModel(new FontItemModel(std::move(items), this));
    setCurrentIndex(-1);
}

void FontCombo::SelectItem(int position)
{
    if (position < 1 || position > count())
        return;
    setCurrentIndex(position - 1);
    if (view()->isVisible())
        view()->setCurrentIndex(model()->index(position - 1, modelColumn(), rootModelIndex()));
}

void FontCombo::showPopup()
{
    ListWasOpened = true;
    QComboBox::showPopup();
}

void FontCombo::wheelEvent(QWheelEvent *event)
{
    ListWasOpened = false;
    QComboBox::wheelEvent(event);
}

void FontCombo::keyPressEvent(QKeyEvent *event)
{
    ListWasOpened = false;
    const QString text = event->text();
    const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (!command && !text.isEmpty() && text.at(0).isPrint()) {
        takeCharacter(text.at(0).unicode());
        return;
    }
    QComboBox::keyPressEvent(event);
}

void FontCombo::wearDesktopFont()
{
    view()->setFont(TwipForm::desktopFont("QAbstractItemView"));
}

void FontCombo::setJumpKeys(int first, int last)
{
    FirstJumpKey = first;
    LastJumpKey = last;
}

void FontCombo::takeCharacter(int key)
{
    if (key < FirstJumpKey || key > LastJumpKey) {
        SelectItem(SelectedItem());
        return;
    }
    const QChar wanted = QChar(static_cast<char16_t>(key)).toUpper();
    for (int position = 1; position <= ItemCount(); ++position) {
        const QString text = ItemText(position);
        if (!text.isEmpty() && text.front().toUpper() == wanted) {
            SelectItem(position);
            break;
        }
    }
    emit Click();
}
