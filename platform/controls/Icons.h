// The pictures of the toolbars, menus and font lists, in the colours of the desktop. Each is an SVG
// on a grid of 16 by 16, drawn in two placeholder colours that are replaced when it is rendered:
// #000001 by the line tone, #000002 by the accent. The Color button's has a third, #000003, for the
// colour it shows. Knows no window and no command.
//
// Thin strokes are 1.001 wide in the files, along the middle of a row or column: strokes of one
// device pixel or less are painted without their joins, and corners come out grey.
#pragma once

#include <QColor>
#include <QIcon>
#include <QList>
#include <QString>
#include <array>

namespace Icons {

/// One picture: its image key, and its file in the resource folder `:/icons`.
struct Picture
{
    const char *Key;
    const char *File;
};

/// Every picture that has a key, by toolbar; the last groups serve menus, the keyboard
/// and the help alone.
inline constexpr auto Pictures = std::to_array<Picture>({
    {"Load", "load.svg"},
    {"Save", "save.svg"},
    {"Opt", "opt.svg"},
    {"KB", "kb.svg"},
    {"FB", "fb.svg"},
    {"TT", "tt.svg"},
    {"SF", "sf.svg"},

    {"VCLeft", "vcleft.svg"},
    {"Zoom", "zoom.svg"},
    {"Code", "code.svg"},
    {"KS", "ks.svg"},
    {"VCRight", "vcright.svg"},

    {"TBCopy", "tbcopy.svg"},
    {"TBCut", "tbcut.svg"},
    {"FullScr", "fullscr.svg"},
    {"TBPrint", "tbprint.svg"},
    {"TBClear", "tbclear.svg"},

    {"Cut", "cut.svg"},
    {"Copy", "copy.svg"},
    {"Paste", "paste.svg"},
    {"Find", "find.svg"},

    {"Bold", "bold.svg"},
    {"Italic", "italic.svg"},
    {"Underline", "underline.svg"},
    {"Strikethrough", "strikethrough.svg"},

    {"Left", "left.svg"},
    {"Center", "center.svg"},
    {"Right", "right.svg"},

    {"CFMapLoad", "cfmapload.svg"},
    {"CFMapNew", "cfmapnew.svg"},
    {"CFMapEdit", "cfmapedit.svg"},
    {"CFMapUnld", "cfmapunld.svg"},

    {"FMap-", "fmap-minus.svg"},
    {"FMap+", "fmap-plus.svg"},
    {"RAFMap", "rafmap.svg"},
    {"FMapFC", "fmapfc.svg"},
    {"FMapBC", "fmapbc.svg"},
    {"FMapH", "fmaph.svg"},
    {"FMapG", "fmapg.svg"},

    {"TextFile", "text-file.svg"},
    {"CustomMap", "custom-map.svg"},
    {"TBFormat", "tb-format.svg"},
    {"FMapFormat", "fmap-format.svg"},
    {"Help", "help.svg"},
    {"Readme", "readme.svg"},
    {"Updates", "updates.svg"},
    {"Home", "home.svg"},
    {"Mail", "mail.svg"},
    {"About", "about.svg"},

    {"SplChar", "splchar.svg"},

    {"Back", "back.svg"},
    {"Forward", "forward.svg"},
});

/// The image keys of the menu pictures 1 to 22; picture n stands at n - 1, and its file in
/// `Pictures`.
// clang-format off
inline constexpr std::array<const char *, 22> MenuPictureKeys = {
    "TextFile", "CustomMap",
    "Cut", "Copy", "Paste", "Find",
    "TBFormat", "FMapFormat",
    "TBCopy", "TBCut", "FullScr", "TBPrint", "TBClear", "FB", "KB", "Opt",
    "Help", "Readme", "Updates", "Home", "Mail", "About",
};
// clang-format on

/// The picture of an image key; a null icon for a key that is not in `Pictures`. Icons made here
/// read their file when they are first painted, and follow the application's palette (`ButtonText`,
/// its Disabled group, and `HighlightedText` for a selected row of a list): a widget that is
/// painted again after a palette change shows the new colours. Crisp at multiples of 16 device
/// pixels.
QIcon icon(const QString &imageKey);

/// The picture of menu picture `number`, 1 to 22; a null icon for any other number.
QIcon menuPicture(int number);

/// The picture of the Color button: a letter over a bar of `color`.
QIcon colorButton(const QColor &color);

/// The application's own icon, for window titles and the About window. It keeps its colours on
/// every desktop.
QIcon application();

/// The drawing of a file in `:/icons` with the placeholder colours #000001, #000002, ... replaced
/// by these, at most nine.
QByteArray inColors(const QString &file, const QList<QColor> &colors);

} // namespace Icons
