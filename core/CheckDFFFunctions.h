// Does a drive, a folder or a file exist: the three tests, and the standard check of a path known
// from earlier that is built from them. Shows nothing: the notice is given back as text.
#pragma once

#include <QString>

/// True if the path names an existing file (a link counts as what it points to).
bool CheckFile(const QString &Path);
/// True if the path names an existing folder.
bool CheckFolder(const QString &Path);
/// 2, there and ready, as this platform has no drive letters; 0 for the empty string, which is what
/// a path without a folder gives.
int CheckDrive(const QString &Drive);

/// A path cut behind its last separator: Folder keeps the separator, and is empty if there is none.
struct SplitPath
{
    QString Folder;
    QString Name;
};
SplitPath SplitAtLastSeparator(const QString &Path);
/// A folder without its closing separator, as the last folders of the file dialogs are kept. The
/// root keeps it.
QString WithoutSeparator(QString Folder);

/// The last three characters in capitals, by which files are recognised; no dot is asked for.
QString EndingOf(const QString &Path);

/// The standard check of a path: drive, folder, file in this order. Gives the empty string for a
/// good path, otherwise the body of the notice, its lines joined by carriage returns.
QString PathNotice(const QString &Path);
