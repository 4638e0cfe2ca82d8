// The desktop's clipboard in the formats of the program: plain text, and plain and rich text
// together. Knows nothing of the board.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace ClipboardFormats {

/// The clipboard offers plain text.
bool hasText();

/// Its plain text with whatever line ends it has; nothing if it offers none. An owner that answers
/// no more is waited for once, as long as the toolkit has patience.
std::optional<QString> text();

/// Replaces what is on the clipboard, where it stays for other programs as long as this one runs.
/// Line ends CR LF become LF, which is what programs of this desktop expect. `richText` is a
/// document in the Rich Text Format, offered beside the text unless it is empty.
void setText(const QString &text, const QByteArray &richText = {});

} // namespace ClipboardFormats
