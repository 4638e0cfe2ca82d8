// Where the files are that came with the program, wherever it was put.
#pragma once

#include <QString>

/// The path of a file of this name beside the program or, where that has none, in the folder
/// share/zendova of its installation. It need not be there either.
QString ProgramFile(const QString &name);
