// The settings file as a store: its operations, and what becomes of it when it is damaged, locked,
// unwritable or its writer is killed. Works in a temporary folder, with SQLite as the second
// opinion.
#include "platform/SettingsTree.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <cstdio>
#include <linux/capability.h>
#include <sqlite3.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int BatchSize = 40;
constexpr QStringView Key = u"Software\\Zendova\\Options";

/// Another program that has the file open.
class OtherProgram
{
public:
    explicit OtherProgram(const QString &path) { sqlite3_open(qPrintable(path), &m_database); }
    ~OtherProgram() { sqlite3_close(m_database); }
    Q_DISABLE_COPY_MOVE(OtherProgram)

    bool run(const QByteArray &sql)
    {
        return sqlite3_exec(m_database, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    }

    QByteArray ask(const QByteArray &sql)
    {
        QByteArray answer;
        const auto keep = [](void *to, int, char **columns, char **) {
            *static_cast<QByteArray *>(to) = columns[0];
            return 0;
        };
        sqlite3_exec(m_database, sql.constData(), keep, &answer, nullptr);
        return answer;
    }

private:
    sqlite3 *m_database = nullptr;
};

/// Makes permissions bind even where the tests run as root.
class NoOverride
{
public:
    NoOverride()
    {
        syscall(SYS_capget, &m_header, m_before);
        __user_cap_data_struct reduced[2] = {m_before[0], m_before[1]};
        reduced[0].effective &= ~(1U << CAP_DAC_OVERRIDE);
        syscall(SYS_capset, &m_header, reduced);
    }
    ~NoOverride() { syscall(SYS_capset, &m_header, m_before); }
    Q_DISABLE_COPY_MOVE(NoOverride)

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct m_before[2]{};
};

/// A disk on which no file can grow.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit none{0, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
};

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void replaceContents(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

QByteArray textOf(SettingsTree &tree, QStringView name, QStringView key = Key)
{
    const auto value = tree.value(key, name);
    return value ? value->bytes.chopped(value->bytes.isEmpty() ? 0 : 1) : "missing";
}

int callsToLive = 0;

void countCall()
{
    if (--callsToLive == 0)
        raise(SIGKILL);
}

ssize_t countedWrite(int file, const void *data, size_t size, off_t at)
{
    countCall();
    return pwrite(file, data, size, at);
}

int countedUnlink(const char *path)
{
    countCall();
    return unlink(path);
}

QString valueOfRound(int round)
{
    return QString::number(round).rightJustified(300, u'0'); // so that a batch has several pages
}

/// What the child does: batch after batch, with a line for each that is on disk, until it is killed
/// in front of its nth write to a file or removal of one.
int writeBatchesUntilKilled(const QString &path, int calls)
{
    callsToLive = calls;
    sqlite3_initialize();
    sqlite3_vfs *vfs = sqlite3_vfs_find(nullptr);
    for (const char *name : {"pwrite", "pwrite64"})
        vfs->xSetSystemCall(vfs, name, reinterpret_cast<sqlite3_syscall_ptr>(countedWrite));
    vfs->xSetSystemCall(vfs, "unlink", reinterpret_cast<sqlite3_syscall_ptr>(countedUnlink));

    SettingsTree tree(path);
    tree.createKey(Key);
    for (int round = textOf(tree, u"0").toInt() + 1;; ++round) {
        {
            const SettingsTree::Batch batch(&tree);
            for (int i = 0; i < BatchSize; ++i)
                if (!tree.setText(Key, QString::number(i), valueOfRound(round)))
                    return 1;
        }
        std::puts("done");
        std::fflush(stdout);
    }
}

using Vandal = void (*)(const QString &path);

} // namespace

Q_DECLARE_METATYPE(Vandal)

class tst_SettingsTree : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    int m_number = 0;
    QString m_path;

    // Many pages long, so that damage can be in the middle.
    void fill() const
    {
        SettingsTree tree(m_path);
        const SettingsTree::Batch batch(&tree);
        tree.createKey(Key);
        for (int i = 0; i < 100; ++i)
            tree.setText(Key, QString::number(i), QString(500, u'o'));
    }

    QStringList files() const
    {
        return QFileInfo(m_path).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot,
                                                 QDir::Name);
    }

