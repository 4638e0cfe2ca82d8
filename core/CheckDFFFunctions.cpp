// The file system tests, asked anew at each call, and the notices that tell their outcome.
#include "core/CheckDFFFunctions.h"

#include "platform/FileName.h"

#include <optional>
#include <sys/stat.h>

namespace {

/// What kind of thing has this path; nothing if nothing has.
std::optional<mode_t> kindOf(const QString &path)
{
    struct stat status
    {
    };
    // The system would take what stands before a zero for the name.
    if (path.contains(QChar::Null) || ::stat(FileName::toBytes(path).constData(), &status) != 0)
        return std::nullopt;
    return status.st_mode;
}

} // namespace

bool CheckFile(const QString &Path)
{
    const std::optional<mode_t> kind = kindOf(Path);
    return kind && !S_ISDIR(*kind);
}

bool CheckFolder(const QString &Path)
{
    const std::optional<mode_t> kind = kindOf(Path);
    return kind && S_ISDIR(*kind);
}

int CheckDrive(const QString &Drive)
{
    return Drive.isEmpty() ? 0 : 2;
}

SplitPath SplitAtLastSeparator(const QString &Path)
{
    const qsizetype cut = Path.lastIndexOf(u'/') + 1;
    return {.Folder = Path.left(cut), .Name = Path.mid(cut)};
}

QString WithoutSeparator(QString Folder)
{
    if (Folder.size() > 1)
        Folder.chop(1);
    return Folder;
}

QString EndingOf(const QString &Path)
{
    return Path.right(3).toUpper();
}

QString PathNotice(const QString &Path)
{
    const auto [Folder, Name] = SplitAtLastSeparator(Path);
    const QString Drive = Folder.left(2);
    switch (CheckDrive(Drive)) {
    case 0:
        return QStringLiteral("\r\r\r\rDrive ") + Drive + QStringLiteral(" does not exist.");
    case 1:
        return QStringLiteral("\r\r\r\rThere is no disk in Drive ") + Drive;
    default:
        break;
    }
    if (!CheckFolder(Folder))
        return QStringLiteral("\r\rFolder\r\r") + Folder + QStringLiteral("\r\rdoes not exist.");
    if (!CheckFile(Path))
        return QStringLiteral("\r\rFile '") + Name + QStringLiteral("'\r\rdoes not exist in\r\r") +
               Folder;
    return {};
}
