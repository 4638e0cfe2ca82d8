// The settings tree in SQLite: the tables, how the file is opened, judged and put aside, and the
// single statements behind each operation. Uses Qt Core and SQLite's C interface only.
#include "platform/SettingsTree.h"

#include "platform/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <limits>
#include <sqlite3.h>
#include <sys/stat.h>
#include <utility>
#include <variant>

namespace {

constexpr int WaitWindowMilliseconds = 10'000;
constexpr int PatienceMilliseconds = 1'000;
constexpr int WaitStepMilliseconds = 10;

// What can stand beside the file and belongs to it (SQLite, "Temporary Files Used By SQLite").
constexpr std::array SideFileSuffixes{"-journal", "-wal", "-shm"};

// The first bytes of a database and of a rollback journal (SQLite, "Database File Format").
constexpr QByteArrayView DatabaseMagic("SQLite format 3\0", 16);
constexpr QByteArrayView JournalMagic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);

// The trigger is for whoever deletes a key in a shell: values must not outlive their key. The
// column `value` has no type, since SQLite would turn strings of digits into numbers, or the
// reverse.
constexpr const char *CreateTables = R"(
    CREATE TABLE IF NOT EXISTS keys(
        path TEXT NOT NULL COLLATE NOCASE PRIMARY KEY) WITHOUT ROWID;
    CREATE TABLE IF NOT EXISTS settings(
        key TEXT NOT NULL COLLATE NOCASE,
        name TEXT NOT NULL COLLATE NOCASE,
        kind INTEGER NOT NULL,
        value,
        PRIMARY KEY(key, name)) WITHOUT ROWID;
    CREATE TRIGGER IF NOT EXISTS drop_values AFTER DELETE ON keys
        BEGIN DELETE FROM settings WHERE key = old.path; END;
)";

enum Statement { CreateKey, DeleteKey, GetValue, SetValue, DeleteValue, StatementCount };

// All text from outside arrives by parameter. A write tests that its key exists in the same
// statement, so that no other copy can remove the key in between.
constexpr std::array<const char *, StatementCount> StatementTexts{
    "INSERT INTO keys(path) VALUES(?1) ON CONFLICT(path) DO NOTHING",
    R"(DELETE FROM keys WHERE path = ?1 AND NOT EXISTS(
           SELECT 1 FROM keys
           WHERE substr(path, 1, length(?1) + 1) = ?1 || '\' COLLATE NOCASE))",
    "SELECT kind, value FROM settings WHERE key = ?1 AND name = ?2",
    "INSERT INTO settings(key, name, kind, value) "
    "SELECT path, ?2, ?3, ?4 FROM keys WHERE path = ?1 "
    "ON CONFLICT(key, name) DO UPDATE SET kind = excluded.kind, value = excluded.value",
    "DELETE FROM settings WHERE key = ?1 AND name = ?2",
};

bool saysDamaged(int result)
{
    switch (result & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_ERROR: // a table or column of ours is missing
        return true;
    default:
        return false;
    }
}

bool startsWith(const QString &filePath, QByteArrayView magic)
{
    QFile file(filePath);
    return file.open(QIODevice::ReadOnly) && file.read(magic.size()) == magic;
}

// SQLite deletes a journal that it cannot play back. A file that is no database, and has no sound
// journal to mend it, is therefore recognised before SQLite sees either of them. A device or a pipe
// is nobody's settings file, and never judged. Not for a file that this process has open: closing
// it here would drop its locks (POSIX, fcntl).
bool isNoDatabase(const QString &filePath)
{
    const QFileInfo info(filePath);
    if (info.isDir())
        return true;
    return info.isFile() && info.isReadable() && info.size() > 0 &&
           !startsWith(filePath, DatabaseMagic) &&
           !startsWith(filePath + QLatin1String("-journal"), JournalMagic);
}

// Which file stands at a path: another running copy may have put a damaged one aside already.
std::optional<std::pair<dev_t, ino_t>> identityOf(const QString &filePath)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(filePath).constData(), &status) != 0)
        return std::nullopt;
    return std::pair(status.st_dev, status.st_ino);
}