private slots:
    void init()
    {
        m_path = m_folder.filePath(QStringLiteral("%1/settings.sqlite").arg(++m_number));
        QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
    }

    void defaultPath_data()
    {
        QTest::addColumn<QByteArray>("variable");
        QTest::addColumn<QString>("path");
        QTest::newRow("absolute") << QByteArray("/c/d/") << "/c/d/zendova/settings.sqlite";
        QTest::newRow("relative") << QByteArray("c/d") << "/h/.config/zendova/settings.sqlite";
        QTest::newRow("empty") << QByteArray("") << "/h/.config/zendova/settings.sqlite";
    }

    void defaultPath()
    {
        QFETCH(QByteArray, variable);
        const QByteArray home = qgetenv("HOME");
        const QByteArray config = qgetenv("XDG_CONFIG_HOME");
        qputenv("HOME", "/h");
        qputenv("XDG_CONFIG_HOME", variable);
        const QString path = SettingsTree::defaultPath();
        qputenv("HOME", home);
        qputenv("XDG_CONFIG_HOME", config);
        QTEST(path, "path");
    }

    void readingMakesNothingAndWritingMakesThePrivateFolder()
    {
        const QString folder = m_folder.filePath("new/zendova");
        SettingsTree tree(folder + "/settings.sqlite");
        QVERIFY(!tree.value(Key, u"a"));
        QVERIFY(!QFileInfo::exists(m_folder.filePath("new")));
        QVERIFY(tree.createKey(Key));
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList("settings.sqlite"));
        QCOMPARE(QFile::permissions(folder) & 0x0077, QFile::Permissions());
    }

    void operations()
    {
        SettingsTree tree(m_path);
        QVERIFY(!tree.setText(Key, u"Name", u"lost")); // the key is missing
        QVERIFY(tree.createKey(Key));
        QVERIFY(!tree.value(Key, u"Name"));
        QVERIFY(tree.setText(Key, u"Name", u"a"));
        QVERIFY(tree.createKey(u"software\\ZENDOVA\\options")); // there already
        QCOMPARE(textOf(tree, u"nAME", u"SOFTWARE\\zendova\\Options"), "a");

        QVERIFY(tree.setNumber(Key, u"NAME", -2147483640));
        const auto number = tree.value(Key, u"Name");
        QCOMPARE(number->kind, SettingsTree::NumberKind);
        QCOMPARE(OtherProgram(m_path).ask("SELECT name, value FROM settings"), "Name");
        QCOMPARE(OtherProgram(m_path).ask("SELECT value FROM settings"), "2147483656");

        // The parents were made too; a name that only begins alike is no subkey.
        QVERIFY(tree.createKey(u"Software\\ZendovaOther"));
        QVERIFY(tree.setText(u"Software\\Zendova", u"MV", u"300"));
        QVERIFY(!tree.deleteKey(u"Software\\Zendova"));
        QCOMPARE(textOf(tree, u"MV", u"Software\\Zendova"), "300");
        QVERIFY(tree.deleteKey(u"software\\zendova\\options"));
        QVERIFY(tree.deleteKey(u"Software\\Zendova"));
        QVERIFY(!tree.deleteKey(u"Software\\Zendova"));
        QVERIFY(tree.createKey(Key));
        QVERIFY2(!tree.value(Key, u"Name"), "values outlived their key");

        QVERIFY(tree.setText(Key, u"Name", u""));
        QVERIFY(tree.deleteValue(Key, u"NAME"));
        QVERIFY(!tree.deleteValue(Key, u"Name"));
        QVERIFY(!tree.value(Key, u"Name"));
    }

    void aKeyDeletedByAnotherProgramTakesItsValuesAlong()
    {
        SettingsTree tree(m_path);
        QVERIFY(tree.createKey(Key));
        QVERIFY(tree.setText(Key, u"a", u"1"));
        QVERIFY(OtherProgram(m_path).run("DELETE FROM keys WHERE path LIKE '%Options'"));
        QVERIFY(!tree.value(Key, u"a"));
        QVERIFY(!tree.setText(Key, u"a", u"2"));
        QVERIFY(tree.createKey(Key));
        QVERIFY(!tree.value(Key, u"a"));
    }

    void textIsNeverSql_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("quotes") << "'; DROP TABLE settings; --\"";
        QTest::newRow("wildcards") << "%_*?";
        QTest::newRow("beyond the basic plane")
            << QString::fromUtf8("\xc3\xa9\xe2\x82\xac\xf0\x9f\x94\xa4");
        QTest::newRow("digits") << "007";
    }

    void textIsNeverSql()
    {
        QFETCH(QString, text);
        SettingsTree tree(m_path);
        QVERIFY(tree.createKey(text + "\\" + text));
        QVERIFY(tree.setText(text + "\\" + text, text, text));
        QCOMPARE(textOf(tree, text, text + "\\" + text), text.toUtf8());
        QVERIFY(!tree.deleteKey(text));
        QVERIFY(tree.createKey(Key));
        QVERIFY(!tree.value(Key, text));
    }

    void batchesAreWholeOrAbsent()
    {
        SettingsTree tree(m_path);
        SettingsTree otherCopy(m_path);
        QVERIFY(tree.createKey(Key));
        {
            const SettingsTree::Batch batch(&tree);
            {
                const SettingsTree::Batch inner(&tree);
                QVERIFY(tree.setText(Key, u"a", u"1"));
            }
            QCOMPARE(textOf(tree, u"a"), "1");
            QCOMPARE(textOf(otherCopy, u"a"), "missing");
        }
        QCOMPARE(textOf(otherCopy, u"a"), "1");
        QVERIFY(!QFileInfo::exists(m_path + "-journal"));
    }

    void aBatchLeftByAnExceptionDiscardsAll()
    {
        SettingsTree tree(m_path);
        QVERIFY(tree.createKey(Key));
        {
            const SettingsTree::Batch outer(&tree);
            tree.setText(Key, u"a", u"1");
            try {
                const SettingsTree::Batch batch(&tree);
                throw std::runtime_error("a failed conversion");
            } catch (const std::runtime_error &) {
            }
        }
        QCOMPARE(textOf(tree, u"a"), "missing");
        {
            const SettingsTree::Batch next(&tree);
            QVERIFY(tree.setText(Key, u"a", u"2"));
        }
        QCOMPARE(textOf(tree, u"a"), "2");
    }

    void ofTwoCopiesTheLastWinsValueByValue()
    {
        SettingsTree one(m_path);
        SettingsTree two(m_path);
        QVERIFY(one.createKey(Key));
        QVERIFY(one.setText(Key, u"a", u"one"));
        QVERIFY(two.setText(Key, u"b", u"two"));
        QVERIFY(two.setText(Key, u"c", u"two"));
        QVERIFY(one.setText(Key, u"c", u"one"));
        for (SettingsTree *tree : {&one, &two}) {
            QCOMPARE(textOf(*tree, u"a"), "one");
            QCOMPARE(textOf(*tree, u"b"), "two");
            QCOMPARE(textOf(*tree, u"c"), "one");
        }
    }

    void damaged_data()
    {
        QTest::addColumn<Vandal>("vandal");
        const auto row = [](const char *name, Vandal vandal) { QTest::newRow(name) << vandal; };
        row("random bytes", [](const QString &path) {
            QByteArray noise(20'000, 0);
            QRandomGenerator random(1);
            std::ranges::generate(noise, [&] { return char(random.bounded(256)); });
            replaceContents(path, noise);
        });
        row("zeros, as after a power cut",
            [](const QString &path) { replaceContents(path, QByteArray(8192, 0)); });
        row("one byte", [](const QString &path) { replaceContents(path, "x"); });
        row("text", [](const QString &path) { replaceContents(path, "[Options]\nToolTips=1\n"); });
        row("truncated in the middle",
            [](const QString &path) { QFile::resize(path, QFileInfo(path).size() / 2 + 100); });
        row("truncated in the header", [](const QString &path) { QFile::resize(path, 60); });
        row("a page overwritten", [](const QString &path) {
            replaceContents(path, contentsOf(path).replace(12'288, 4096, QByteArray(4096, 'U')));
        });
        row("other tables", [](const QString &path) {
            QFile::remove(path);
            QVERIFY(OtherProgram(path).run("CREATE TABLE people(name); "
                                           "INSERT INTO people VALUES('somebody')"));
        });
        row("a column missing", [](const QString &path) {
            QVERIFY(OtherProgram(path).run("ALTER TABLE settings DROP COLUMN kind"));
        });
        row("a table missing",
            [](const QString &path) { QVERIFY(OtherProgram(path).run("DROP TABLE settings")); });
        row("a folder", [](const QString &path) {
            QFile::remove(path);
            QVERIFY(QDir().mkpath(path));
            replaceContents(path + "/precious", "precious");
        });
    }

    void damaged()
    {
        QFETCH(Vandal, vandal);
        for (int time = 1; time <= 2; ++time) {
            fill();
            vandal(m_path);
            const QString aside = QStringLiteral("%1.damaged-%2").arg(m_path).arg(time);
            const bool isFolder = QFileInfo(m_path).isDir();
            const QByteArray before = contentsOf(m_path);
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression("put aside as " + aside + QLatin1Char('$')));
            SettingsTree tree(m_path);
            QVERIFY(!tree.value(Key, u"1"));
            QVERIFY(tree.createKey(Key));
            QVERIFY(tree.setText(Key, u"1", u"new"));
            QCOMPARE(textOf(tree, u"1"), "new");
            QCOMPARE(contentsOf(aside), before);
            QCOMPARE(contentsOf(aside + "/precious"), isFolder ? "precious" : "");
        }
        QCOMPARE(files(), QStringList({"settings.sqlite", "settings.sqlite.damaged-1",
                                       "settings.sqlite.damaged-2"}));
    }

    void theJournalOfADamagedFileGoesAlong()
    {
        replaceContents(m_path, "no database");
        replaceContents(m_path + "-journal", "no journal");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("put aside"));
        SettingsTree tree(m_path);
        QCOMPARE(contentsOf(m_path + ".damaged-1"), "no database");
        QCOMPARE(contentsOf(m_path + ".damaged-1-journal"), "no journal");
        QVERIFY(tree.createKey(Key));
    }

    void anEmptyFileIsAnEmptyTree()
    {
        replaceContents(m_path, "");
        SettingsTree tree(m_path);
        QVERIFY(tree.createKey(Key));
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    void damageThatCannotBePutAside()
    {
        replaceContents(m_path, "no database");
        const QString folder = QFileInfo(m_path).path();
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        {
            const NoOverride ordinaryUser;
            SettingsTree tree(m_path);
            QVERIFY(!tree.value(Key, u"1"));
            QVERIFY(!tree.createKey(Key));
        }
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(contentsOf(m_path), "no database");
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    // What the disk holds when the power fails in the middle of a transaction.
    void aPowerCutIsRolledBack()
    {
        fill();
        const QString image = m_path + ".image";
        {
            OtherProgram writer(m_path);
            QVERIFY(writer.run("PRAGMA cache_size = 2; BEGIN; "
                               "UPDATE settings SET value = replace(value, 'o', 'n')"));
            QVERIFY(QFile::copy(m_path, image));
            QVERIFY(QFile::copy(m_path + "-journal", image + "-journal"));
        }
        QVERIFY2(contentsOf(image).contains(QByteArray(500, 'n')), "nothing was written yet");
        SettingsTree tree(image);
        for (int i = 0; i < 100; ++i)
            QCOMPARE(textOf(tree, QString::number(i)), QByteArray(500, 'o'));
        QVERIFY(!QFileInfo::exists(image + "-journal"));
    }

    // What happens between two of these calls changes no page, so these are all moments there are.
    void killedAtEveryWrite()
    {
        int committed = 0;
        for (int calls = 1; calls <= 60; ++calls) {
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(),
                        {"--write-batches", m_path, QString::number(calls)});
            QVERIFY(child.waitForFinished());
            QCOMPARE(child.exitStatus(), QProcess::CrashExit);
            committed += int(child.readAllStandardOutput().count("done"));

            SettingsTree tree(m_path);
            const QByteArray found = textOf(tree, u"0");
            for (int i = 1; i < BatchSize; ++i)
                QCOMPARE(textOf(tree, QString::number(i)), found);
            QCOMPARE(found, committed == 0 ? "missing" : valueOfRound(committed).toUtf8());
        }
        QVERIFY(committed > 0);
        QCOMPARE(OtherProgram(m_path).ask("PRAGMA integrity_check"), "ok");
        QVERIFY(SettingsTree(m_path).setText(Key, u"0", u"done"));
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    void locked_data()
    {
        QTest::addColumn<QByteArray>("lock");
        QTest::addColumn<QByteArray>("read");
        QTest::newRow("for writing") << QByteArray("BEGIN IMMEDIATE") << QByteArray("old");
        QTest::newRow("exclusively") << QByteArray("BEGIN EXCLUSIVE") << QByteArray("missing");
    }

    void locked()
    {
        QFETCH(QByteArray, lock);
        SettingsTree openBefore(m_path);
        QVERIFY(openBefore.createKey(Key));
        QVERIFY(openBefore.setText(Key, u"a", u"old"));
        OtherProgram other(m_path);
        QVERIFY(other.run(lock));

        QElapsedTimer timer;
        timer.start();
        SettingsTree openedUnderLock(m_path);
        for (SettingsTree *tree : {&openBefore, &openedUnderLock}) {
            for (int i = 0; i < 200; ++i) {
                QTEST(textOf(*tree, u"a"), "read");
                QVERIFY(!tree->setText(Key, u"a", u"lost"));
            }
            const SettingsTree::Batch batch(tree);
            QVERIFY(!tree->setText(Key, u"a", u"lost"));
        }
        // A second for each tree, and room for a slow machine.
        QVERIFY2(timer.elapsed() < 6000, QByteArray::number(timer.elapsed()));

        {
            const SettingsTree::Batch begunUnderLock(&openBefore);
            QVERIFY(other.run("ROLLBACK"));
            QVERIFY2(!openBefore.setText(Key, u"a", u"half"), "half a batch was written");
        }
        for (SettingsTree *tree : {&openBefore, &openedUnderLock}) {
            QCOMPARE(textOf(*tree, u"a"), "old");
            QVERIFY(tree->setText(Key, u"b", u"new"));
        }
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    void aShortLockIsWaitedFor()
    {
        SettingsTree tree(m_path);
        QVERIFY(tree.createKey(Key));
        QProcess shell;
        shell.start(QCoreApplication::applicationFilePath(), {"--lock-briefly", m_path});
        QVERIFY(shell.waitForReadyRead());
        QVERIFY(tree.setText(Key, u"a", u"1"));
        QVERIFY(shell.waitForFinished());
        QCOMPARE(shell.exitCode(), 0);
    }

    void unwritable_data()
    {
        QTest::addColumn<QString>("path"); // below the test's folder
        QTest::addColumn<QFile::Permissions>("folder");
        QTest::addColumn<QFile::Permissions>("file");
        const QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
        const QFile::Permissions fixed = QFile::ReadOwner | QFile::ExeOwner;
        QTest::newRow("file") << "settings.sqlite" << all << fixed;
        QTest::newRow("folder") << "settings.sqlite" << fixed << all;
        QTest::newRow("both") << "settings.sqlite" << fixed << fixed;
        QTest::newRow("no folder can be made") << "new/settings.sqlite" << fixed << all;
        QTest::newRow("a file in the folder's place") << "settings.sqlite/s.sqlite" << all << all;
    }

    void unwritable()
    {
        QFETCH(QString, path);
        QFETCH(QFile::Permissions, folder);
        QFETCH(QFile::Permissions, file);
        const QString folderPath = QFileInfo(m_path).path();
        fill();
        const QByteArray before = contentsOf(m_path);
        QVERIFY(QFile::setPermissions(m_path, file));
        QVERIFY(QFile::setPermissions(folderPath, folder));
        {
            const NoOverride ordinaryUser;
            SettingsTree tree(folderPath + "/" + path);
            const bool readable = path == "settings.sqlite";
            QCOMPARE(textOf(tree, u"1"), readable ? QByteArray(500, 'o') : "missing");
            QVERIFY(!tree.createKey(u"Software\\Other"));
            QVERIFY(!tree.setText(Key, u"1", u"lost"));
            const SettingsTree::Batch batch(&tree);
            QVERIFY(!tree.setText(Key, u"1", u"lost"));
            QVERIFY(!tree.deleteValue(Key, u"1"));
            QVERIFY(!tree.deleteKey(Key));
        }
        QFile::setPermissions(folderPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(contentsOf(m_path), before);
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }

    void fullDisk()
    {
        fill();
        SettingsTree tree(m_path);
        {
            const FullDisk disk;
            QVERIFY(!tree.setText(Key, u"1", u"lost"));
            {
                const SettingsTree::Batch batch(&tree);
                for (int i = 0; i < 100; ++i)
                    tree.setText(Key, QString::number(i), QString(100, u'n'));
            }
            for (int i = 0; i < 100; ++i)
                QCOMPARE(textOf(tree, QString::number(i)), QByteArray(500, 'o'));
        }
        QVERIFY(tree.setText(Key, u"1", u"kept"));
        QCOMPARE(textOf(tree, u"1"), "kept");
        QCOMPARE(files(), QStringList("settings.sqlite"));
    }
};

/// Holds the file's lock for a moment, as a copy does that saves.
int lockBriefly(const QString &path)
{
    OtherProgram program(path);
    const bool locked = program.run("BEGIN EXCLUSIVE");
    std::fputs("locked", stdout);
    std::fflush(stdout);
    sqlite3_sleep(200);
    return locked && program.run("COMMIT") ? 0 : 1;
}

int main(int argc, char **argv)
{
    if (argc == 4 && argv[1] == QByteArray("--write-batches"))
        return writeBatchesUntilKilled(QString::fromLocal8Bit(argv[2]), std::atoi(argv[3]));
    if (argc == 3 && argv[1] == QByteArray("--lock-briefly"))
        return lockBriefly(QString::fromLocal8Bit(argv[2]));
    QCoreApplication application(argc, argv);
    tst_SettingsTree test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_settingstree.moc"
