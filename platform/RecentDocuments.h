// The documents that this program tells the desktop's list of recently used ones of, which other
// programs show and write too. Knows no window.
#pragma once

#include "platform/BookmarkFile.h"

#include <QTimer>
#include <vector>

class RecentDocuments
{
public:
    RecentDocuments();
    /// Writes what is not written yet.
    ~RecentDocuments();
    Q_DISABLE_COPY_MOVE(RecentDocuments)

    /// A document of this MIME type is used now. The path is a text as FileName makes it. The list
    /// is written a second later, so that neither a start nor a load waits for the disk. One that
    /// is damaged, huge or not to be written stays as it is, and nobody is told: no work of the
    /// user's is lost.
    void add(const QString &path, const char *mimeType);

    /// $XDG_DATA_HOME/recently-used.xbel
    static QString listPath();

private:
    void write();

    std::vector<BookmarkFile::Use> Unwritten;
    QTimer Wait;
};
