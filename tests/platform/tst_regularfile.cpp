// Whole files: what is read and what is refused, and a save that lacks room or is killed. What
// changes a process (limits, user, death) happens in one of its own.
#include "platform/RegularFile.h"
#include "tests/support/Files.h"

#include <QtTest>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using RegularFile::Fault;

namespace {

/// For the rest of this process, this system call does nothing and gives this error, or success for
/// 0; with flags, only where its third argument has one of them.
void answer(long call, int error, quint32 flags = 0)
{
    const auto isMeant = quint16(BPF_JMP | BPF_K | (flags ? BPF_JSET : BPF_JGE));
    sock_filter steps[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                           BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, quint32(call), 0, 3),
                           BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
                           BPF_JUMP(isMeant, flags, 0, 1),
                           BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | quint32(error)),
                           BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog filter{std::size(steps), steps};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
        qFatal("The system calls can't be answered.");
}

template<class Work>
pid_t start(bool isNamed, Work work)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    if (isNamed)
        answer(SYS_openat, EOPNOTSUPP, O_TMPFILE & ~O_DIRECTORY);
    _exit(work());
}

/// What the child's work gave, or less than 0: the signal that ended it.
int endOf(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

enum Ends { Saved, Told, Silent };

int save(const QString &path, const QByteArray &bytes)
{
    const auto reason = RegularFile::write(path, bytes);
    return !reason ? Saved : reason->isEmpty() ? Silent : Told;
}

} // namespace

