// Reads documents of word processors into the rich-text buffer. Bytes in, values out; nothing that
// the bytes say can make it fail otherwise than by saying so.
#pragma once

#include "textboard/RichText.h"

#include <QByteArrayView>
#include <optional>

/// The font and size of a text for which nothing else is said.
inline constexpr QStringView DefaultFontName = u"Times New Roman";

/// The running text of a document in the Rich Text Format (1.9.1), brought into the code page.
///
/// What is not running text is left out: headers, footers, notes, annotations, text boxes,
/// pictures, the numbers and bullets of lists (whose symbol font would make uniform text mixed),
/// instructions of fields, hidden and deleted text. A table gives its cells parted by tabs, one row
/// a line; the breaks of lines, pages, columns and sections are line ends.
///
/// A `\par` after which no text follows closes the last paragraph, as all word processors write it,
/// and is no line end. A line end takes the format of the text before it in its paragraph: its own
/// can't be seen and often differs. Justified text counts as left.
///
/// Nothing is given for what doesn't begin with `{\rtf` (white space and a byte order mark may go
/// before), for a document that breaks off before its last brace, and for one whose format changes
/// more than a million times (2^20).
std::optional<RichText> readRichText(QByteArrayView source);
