// Which code page a user's language has, and settling the program on it.
#pragma once

#include <QByteArrayView>

namespace UserCodePage {

/// The Windows code page of a locale's name as the C library has it ("sr_RS.UTF-8@latin") or as
/// BCP 47 writes it with underscores ("sr_Latn_RS"). 1252 for languages that have another kind of
/// page, for "C" and for what is no name.
int ofLocale(QByteArrayView locale);

/// Puts the page of the user's locale in force, or the one that the environment variable
/// ZENDOVA_CODEPAGE names. A number that is none of the pages, and a page for which the toolkit has
/// no decoder, are told on standard error.
void settle();

} // namespace UserCodePage
