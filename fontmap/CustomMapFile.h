// The file of a custom map (*.ZCM): 224 records of a number and the text of a cell, in the code
// page, without a header. Bytes in, captions out, and back; knows no window and opens no file.
#pragma once

#include "fontmap/CharInfo.h"

#include <QByteArray>
#include <optional>

namespace CustomMapFile {

/// What the cells hold, by their index: a character as a rule, nothing in a blank cell.
using Captions = std::array<QString, CellCount>;

/// What file dialogs offer.
constexpr auto FileFilter = "Zendova Custom Map Files (*.ZCM)|*.zcm";

/// No map is larger, unless something else was written behind its records; 1,909 bytes are a full
/// one. Bounds the memory that a file can ask for.
constexpr qint64 MostBytes = 65536;

/// The captions of a file, or nothing where its records are not those of a map: fewer than 224, a
/// wrong number, a code below 32 or one that stands twice. A record without a text is a blank cell,
/// whatever its number. What follows record 224 is nobody's affair.
std::optional<Captions> read(const QByteArray &bytes);

/// The file of a map: `1,"A"` and CR LF for each cell, "xx" standing for the double quote. Captions
/// outside the code page are the caller's fault.
QByteArray write(const Captions &captions);

} // namespace CustomMapFile
