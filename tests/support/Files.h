// Files of a test: written whole, read whole; and a disk that is full.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <sys/resource.h>

/// Writes a file and the folders to it, and gives its path. Ends the program if that fails.
inline QString writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("The file %s can't be written.", qPrintable(path));
    return path;
}

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
}

/// A disk on which nothing can be written.
class FullDisk
{
public:
    FullDisk()
    {
        Handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &Before);
        const rlimit none{0, Before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &Before);
        std::signal(SIGXFSZ, Handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit Before{};
    void (*Handler)(int) = nullptr;
};