// QFile::rename never replaces, so nothing that was put aside earlier is lost. The side files go
// first: a journal left alone would be taken for that of the new file.
bool putAside(const QString &filePath)
{
    QString target;
    const auto taken = [&target](const char *suffix) {
        return identityOf(target + QLatin1String(suffix)).has_value();
    };
    int number = 0;
    do
        target = QStringLiteral("%1.damaged-%2").arg(filePath).arg(++number);
    while (taken("") || std::ranges::any_of(SideFileSuffixes, taken));

    for (const char *suffix : SideFileSuffixes) {
        const QString sideFile = filePath + QLatin1String(suffix);
        if (identityOf(sideFile) && !QFile::rename(sideFile, target + QLatin1String(suffix)))
            return false;
    }
    if (!QFile::rename(filePath, target))
        return false;
    qWarning("The settings file %s is damaged and was put aside as %s", qUtf8Printable(filePath),
             qUtf8Printable(target));
    return true;
}

} // namespace

/// An open file and its prepared statements. Each method runs one statement to its end, so that no
/// lock outlasts a call outside a transaction.
class SettingsTree::Connection
{
public:
    ~Connection()
    {
        for (sqlite3_stmt *statement : Statements)
            sqlite3_finalize(statement);
        sqlite3_close(Handle);
    }

    // Gives an SQLite result code. A file that is no longer as it was written is SQLITE_CORRUPT.
    int open(const QString &filePath, SettingsTree *waiter)
    {
        const int opened =
            sqlite3_open_v2(QFile::encodeName(filePath).constData(), &Handle,
                            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX |
                                SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE,
                            nullptr);
        if (opened != SQLITE_OK)
            return opened;
        sqlite3_busy_handler(Handle, &SettingsTree::waitForLock, waiter);
        sqlite3_db_config(Handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(Handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);

        if (const int result = check(); result != SQLITE_OK)
            return result;
        // Somebody's tool may have switched the file to a write-ahead log, which leaves side files.
        execute("PRAGMA journal_mode = DELETE");
        execute("PRAGMA synchronous = FULL");
        if (const int result = makeTablesIfEmpty(); result != SQLITE_OK)
            return result;
        for (int i = 0; i < StatementCount; ++i) {
            const int result = sqlite3_prepare_v3(
                Handle, StatementTexts[i], -1, SQLITE_PREPARE_PERSISTENT, &Statements[i], nullptr);
            if (result != SQLITE_OK)
                return result;
        }
        return SQLITE_OK;
    }

    int execute(const char *sql) { return sqlite3_exec(Handle, sql, nullptr, nullptr, nullptr); }

    bool inTransaction() const { return sqlite3_get_autocommit(Handle) == 0; }

    // Gives the number of rows changed, or -1 where the statement failed.
    int write(Statement which, std::initializer_list<QStringView> texts)
    {
        return run(bind(which, texts));
    }

    int setValue(QStringView key, QStringView name, std::variant<QStringView, quint32> value)
    {
        sqlite3_stmt *statement = bind(SetValue, {key, name});
        if (const auto *text = std::get_if<QStringView>(&value)) {
            sqlite3_bind_int64(statement, 3, TextKind);
            bindText(statement, 4, *text);
        } else {
            sqlite3_bind_int64(statement, 3, NumberKind);
            sqlite3_bind_int64(statement, 4, std::get<quint32>(value));
        }
        return run(statement);
    }

    std::optional<StoredValue> read(QStringView key, QStringView name)
    {
        sqlite3_stmt *statement = bind(GetValue, {key, name});
        std::optional<StoredValue> result;
        if (sqlite3_step(statement) == SQLITE_ROW)
            result = StoredValue{sqlite3_column_int64(statement, 0), bytesOf(statement, 1)};
        sqlite3_reset(statement);
        return result;
    }

private:
    static void bindText(sqlite3_stmt *statement, int parameter, QStringView text)
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text64(statement, parameter, utf8.constData(), utf8.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8);
    }

