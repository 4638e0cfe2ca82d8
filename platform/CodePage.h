// The one code page of the program: Windows code page 1252, made one to one by giving its five
// undefined codes (81, 8D, 8F, 90, 9D hex) the control characters of the same number. Every byte
// of a file so survives being loaded and saved. Knows nothing of fonts or files.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QChar>
#include <QString>
#include <QStringView>
#include <optional>

namespace CodePage {

/// The character of a code 0..255.
QChar toUnicode(quint8 code);

/// The code 0..255 of a character (a whole code point), or nothing when the page lacks it.
std::optional<quint8> toCode(char32_t character);

/// One character a byte.
QString fromBytes(QByteArrayView bytes);

/// One byte a character; what the page lacks becomes a question mark, a surrogate pair one.
QByteArray toBytes(QStringView text);

/// The text with nothing in it that the page lacks: letters are composed first (Unicode form C);
/// a character outside the page becomes its base letter, its compatible spelling or the plain sign
/// for it ("ő" gives "o", "ﬁ" gives "fi", a minus "-"), and a question mark where it has none in
/// the page. What shows nothing goes (joiners, marks of direction and of byte order), as does an
/// accent that could not be composed with the character before it. Line ends pass.
QString fit(QStringView text);

} // namespace CodePage
