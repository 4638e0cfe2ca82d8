// The view texts of the 224 cells: a character's code in four bases and the keys that type it.
// Values in, values out; filled once for a map, never while the mouse moves.
#pragma once

#include <QStringList>
#include <array>

constexpr int CellCount = 224;
constexpr int MapColumns = 28;
constexpr int FirstCode = 32;

/// The rows of the table, in its order.
enum CharInfoRow { DecimalRow, HexRow, OctalRow, BinaryRow, KeystrokeRow, CharInfoRowCount };

/// One column a cell, so that what a hover shows stands together.
using CharTexts = std::array<QString, CharInfoRowCount>;
using CharInfoTable = std::array<CharTexts, CellCount>;

/// Binary digits of a number without leading zeros; the empty text for 0.
QString Bin(qint32 n);

/// The view texts of a code (32 to 255) of the default map.
CharTexts DefaultCharTexts(int code);

/// The view texts of a cell of a custom map, by its caption; empty texts for a blank one. The codes
/// 127 and 128 read "Ctrl+" and a number, which counts them in the order in which they are met:
/// `control` is the next one, 1 at first.
CharTexts CustomCharTexts(const QString &caption, int &control);

/// The character of a code as text of one character.
QString CharacterOf(int code);

/// What is read out of a cell: those of the texts that show something, or that it is empty.
QString SpokenCell(const QStringList &texts);
