// Files of a test: written whole, read whole.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
