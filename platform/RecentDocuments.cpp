// Gathers uses for a moment and enters them all at once in what the file holds then.
#include "platform/RecentDocuments.h"

#include "platform/FileName.h"
#include "platform/RegularFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <chrono>
#include <filesystem>
#include <utility>

namespace {

constexpr auto WaitTime = std::chrono::seconds(1);
constexpr qint64 MostBytes = 4 << 20; // more would take long to read

/// Empty where that can't be told.
QByteArray absolutePath(const QString &path)
{
    std::error_code fault;
    const auto absolute = std::filesystem::absolute(FileName::toBytes(path).toStdString(), fault);
    return QByteArray::fromStdString(absolute.lexically_normal().string());
}

} // namespace

RecentDocuments::RecentDocuments()
{
    Wait.setSingleShot(true);
    Wait.setInterval(WaitTime);
    Wait.callOnTimeout([this] { write(); });
}

RecentDocuments::~RecentDocuments()
{
    write();
}

QString RecentDocuments::listPath()
{
    QString folder = FileName::fromBytes(qgetenv("XDG_DATA_HOME"));
    if (!QDir::isAbsolutePath(folder))
        folder = QDir::homePath() + "/.local/share";
    return folder + "/recently-used.xbel";
}

void RecentDocuments::add(const QString &path, const char *mimeType)
{
    const QByteArray absolute = absolutePath(path);
    if (absolute.isEmpty())
        return;
    std::erase_if(Unwritten, [&](const BookmarkFile::Use &use) { return use.Path == absolute; });
    Unwritten.push_back({.Path = absolute,
                         .MimeType = QString::fromLatin1(mimeType),
                         .Time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate)});
    Wait.start();
}

void RecentDocuments::write()
{
    const std::vector<BookmarkFile::Use> uses = std::exchange(Unwritten, {});
    if (uses.empty())
        return;
    // Read right before it is written, and nothing of it kept: other programs write it as well.
    const QString path = listPath();
    const RegularFile::Reading file = RegularFile::read(path, MostBytes);
    const bool isNew = file.Fault == RegularFile::Fault::NotThere;
    if (file.Fault != RegularFile::Fault::None && !isNew)
        return;
    std::optional<QByteArray> list = file.Bytes;
    for (const BookmarkFile::Use &use : uses)
        if (list)
            list = BookmarkFile::entered(*list, use);
    if (!list || (isNew && !RegularFile::makeFolder(QFileInfo(path).path())))
        return;
    RegularFile::write(path, *list, RegularFile::NewFile::UserOnly);
}
