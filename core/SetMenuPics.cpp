// Finds an item by its position and gives it its picture; and the order in which start-up does so
// for the whole menu bar.
#include "core/SetMenuPics.h"

#include "core/CheckDFFFunctions.h"
#include "core/Zendova.h"
#include "platform/controls/Icons.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <span>

namespace {

/// The item at a position among those that are visible, or null.
QAction *itemAt(const QWidget &menu, int position)
{
    for (QAction *item : menu.actions())
        if (item->isVisible() && position-- == 0)
            return item;
    return nullptr;
}

struct MenuPic
{
    int Menu;
    int Item;
    int Image;
};

constexpr MenuPic FixedPics[] = {
    {0, 0, 1}, {0, 2, 2},  {1, 0, 3},  {1, 1, 4},  {1, 2, 5},  {1, 7, 6},  {3, 0, 7},  {3, 1, 8},
    {4, 0, 9}, {4, 1, 10}, {4, 2, 11}, {4, 3, 12}, {4, 4, 13}, {4, 6, 14}, {4, 7, 15}, {4, 9, 16},
};

constexpr MenuPic PicsWithHelp[] = {{6, 0, 17}, {6, 1, 18}};
constexpr MenuPic PicsWithoutHelp[] = {{6, 0, 18}};
/// These count HelpContents as present whether it is or not.
constexpr MenuPic LastPics[] = {{6, 3, 19}, {6, 4, 20}, {6, 5, 21}, {6, 7, 22}};

void setPics(const QMenuBar &bar, std::span<const MenuPic> pics)
{
    for (const MenuPic &pic : pics)
        SetMenuPic(bar, pic.Menu, pic.Item, pic.Image);
}

} // namespace

void SetMenuPic(const QMenuBar &MenuBar, int MenuPosition, int ItemPosition, int ImageIndex)
{
    const QAction *menu = itemAt(MenuBar, MenuPosition);
    QAction *item = menu && menu->menu() ? itemAt(*menu->menu(), ItemPosition) : nullptr;
    if (!item || item->isSeparator())
        return;
    item->setIcon(Icons::menuPicture(ImageIndex));
    item->setIconVisibleInMenu(true); // also on desktops whose menus have no pictures of their own
}

void Zendova::SetAllMenuPics()
{
    const QMenuBar &bar = *menuBar();
    setPics(bar, FixedPics);
    if (CheckFile(HelpFile())) {
        for (const char *name : {"HelpContents", "HelpSep1"})
            bar.findChild<QAction *>(name)->setVisible(true);
        setPics(bar, PicsWithHelp);
    } else {
        setPics(bar, PicsWithoutHelp);
    }
    setPics(bar, LastPics);
}
