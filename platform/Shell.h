// Opens files, pages and mail links with the programs that the desktop has for them. Starts those
// programs and forgets them; knows no window.
#pragma once

class QString;
class QUrl;

namespace Shell {

/// Hands an absolute address (https, mailto, file) to the desktop and returns at once. Nothing
/// happens where the desktop has no program for it or knows of none.
void Open(const QUrl &address);

/// The same for a file of this machine, given by its absolute path; it need not exist.
void OpenFile(const QString &path);

} // namespace Shell