    sqlite3_stmt *bind(Statement which, std::initializer_list<QStringView> texts)
    {
        sqlite3_stmt *statement = Statements[which];
        int parameter = 0;
        for (const QStringView text : texts)
            bindText(statement, ++parameter, text);
        return statement;
    }

    int run(sqlite3_stmt *statement)
    {
        const bool done = sqlite3_step(statement) == SQLITE_DONE;
        const int changes = sqlite3_changes(Handle);
        sqlite3_reset(statement);
        return done ? changes : -1;
    }

    static QByteArray bytesOf(sqlite3_stmt *statement, int column)
    {
        if (sqlite3_column_type(statement, column) == SQLITE_BLOB) {
            const void *data = sqlite3_column_blob(statement, column);
            return {static_cast<const char *>(data), sqlite3_column_bytes(statement, column)};
        }
        const auto *data = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
        const QByteArray text(data, sqlite3_column_bytes(statement, column));
        return sqlite3_column_int64(statement, 0) == NumberKind ? numberBytes(text)
               : text.isEmpty()                                 ? text
                                                                : text + '\0';
    }

    // By way of the digits, so that a number typed into a shell in quotes is still that number.
    static QByteArray numberBytes(const QByteArray &digits)
    {
        bool valid = false;
        const qint64 number = digits.toLongLong(&valid);
        if (!valid || number < std::numeric_limits<qint32>::min() ||
            number > std::numeric_limits<quint32>::max())
            return {};
        const auto bits = static_cast<quint32>(number);
        return {reinterpret_cast<const char *>(&bits), sizeof bits};
    }

    // The one row of a question about the whole file.
    int ask(const char *sql, QByteArray *answer)
    {
        sqlite3_stmt *statement = nullptr;
        int result = sqlite3_prepare_v2(Handle, sql, -1, &statement, nullptr);
        if (result == SQLITE_OK) {
            result = sqlite3_step(statement);
            if (result == SQLITE_ROW) {
                *answer = reinterpret_cast<const char *>(sqlite3_column_text(statement, 0));
                result = SQLITE_OK;
            }
        }
        sqlite3_finalize(statement);
        return result;
    }

    int check()
    {
        QByteArray answer;
        const int result = ask("PRAGMA quick_check(1)", &answer);
        return result == SQLITE_OK && answer != "ok" ? SQLITE_CORRUPT : result;
    }

    int makeTablesIfEmpty()
    {
        QByteArray answer;
        int result = ask("SELECT count(*) FROM sqlite_schema", &answer);
        if (result != SQLITE_OK || answer != "0")
            return result;
        result = execute("BEGIN IMMEDIATE");
        if (result == SQLITE_OK)
            result = execute(CreateTables);
        if (result == SQLITE_OK)
            result = execute("COMMIT");
        return result;
    }

    sqlite3 *Handle = nullptr;
    std::array<sqlite3_stmt *, StatementCount> Statements{};
};

SettingsTree::Batch::Batch(SettingsTree *tree) : Tree(tree)
{
    if (Tree)
        Tree->beginBatch();
}

SettingsTree::Batch::~Batch()
{
    if (Tree)
        Tree->endBatch(std::uncaught_exceptions() == ExceptionsAtStart);
}

bool SettingsTree::Batch::Commit()
{
    SettingsTree *tree = std::exchange(Tree, nullptr);
    return tree && tree->endBatch(true);
}

QString SettingsTree::defaultPath()
{
    QString folder = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (!QDir::isAbsolutePath(folder))
        folder = QDir::homePath() + QLatin1String("/.config");
    return QDir::cleanPath(folder + QLatin1String("/zendova/settings.sqlite"));
}

SettingsTree::SettingsTree(const QString &filePath)
    : FilePath(QFileInfo(filePath).absoluteFilePath())
{
    connection(Purpose::Read);
}

SettingsTree::~SettingsTree() = default;