class TestRegularFile : public QObject
{
    Q_OBJECT

private:
    QString path(const QString &name) const { return QDir(Folder->path()).filePath(name); }
    QStringList files() const
    {
        return QDir(Folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> Folder;

private slots:
    void init()
    {
        Folder = std::make_unique<QTemporaryDir>();
        QVERIFY(Folder->isValid() && chmod(QFile::encodeName(Folder->path()), 0755) == 0);
        QVERIFY(QDir(Folder->path()).mkdir("folder"));
        QCOMPARE(mkfifo(QFile::encodeName(path("pipe")), 0600), 0);
        QVERIFY(QFile::link("circle", path("circle")));
    }

    void reading()
    {
        writeFile(path("ä\n☃"), QByteArray("\0\r\nx", 4));
        writeFile(path("full"), QByteArray(1024, 'f'));
        writeFile(path("large"), QByteArray(1025, 'l'));
        writeFile(path("empty"), {});
        for (const auto &[name, fault, reason, bytes] :
             {std::tuple(QString("ä\n☃"), Fault::None, "", QByteArray("\0\r\nx", 4)),
              {"full", Fault::None, "", QByteArray(1024, 'f')},
              {"empty", Fault::None, "", {}},
              {"large", Fault::TooLarge, "The file is larger than 1 kB", {}},
              {"missing", Fault::NotThere, "No such file or directory", {}},
              {QString("full").append(QChar::Null), Fault::NotReadable, "Invalid argument", {}},
              {"folder", Fault::NotThere, "Is a directory", {}},
              {"pipe", Fault::NotThere, "Not a regular file", {}},
              {"/dev/zero", Fault::NotThere, "Not a regular file", {}},
              {"circle", Fault::NotReadable, "Too many levels of symbolic links", {}}}) {
            const auto file = RegularFile::read(path(name), 1024);
            QCOMPARE(file.Reason, reason);
            QCOMPARE(file.Fault, fault);
            QCOMPARE(file.Bytes, bytes);
        }
    }

    void refused()
    {
        QFile::setPermissions(writeFile(path("readonly"), "old"),
                              QFile::ReadOwner | QFile::ReadOther);
        writeFile(path("closed/document"), "old");
        chmod(QFile::encodeName(path("closed/document")), 0666);
        chmod(QFile::encodeName(path("closed")), 0555);
        chmod(QFile::encodeName(Folder->path()), 0777);
        const QStringList before = files();
        for (const auto &[name, reason] :
             {std::pair(QString("folder"), "Is a directory"),
              {"pipe", "Not a regular file"},
              {"/dev/null", "Not a regular file"},
              {"missing/new", "No such file or directory"},
              {"circle", "Too many levels of symbolic links"},
              {QString("readonly").append(QChar::Null), "Invalid argument"},
              {"readonly", "Permission denied"},
              {"closed/document", "Permission denied"},
              {"closed/new", "Permission denied"}}) {
            const int end = endOf(start(false, [this, &file = name, &reason = reason] {
                // Root may write what nobody else may.
                if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0)
                    qFatal("The user can't be changed.");
                return RegularFile::write(path(file), "new") == QString(reason) ? Told : Silent;
            }));
            QVERIFY2(end == Told, qPrintable(name));
            QCOMPARE(files(), before);
        }
        QCOMPARE(RegularFile::write("", "new"), QString("No such file or directory"));
        QCOMPARE(contentOf(path("readonly")) + contentOf(path("closed/document")), "oldold");
        QCOMPARE(QDir(path("closed")).count(), 3U);
        chmod(QFile::encodeName(path("closed")), 0755);
    }

    void newFilesLinksAndModes()
    {
        for (const bool isNamed : {false, true}) {
            init();
            const QByteArray bytes("\0new\xff", 5);
            writeFile(path("folder/document"), "longer than the new");
            chmod(QFile::encodeName(path("folder/document")), 0646);
            QVERIFY(QFile::link("folder/document", path("link")) &&
                    QFile::link("../folder/new", path("folder/dangling")));
            const QStringList before = files();
            const auto saveBoth = [&] {
                umask(027);
                return save(path("link"), bytes) + save(path("folder/dangling"), {});
            };
            QCOMPARE(endOf(start(isNamed, saveBoth)), Saved);
            for (const auto &[name, content, mode] :
                 {std::tuple("folder/document", bytes, 0x6046), {"folder/new", "", 0x6040}}) {
                QCOMPARE(contentOf(path(name)), content);
                QCOMPARE(QFile::permissions(path(name)) & 0x7077, QFile::Permissions(mode));
            }
            QCOMPARE(files(), before);
            QVERIFY(QFileInfo(path("link")).isSymLink() &&
                    QFileInfo(path("folder/dangling")).isSymLink());
            QCOMPARE(QDir(path("folder")).entryList(QDir::Files | QDir::Hidden),
                     QStringList({"dangling", "document", "new"}));
        }
    }

    void everyAmountOfRoom()
    {
        const QByteArray old(50'000, 'o');
        const QByteArray bytes(60'001, 'n');
        for (const bool isNamed : {false, true}) {
            writeFile(path("document"), old);
            const QStringList before = files();
            const auto saveWithRoom = [&](rlim_t room, const QString &name) {
                return endOf(start(isNamed, [&] {
                    const rlimit limit{room, RLIM_INFINITY};
                    setrlimit(RLIMIT_FSIZE, &limit);
                    return save(path(name), bytes);
                }));
            };
            for (rlim_t room = 0; room < 60'001; room = room == 57'344 ? 60'000 : room + 4096)
                for (const QString name : {"document", "new"}) {
                    QCOMPARE(saveWithRoom(room, name), Told);
                    QCOMPARE(contentOf(path("document")), old);
                    QCOMPARE(files(), before);
                }
            QCOMPARE(saveWithRoom(60'001, "document"), Saved);
            QCOMPARE(contentOf(path("document")), bytes);
            QCOMPARE(files(), before);
        }
    }

    void failedCalls()
    {
        const std::tuple<bool, int, Ends> rows[] = {
            {false, SYS_fsync, Told},   {true, SYS_fsync, Told},    {false, SYS_renameat, Told},
            {true, SYS_renameat, Told}, {false, SYS_fchmod, Saved}, {false, SYS_linkat, Saved}};
        for (const auto &[isNamed, call, end] : rows) {
            writeFile(path("document"), "old");
            const QStringList before = files();
            const auto saveWithout = [&, call = call] {
                answer(call, EIO);
                return save(path("document"), "new");
            };
            QCOMPARE(endOf(start(isNamed, saveWithout)), end);
            QCOMPARE(contentOf(path("document")), end == Saved ? "new" : "old");
            QCOMPARE(files(), before);
        }
    }

    void kills()
    {
        constexpr qsizetype Size = 100'000;
        writeFile(path("document"), QByteArray(Size, 'a'));
        const QStringList before = files();
        for (int kill = 0; kill < 60; ++kill) {
            const bool isNamed = kill < 30;
            const pid_t child = start(isNamed, [&] {
                answer(SYS_fsync, 0); // or hardly a kill would come between two other calls
                for (char letter = 'a';; letter = letter == 'a' ? 'b' : 'a')
                    if (save(path("document"), QByteArray(Size, letter)) != Saved)
                        return Told;
            });
            std::this_thread::sleep_for(std::chrono::microseconds(2000 + 700 * (kill % 30)));
            ::kill(child, SIGKILL);
            QCOMPARE(endOf(child), -SIGKILL);
            const QByteArray content = contentOf(path("document"));
            QCOMPARE(content, QByteArray(Size, content[0]));
            if (isNamed)
                QVERIFY(files().size() <= before.size() + 1);
            else // what is begun in the other process is finished there
                QTRY_COMPARE(files(), before);
            // The next save, of either kind, removes what is left.
            if (kill % 2 == 1) {
                QCOMPARE(save(path("document"), QByteArray(Size, 'a')), Saved);
                QCOMPARE(files(), before);
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestRegularFile)
#include "tst_regularfile.moc"
