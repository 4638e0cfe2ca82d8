// Pictures on menu items, by the items' positions. Touches the items' pictures, nothing else.
#pragma once

class QMenuBar;

/// Puts picture ImageIndex (1 to 22, see Icons::menuPicture) on an item, the same for its checked
/// and its unchecked state. Both positions count from 0 over what is visible: a hidden item has
/// none, a separator has one but shows no picture. Nothing happens at a position without an item.
void SetMenuPic(const QMenuBar &MenuBar, int MenuPosition, int ItemPosition, int ImageIndex);
