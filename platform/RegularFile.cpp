// Reading and writing by system calls: the toolkit's files wait for pipes, and its files for saving
// stand beside the old one under a name while they are written.
#include "platform/RegularFile.h"

#include "platform/FileName.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QScopeGuard>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

/// Ends a procedure of this file; what it opened closes and what it named goes.
struct Failure
{
    QString Reason;
};

[[noreturn]] void fail(int error)
{
    throw Failure{qt_error_string(error)};
}

/// Calls until no signal interrupts, and fails as the call does.
template<class Call>
auto checked(Call call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0)
            return result;
        if (errno != EINTR)
            fail(errno);
    }
}

/// Something open, closed at the end.
class Handle
{
public:
    explicit Handle(int descriptor) : Descriptor(descriptor) {}
    Handle(Handle &&other) noexcept : Descriptor(std::exchange(other.Descriptor, -1)) {}
    Handle &operator=(Handle &&) = delete;
    ~Handle()
    {
        if (Descriptor >= 0)
            ::close(Descriptor);
    }

    bool isOpen() const { return Descriptor >= 0; }
    int get() const { return Descriptor; }

private:
    int Descriptor;
};

struct stat statusOf(const Handle &file)
{
    struct stat status
    {
    };
    checked([&] { return ::fstat(file.get(), &status); });
    return status;
}

