#include "platform/datafile.h"

#include <QFile>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool platform::openDataFile(QFile &file)
{
    const int descriptor = ::open(QFile::encodeName(file.fileName()).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    struct stat status;
    const bool known = ::fstat(descriptor, &status) == 0 && (S_ISREG(status.st_mode) || S_ISFIFO(status.st_mode));
    // Not to wait was for opening a pipe only; reading one waits for its writer.
    const bool ready = known && ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK) == 0;
    if (!ready || !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    return true;
}
