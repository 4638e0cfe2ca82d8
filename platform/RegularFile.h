// Whole ordinary files of this computer: read at once, and written beside and put in place, so that
// a name always stands for the whole of the old file or the whole of the new one. Folders, pipes
// and devices are refused without being waited for. Paths are texts as FileName makes them.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace RegularFile {

enum class Fault {
    None,
    NotThere, ///< nothing has this name, or something that is no regular file
    TooLarge,
    NotReadable
};

struct Reading
{
    QByteArray Bytes; ///< empty after a fault
    RegularFile::Fault Fault = Fault::None;
    QString Reason; ///< of a fault, for people, without a full stop
};

/// Reads what the file holds when it is opened, `mostBytes` at most.
Reading read(const QString &path, qint64 mostBytes);

/// Who may read a file that was not there: whom the user lets read his new files, or he alone.
enum class NewFile { AsUsual, UserOnly };

/// Makes `bytes` the contents of the file; gives nothing, or the reason of a failure for people.
/// What stood in the file then still does, and no other file is left beside it. When nothing is
/// given, the contents are on the disk.
///
/// A symbolic link is followed, and goes on naming its file. A file that is replaced keeps its
/// permissions, its owner and its group as far as the user may give them away; another hard link to
/// it keeps the old contents. One that the user may not write to is not replaced.
std::optional<QString> write(const QString &path, const QByteArray &bytes,
                             NewFile newFile = NewFile::AsUsual);

/// Makes a folder and those that it is in, with the permissions that the XDG Base Directory
/// standard asks for: of the user alone. True if it is there in the end.
bool makeFolder(const QString &path);

} // namespace RegularFile
