// The desktop's list of recently used documents as text: an XBEL file by the Desktop Bookmark
// standard of freedesktop.org. Knows no file.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace BookmarkFile {

/// A use of a document by this program.
struct Use
{
    QByteArray Path; ///< absolute
    QString MimeType;
    QString Time; ///< UTC, by ISO 8601
};

/// The file with a use entered, in the document's entry or in a new one; an empty file is a list
/// without entries. All the rest stays what it was to the byte. Nothing where the file is damaged
/// or otherwise than such lists are.
std::optional<QByteArray> entered(const QByteArray &file, const Use &use);

} // namespace BookmarkFile