/// What stands under a name, a symbolic link itself; nothing if nothing does.
std::optional<struct stat> statusOf(const Handle &folder, const QByteArray &name)
{
    struct stat status
    {
    };
    if (::fstatat(folder.get(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        return status;
    if (errno != ENOENT)
        fail(errno);
    return std::nullopt;
}

/// Why this is no regular file; nothing if it is one.
std::optional<QString> whyNotRegular(const struct stat &status)
{
    if (S_ISREG(status.st_mode))
        return std::nullopt;
    return S_ISDIR(status.st_mode) ? qt_error_string(EISDIR) : QStringLiteral("Not a regular file");
}

QByteArray encoded(const QString &path)
{
    if (path.contains(QChar::Null)) // the system would take what stands before it for the name
        fail(EINVAL);
    return FileName::toBytes(path);
}

// Reading

RegularFile::Reading faulty(RegularFile::Fault fault, const QString &reason)
{
    return {.Bytes = {}, .Fault = fault, .Reason = reason};
}

QByteArray readBytes(const Handle &file, qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    qsizetype length = 0;
    while (length < size) {
        const auto got = checked(
            [&] { return ::read(file.get(), bytes.data() + length, std::size_t(size - length)); });
        if (got == 0) // the file has become shorter
            break;
        length += got;
    }
    bytes.truncate(length);
    return bytes;
}

// Writing

/// Where a file is put: its folder stays the same one, whatever is renamed meanwhile.
struct Place
{
    Handle Folder;
    QByteArray Name;
    /// Of the new file, for a moment, or until it is whole where it can't be without a name. The
    /// same for every save of a file, so that the next one removes what a killed one left; the
    /// file's own name could be too long to have something added.
    QByteArray BesideName;
    std::optional<struct stat> Old;
    mode_t Mode = 0; ///< of the new file, until it gets the old one's
};

/// A path split behind its last separator.
std::pair<QByteArray, QByteArray> split(const QByteArray &path)
{
    const qsizetype place = path.lastIndexOf('/') + 1;
    return {path.first(place), path.sliced(place)};
}

/// The path of what the links lead to, which need not be there.
QByteArray followed(QByteArray path)
{
    constexpr int MostLinks = 40; // as many as the system follows itself
    for (int links = 0; links <= MostLinks; ++links) {
        std::array<char, PATH_MAX> target{};
        const auto length = ::readlink(path.constData(), target.data(), target.size());
        if (length < 0)
            return path;
        const QByteArray name(target.data(), length);
        path = name.startsWith('/') ? name : split(path).first + name;
    }
    fail(ELOOP);
}

Place placeOf(const QByteArray &path)
{
    struct stat status
    {
    };
    const bool isThere = ::stat(path.constData(), &status) == 0;
    if (!isThere && errno != ENOENT)
        fail(errno);
    if (const auto reason = isThere ? whyNotRegular(status) : std::nullopt)
        throw Failure{*reason};

    const auto [folder, name] = split(followed(path));
    const char *folderPath = folder.isEmpty() ? "." : folder.constData();
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    Place place{.Folder = Handle(
                    checked([=] { return ::open(folderPath, O_PATH | O_DIRECTORY | O_CLOEXEC); })),
                .Name = name,
                .BesideName = ".zendova-save-" + hash.first(16),
                .Old = {}};
    place.Old = statusOf(place.Folder, name);
    // A link of the system to a file that has no name any more says where it once was.
    if (name.isEmpty() || (isThere && !place.Old))
        fail(ENOENT);
    // What may not be written to may still be replaced, if its folder may be written to.
    if (place.Old)
        checked([&place] {
            return ::faccessat(place.Folder.get(), place.Name.constData(), W_OK, AT_EACCESS);
        });
    return place;
}

/// Holds back the signal at which a program ends that writes more than its limit for files: the
/// call then just fails. In this thread alone, to which the signal goes, so that neither the rest
/// of the program nor a program that it starts notices.
class SizeSignalBlock
{
public:
    SizeSignalBlock()
    {
        sigemptyset(&Signal);
        sigaddset(&Signal, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &Signal, &Before);
    }
    ~SizeSignalBlock()
    {
        const timespec atOnce{};
        while (sigtimedwait(&Signal, nullptr, &atOnce) > 0 || errno == EINTR)
            continue;
        pthread_sigmask(SIG_SETMASK, &Before, nullptr);
    }
    Q_DISABLE_COPY_MOVE(SizeSignalBlock)

private:
    sigset_t Signal{};
    sigset_t Before{};
};

/// Gives the new file the old one's list of single users and groups, and not its folder's where
/// there was none. False if that fails: the permissions of the group then are those of the list.
bool keepAccessList(const Handle &file, const Place &place)
{
    constexpr auto Attribute = "system.posix_acl_access";
    const QByteArray old =
        "/proc/self/fd/" + QByteArray::number(place.Folder.get()) + '/' + place.Name;
    std::array<char, 4096> list{};
    const auto length = ::getxattr(old.constData(), Attribute, list.data(), list.size());
    if (length >= 0)
        return ::fsetxattr(file.get(), Attribute, list.data(), std::size_t(length), 0) == 0;
    const auto isNone = [] { return errno == ENODATA || errno == EOPNOTSUPP; };
    return isNone() && (::fremovexattr(file.get(), Attribute) == 0 || isNone());
}

/// Gives the new file the owner, the group and the permissions of the old one. What can't be kept
/// never opens the file to more people: until here it is the user's alone.
void keepAttributes(const Handle &file, const Place &place)
{
    const struct stat &old = *place.Old;
    const bool isOwnerKept = ::fchown(file.get(), old.st_uid, old.st_gid) == 0;
    const bool isListKept = keepAccessList(file, place);
    const bool isGroupKept = isOwnerKept || ::fchown(file.get(), uid_t(-1), old.st_gid) == 0;
    mode_t mode = old.st_mode & 07777;
    if (!isOwnerKept)
        mode &= ACCESSPERMS; // to run as its owner was said of another one
    if (!isGroupKept || !isListKept)
        mode = (mode & ~mode_t(S_IRWXG)) | (mode & S_IRWXO) << 3;
    ::fchmod(file.get(), mode);
}

/// Writes everything to the disk: what is too large for it fails here.
void fill(const Handle &file, const Place &place, const QByteArray &bytes)
{
    for (qsizetype length = 0; length < bytes.size();)
        length += checked([&] {
            return ::write(file.get(), bytes.constData() + length,
                           std::size_t(bytes.size() - length));
        });
    if (place.Old)
        keepAttributes(file, place);
    checked([&] { return ::fsync(file.get()); });
    // Some file systems tell only at closing that they could not write. Closing a second handle
    // makes them, while the first keeps the file, which may have no name yet.
    const int second = checked([&] { return ::fcntl(file.get(), F_DUPFD_CLOEXEC, 0); });
    if (::close(second) != 0 && errno != EINTR)
        fail(errno);
}

// Who puts a file under the name beside keeps it locked, and nobody else removes or moves it. The
// lock of a killed save is gone.

/// False if another save has it. A file system without locks is taken as it is.
bool lock(const Handle &file)
{
    return ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool isBeside(const Handle &file, const Place &place)
{
    const auto named = statusOf(place.Folder, place.BesideName);
    const struct stat status = statusOf(file);
    return named && named->st_dev == status.st_dev && named->st_ino == status.st_ino;
}

/// Removes what a killed save left, and waits a moment for one that is under way.
void clearBeside(const Place &place)
{
    const Handle left(::openat(place.Folder.get(), place.BesideName.constData(),
                               O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!left.isOpen() && errno == ENOENT)
        return;
    if (!left.isOpen())
        fail(errno);
    constexpr int MostWaits = 1000;
    for (int waits = 0; !lock(left); ++waits) {
        if (waits == MostWaits)
            throw Failure{QStringLiteral("Another program is saving the file")};
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    if (isBeside(left, place))
        checked([&] { return ::unlinkat(place.Folder.get(), place.BesideName.constData(), 0); });
}

/// Gives a file without a name its name, which must be free. Gives the number of an error, or 0.
int nameNew(const QByteArray &link, const Place &place)
{
    const bool done = ::linkat(AT_FDCWD, link.constData(), place.Folder.get(),
                               place.Name.constData(), AT_SYMLINK_FOLLOW) == 0;
    return done ? 0 : errno;
}

/// Puts a file without a name in place of the old one. Gives the number of an error, or 0: EEXIST
/// means that the name beside is taken.
///
/// No call names a file in place of another: it takes a name beside first, and a kill between the
/// two calls would leave it there. So another process makes them, which a kill of this one doesn't
/// reach, and in this one nothing else happens until then.
int nameInPlace(const QByteArray &link, const Place &place)
{
    const int folder = place.Folder.get();
    const char *from = link.constData();
    const char *beside = place.BesideName.constData();
    const char *name = place.Name.constData();
    // System calls only: in a copy of this process, other threads' locks stay locked.
    const auto makeCalls = [=] {
        if (::linkat(AT_FDCWD, from, folder, beside, AT_SYMLINK_FOLLOW) != 0)
            return errno;
        if (::renameat(folder, beside, folder, name) == 0)
            return 0;
        const int error = errno;
        ::unlinkat(folder, beside, 0);
        return error;
    };

    // A signal from the terminal goes to both processes.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &before);
    const auto restore = qScopeGuard([&before] { pthread_sigmask(SIG_SETMASK, &before, nullptr); });
    const pid_t other = ::fork();
    if (other < 0)
        return makeCalls();
    if (other == 0)
        ::_exit(makeCalls());
    int status = 0;
    if (::waitpid(other, &status, 0) != other)
        return errno;
    return WIFEXITED(status) ? WEXITSTATUS(status) : ECHILD;
}

/// Writes a file that has no name until it is whole, so that a kill leaves nothing. False, and
/// nothing is changed, where that isn't possible.
bool writeNameless(const Place &place, const QByteArray &bytes)
{
    const Handle file(
        ::openat(place.Folder.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, place.Mode));
    if (!file.isOpen())
        return false;
    lock(file);
    fill(file, place, bytes);
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(file.get());
    if (!place.Old && nameNew(link, place) == 0)
        return true;
    for (;;) {
        const int error = nameInPlace(link, place);
        if (error != EEXIST)
            return error == 0;
        clearBeside(place);
    }
}

/// A new file under the name beside, locked.
Handle openBeside(const Place &place)
{
    for (;;) {
        Handle file(::openat(place.Folder.get(), place.BesideName.constData(),
                             O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, place.Mode));
        // Before it was locked, it could be taken for one that was left.
        if (file.isOpen() && lock(file) && isBeside(file, place))
            return file;
        if (!file.isOpen() && errno != EEXIST)
            fail(errno);
        if (!file.isOpen())
            clearBeside(place);
    }
}

/// The same under the name beside, for file systems where a file can't be without one. A kill
/// leaves it until the next save.
void writeNamed(const Place &place, const QByteArray &bytes)
{
    const Handle file = openBeside(place);
    auto remove =
        qScopeGuard([&place] { ::unlinkat(place.Folder.get(), place.BesideName.constData(), 0); });
    fill(file, place, bytes);
    checked([&, folder = place.Folder.get()] {
        return ::renameat(folder, place.BesideName.constData(), folder, place.Name.constData());
    });
    remove.dismiss();
}

/// The new name too outlasts a power cut, where the file system and the folder's permissions allow
/// to ask for that.
void syncFolder(const Place &place)
{
    const Handle folder(::openat(place.Folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get());
}

} // namespace

RegularFile::Reading RegularFile::read(const QString &path, qint64 mostBytes)
try {
    const QByteArray name = encoded(path);
    // Without waiting: opening a pipe that nobody writes to would wait for ever.
    const Handle file(::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        const bool isThere = errno != ENOENT && errno != ENOTDIR && errno != ENXIO;
        return faulty(isThere ? Fault::NotReadable : Fault::NotThere, qt_error_string(errno));
    }
    const struct stat status = statusOf(file);
    if (const auto reason = whyNotRegular(status))
        return faulty(Fault::NotThere, *reason);
    if (status.st_size > mostBytes)
        return faulty(Fault::TooLarge, "The file is larger than " +
                                           QLocale::c().formattedDataSize(
                                               mostBytes, 0, QLocale::DataSizeTraditionalFormat));
    return {.Bytes = readBytes(file, status.st_size), .Fault = Fault::None, .Reason = {}};
} catch (const Failure &failure) {
    return faulty(Fault::NotReadable, failure.Reason);
}

std::optional<QString> RegularFile::write(const QString &path, const QByteArray &bytes,
                                          NewFile newFile)
try {
    const SizeSignalBlock block;
    Place place = placeOf(encoded(path));
    place.Mode = place.Old || newFile == NewFile::UserOnly ? S_IRUSR | S_IWUSR : DEFFILEMODE;
    if (!writeNameless(place, bytes))
        writeNamed(place, bytes);
    syncFolder(place);
    return std::nullopt;
} catch (const Failure &failure) {
    return failure.Reason;
}

bool RegularFile::makeFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return true;
    return makeFolder(QFileInfo(path).absolutePath()) &&
           (QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner) ||
            QFileInfo(path).isDir());
}
