// Where the files are that came with the program, wherever it was put.
#pragma once

#include <QString>

/// The path of a file of this name in the folder share/zendova of the program's installation or,
/// where that has none, beside the program. It need not be there either.
QString ProgramFile(const QString &name);
