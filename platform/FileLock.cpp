// The lock is that of the open file, so two of them in one process stand against each other too.
#include "platform/FileLock.h"

#include "platform/FileName.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

FileLock::FileLock(const QString &path, bool alone) : Held(true)
{
    // A pipe must not be waited for.
    Descriptor = ::open(FileName::toBytes(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (Descriptor < 0)
        return;
    if (::flock(Descriptor, (alone ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        release();
}

void FileLock::release()
{
    if (Descriptor >= 0)
        ::close(Descriptor);
    Descriptor = -1;
    Held = false;
}
