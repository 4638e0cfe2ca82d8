// Another program that has the settings file open: SQLite itself, as the second opinion.
#pragma once

#include <QString>
#include <functional>
#include <sqlite3.h>

class OtherProgram
{
public:
    explicit OtherProgram(const QString &path) { sqlite3_open(qPrintable(path), &Database); }
    ~OtherProgram() { sqlite3_close(Database); }
    Q_DISABLE_COPY_MOVE(OtherProgram)

    using Row = std::function<void(char **values)>;
    /// Runs statements, and tells of each row of the result. False if that fails.
    bool run(
        const QString &sql, Row eachRow = [](char **) {})
    {
        const auto tell = [](void *row, int, char **values, char **) {
            (*static_cast<Row *>(row))(values);
            return 0;
        };
        return sqlite3_exec(Database, sql.toUtf8(), tell, &eachRow, nullptr) == SQLITE_OK;
    }

private:
    sqlite3 *Database = nullptr;
};
