// Names of files as text. To the system they are bytes, which are UTF-8 by custom only.
#pragma once

#include <QByteArray>
#include <QString>

namespace FileName {

/// The text of a name. A byte that belongs to no UTF-8 becomes the lone surrogate U+DC00 + byte,
/// which no text has.
QString fromBytes(const QByteArray &name);

/// The name of a text, back to the very bytes that it came from.
QByteArray toBytes(const QString &text);

/// For people to read: replacement characters (U+FFFD) stand for what is no text.
QString shown(QString text);

/// The same for the title of a window, where the toolkit has a mark of its own, "[*]".
QString inTitle(const QString &text);

/// Whether the text can be kept by others, as the settings file, and still name the file.
bool isText(const QString &text);

} // namespace FileName
