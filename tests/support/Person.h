// What a person does with the main window that takes more than one event.
#pragma once

#include "core/Zendova.h"
#include "fontmap/FontMap.h"
#include "platform/controls/CharCells.h"
#include "tests/support/TestFonts.h"

class NumberSlider;
class QDialog;

/// Clicks the number, types over it and presses the key (Enter, Escape; 0 for none). False if the
/// edit box did not open with all of its text selected, or did not close at the key.
bool fillNumberBox(NumberSlider *slider, const QString &text, Qt::Key key = Qt::Key_Return);

/// Chooses the font of this name in the font picker by its keys alone. False if it is not there.
bool chooseFont(Zendova *window, const QString &name);

/// Sets the font size to 24 points, in which readGlyph can read glyphs, and the map to a size whose
/// cells hold them.
void makeGlyphsReadable(Zendova *window);

void hover(Zendova *window, int cell);
void clickCell(Zendova *window, int cell, Qt::MouseButton button = Qt::LeftButton);
constexpr int cellOf(int code)
{
    return code - FirstCode;
}

/// Makes a window the active one at once, as a window manager does after a while.
void activate(QWidget *window);

/// Types the name into a file dialog and enters it; closes a dialog that does not take it.
void typeFileName(QDialog *dialog, const QString &path);

/// Takes the split bar, moves it down by so many pixels and lets it go.
void pullSplitBar(Zendova *window, int pixels);

/// A code that all test fonts have and whose glyph has a full lowest row.
constexpr int FullRowCode = 0x4F;
/// The origin of that glyph in a picture of it with nothing to its left. `cell` as for readGlyph.
QPoint originOfFullRow(const QImage &image, int cell = 7);

QImage pictureOf(CharCells *cells, int index);
QImage pictureOf(::TextBoard *board);
/// The glyph that the board shows first, its font being 24 points high; it holds this text then.
GlyphPicture firstGlyph(Zendova *window, const QString &text);

/// Selects on the board; 0 for a length sets the caret.
void select(const Zendova *window, int start, int length);

/// Every control below the parent, hidden ones too, but not the insides of the toolkit's own.
QWidgetList controlsBelow(const QWidget *parent);

QAction *menuItem(const Zendova *window, const char *name);
/// Clicks an item of a menu that is open.
void clickItem(QMenu *opened, QAction *item);
void chooseFromMenu(const Zendova *window, const char *menu, const char *item);
/// Opens the menu, so that its items take the states of now, and closes it.
void lookAtMenu(const Zendova *window, const char *menu);
