// The one question by which a window that shows fonts makes one of them the program's. What then
// happens to the font is the main window's affair.
#pragma once

class QString;

/// Asks the user whether this font is to be the current one; true for Yes.
bool AskToSetFont(const QString &FontName);