// SQLite calls this while another connection holds the lock; 0 gives up.
int SettingsTree::waitForLock(void *self, int)
{
    auto *tree = static_cast<SettingsTree *>(self);
    if (!tree->SinceFirstWait.isValid() ||
        tree->SinceFirstWait.hasExpired(WaitWindowMilliseconds)) {
        tree->SinceFirstWait.start();
        tree->WaitedMilliseconds = 0;
    }
    if (tree->WaitedMilliseconds >= PatienceMilliseconds)
        return 0;
    tree->WaitedMilliseconds += sqlite3_sleep(WaitStepMilliseconds);
    return 1;
}

SettingsTree::Outcome SettingsTree::open()
{
    if (isNoDatabase(FilePath))
        return Outcome::Damaged;
    if (!RegularFile::makeFolder(QFileInfo(FilePath).absolutePath()))
        return Outcome::Unavailable;
    auto opened = std::make_unique<Connection>();
    const int result = opened->open(FilePath, this);
    if (result == SQLITE_OK)
        File = std::move(opened);
    return result == SQLITE_OK   ? Outcome::Ready
           : saysDamaged(result) ? Outcome::Damaged
                                 : Outcome::Unavailable;
}

// A read makes no file: a first run that is given up leaves nothing behind.
SettingsTree::Connection *SettingsTree::connection(Purpose purpose)
{
    const auto nothingToRead = [&] { return purpose == Purpose::Read && !identityOf(FilePath); };
    if (File || DamageRemains || nothingToRead())
        return File.get();
    const auto judged = identityOf(FilePath);
    if (open() == Outcome::Damaged) {
        const bool stillThere = judged && identityOf(FilePath) == judged;
        DamageRemains = stillThere && !putAside(FilePath);
        if (!DamageRemains && !nothingToRead())
            DamageRemains = open() == Outcome::Damaged;
    }
    return File.get();
}

SettingsTree::Connection *SettingsTree::writer()
{
    Connection *file = connection(Purpose::Write);
    return file && (BatchDepth == 0 || file->inTransaction()) ? file : nullptr;
}

void SettingsTree::beginBatch()
{
    Connection *file = connection(Purpose::Write);
    if (BatchDepth++ > 0)
        return;
    BatchAbandoned = false;
    if (file)
        file->execute("BEGIN IMMEDIATE");
}

bool SettingsTree::endBatch(bool keep)
{
    BatchAbandoned |= !keep;
    if (--BatchDepth > 0)
        return true;
    if (!File || !File->inTransaction())
        return false;
    if (!BatchAbandoned && File->execute("COMMIT") == SQLITE_OK)
        return true;
    File->execute("ROLLBACK");
    return false;
}

bool SettingsTree::createKey(QStringView key)
{
    beginBatch();
    Connection *file = writer();
    bool made = file != nullptr;
    for (qsizetype end = 0; made && end >= 0;) {
        end = key.indexOf(u'\\', end + 1);
        made = file->write(CreateKey, {end < 0 ? key : key.first(end)}) >= 0;
    }
    return endBatch(true) && made;
}

bool SettingsTree::deleteKey(QStringView key)
{
    Connection *file = writer();
    return file && file->write(DeleteKey, {key}) > 0;
}

std::optional<SettingsTree::StoredValue> SettingsTree::value(QStringView key, QStringView name)
{
    Connection *file = connection(Purpose::Read);
    return file ? file->read(key, name) : std::nullopt;
}

bool SettingsTree::setText(QStringView key, QStringView name, QStringView text)
{
    Connection *file = writer();
    return file && file->setValue(key, name, text) > 0;
}

bool SettingsTree::setNumber(QStringView key, QStringView name, qint32 number)
{
    Connection *file = writer();
    return file && file->setValue(key, name, static_cast<quint32>(number)) > 0;
}

bool SettingsTree::deleteValue(QStringView key, QStringView name)
{
    Connection *file = writer();
    return file && file->write(DeleteValue, {key, name}) > 0;
}
