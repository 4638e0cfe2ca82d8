// The per-user tree of settings: keys named by paths such as Software\Zendova\Options, each holding
// named values that are a string or a 32-bit number. It lives in one SQLite 3 file; this file knows
// the store and its failures, and nothing of what the values mean.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QStringView>
#include <exception>
#include <memory>
#include <optional>

/// Every operation goes to the file at once, so that two running copies see each other's writes and
/// the last one wins, value by value. Names of keys and values compare without regard to the case
/// of ASCII letters. A failure is a false or an empty result, never an exception: a file that is
/// read-only, locked by another program or on a full disk gives what can be read and loses what is
/// written. A lock is waited for, but no more than a second in any ten, however many values are
/// asked for. A damaged file is renamed to NAME.damaged-N, with its journal, and a new one is
/// begun.
class SettingsTree
{
public:
    /// The two kinds of value, by the numbers that the file has for them.
    static constexpr qint64 TextKind = 1;
    static constexpr qint64 NumberKind = 4;

    /// A value as it stands in the file. A string comes in UTF-8 with the NUL that ends it, but
    /// without one where it has no length; a number as four bytes in the machine's order, signed or
    /// unsigned, or as none where it does not fit 32 bits; a BLOB of either kind as it is. The kind
    /// is whatever the file says.
    struct StoredValue
    {
        qint64 kind = 0;
        QByteArray bytes;
    };

    /// Groups all writes in its life into one transaction: a crash leaves all or none of them.
    /// Batches nest, and the outermost one writes; one that ends by an exception discards
    /// everything. Where the transaction cannot begin, or breaks off halfway, all writes of the
    /// batch are lost. A null tree makes a batch of nothing. The tree must outlive the batch.
    class Batch
    {
    public:
        explicit Batch(SettingsTree *tree);
        ~Batch();
        Q_DISABLE_COPY_MOVE(Batch)

        /// Ends the batch. False if nothing of it could be written; one within another can't know.
        bool Commit();

    private:
        SettingsTree *Tree;
        int ExceptionsAtStart = std::uncaught_exceptions();
    };

    /// $XDG_CONFIG_HOME/zendova/settings.sqlite, with ~/.config where the variable is unset or not
    /// an absolute path (XDG Base Directory standard).
    static QString defaultPath();

    /// Opens the file at this path. A missing one is an empty tree; the first write begins it and
    /// makes the folders that it lacks. Where opening fails, every later operation tries again.
    explicit SettingsTree(const QString &filePath);
    ~SettingsTree();
    Q_DISABLE_COPY_MOVE(SettingsTree)

    /// Makes the key and the keys above it; those that exist stay as they are. False: not made.
    bool createKey(QStringView key);

    /// Removes the key and its values. False, and nothing removed, where it has subkeys, is missing
    /// or cannot be removed.
    bool deleteKey(QStringView key);

    /// Nothing where the key or the value is missing or cannot be read.
    std::optional<StoredValue> value(QStringView key, QStringView name);

    /// Sets or replaces a value, its kind included. False, and nothing written, where the key is
    /// missing or the file cannot be written. Numbers stand in the file as unsigned ones.
    bool setText(QStringView key, QStringView name, QStringView text);
    bool setNumber(QStringView key, QStringView name, qint32 number);

    /// False where there is no such value or it cannot be removed.
    bool deleteValue(QStringView key, QStringView name);

private:
    class Connection;
    enum class Purpose { Read, Write };
    enum class Outcome { Ready, Damaged, Unavailable };

    Outcome open();
    Connection *connection(Purpose purpose);
    Connection *writer();
    void beginBatch();
    bool endBatch(bool keep);
    static int waitForLock(void *self, int);

    const QString FilePath;
    std::unique_ptr<Connection> File;
    bool DamageRemains = false;
    int BatchDepth = 0;
    bool BatchAbandoned = false;
    QElapsedTimer SinceFirstWait;
    int WaitedMilliseconds = 0;
};
