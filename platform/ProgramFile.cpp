// Goes by the program's own place, so that an installation can be moved as a whole.
#include "platform/ProgramFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

QString ProgramFile(const QString &name)
{
    const QDir programs = QCoreApplication::applicationDirPath();
    const QString beside = programs.filePath(name);
    return QFile::exists(beside) ? beside
                                 : QDir::cleanPath(programs.filePath("../share/zendova/" + name));
}
