// The program's characters are the codes of Windows code page 1252. What comes from outside is
// brought into it here; nothing in this file knows a window.
#pragma once

#include <QString>
#include <QStringView>

namespace CodePage {

/// Gives the text with every character outside the code page replaced by its base letter or "?".
/// A surrogate pair counts as one character; control codes stay.
QString fit(QStringView text);

} // namespace CodePage
