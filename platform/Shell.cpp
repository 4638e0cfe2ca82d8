// By the toolkit's desktop services: they detach the program that they start, go through the
// desktop's own door where this program runs in a sandbox, and can be listened to.
#include "platform/Shell.h"

#include <QDesktopServices>
#include <QUrl>

void Shell::Open(const QUrl &address)
{
    QDesktopServices::openUrl(address);
}

void Shell::OpenFile(const QString &path)
{
    Open(QUrl::fromLocalFile(path));
}
