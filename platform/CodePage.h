// The one code page of the program: the single-byte Windows code page of the user's language, made
// one to one by giving its undefined codes characters that nothing else has, the control characters
// 80 to 9F hex. Every byte of a file so survives being loaded and saved. Knows nothing of fonts or
// files.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QChar>
#include <QString>
#include <QStringView>
#include <optional>

namespace CodePage {

/// The page that is in force until another is used, of Western European languages.
constexpr int Western = 1252;

/// The number of the page in force.
int number();

/// Puts 874 or one of 1250 to 1258 in force, before anything asks for characters. False, and the
/// page stays, for any other number and where the toolkit has no decoder for the page.
bool use(int page);

/// The character of a code 0..255.
QChar toUnicode(quint8 code);

/// The code 0..255 of a character (a whole code point), or nothing when the page lacks it.
std::optional<quint8> toCode(char32_t character);

/// One character a byte.
QString fromBytes(QByteArrayView bytes);

/// One byte a character; what the page lacks becomes a question mark, a surrogate pair one.
QByteArray toBytes(QStringView text);

/// The text with nothing in it that the page lacks. A text of the page is that text. In any other
/// letters are composed first (Unicode form C); a character outside the page becomes its base
/// letter, its compatible spelling or the plain sign for it ("ő" gives "o" where the page has no
/// "ő", "ﬁ" gives "fi", a minus "-"), and a question mark where it has none in the page. What shows
/// nothing goes (joiners, marks of direction and of byte order), as does an accent that could not
/// be composed with the character before it. Line ends pass.
QString fit(QStringView text);

} // namespace CodePage
