// The tables behind the two lists of recent files: reading them from the settings at start and
// writing them back at exit. Shows nothing; the menus are the main window's.
#pragma once

#include <QString>
#include <vector>

struct RecentFile
{
    QString Folder; ///< with its closing separator; empty for a free row
    QString Name;
};

/// The MIME type that the ending of a file's name stands for, as the desktop is told of the
/// program's kinds of files.
const char *MimeTypeOf(const QString &path);

class RecentFiles
{
public:
    /// The settings key below the program's root, and the number of rows.
    RecentFiles(QStringView key, int rows);

    /// Fills the rows from values "1", "2", ...; the first empty or missing value ends the list,
    /// and rows behind it are left free. A full list leaves the counter at 0.
    void read();
    /// Enters a path in the first row; the rows before its old place, or before the row that the
    /// counter names, move down by one. With a counter of 0 or 1 nothing moves and the first row is
    /// overwritten. The counter rises by one, and by one more for a path that was found.
    void add(const QString &path);
    /// Writes every row: folder and name joined, or the empty string for a free row.
    void write() const;

    const std::vector<RecentFile> &rows() const { return Rows; }
    /// How many rows an addition looks at: after reading the number of the first free row, or 0 for
    /// a full list. It can run ahead of the rows in use, never beyond the last row.
    int counter() const { return Counter; }

private:
    QStringView Key; ///< of a table, which outlives this
    std::vector<RecentFile> Rows;
    int Counter = 1;
};
