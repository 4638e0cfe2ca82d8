// What stands behind the program's name: a question about the program, or the path of a file. Needs
// no display.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace CommandLine {

/// The answer to `--version` or `--help` as the only argument, in UTF-8; nothing for anything else.
std::optional<QByteArray> Answer(int argc, const char *const *argv);

/// All arguments as one path, blanks and all, in which bytes that are no text are kept (FileName).
QString Path(int argc, const char *const *argv);

} // namespace CommandLine
