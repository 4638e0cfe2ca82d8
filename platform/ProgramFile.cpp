// Goes by the program's own place, so that an installation can be moved as a whole.
#include "platform/ProgramFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

QString ProgramFile(const QString &name)
{
    const QDir programs = QCoreApplication::applicationDirPath();
    const QString installed = QDir::cleanPath(programs.filePath("../share/zendova/" + name));
    return QFile::exists(installed) ? installed : programs.filePath(name);
}
