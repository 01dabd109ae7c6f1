#include "platform/privatefile.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool writeAll(int file, const QByteArray &content)
{
    qint64 done = 0;
    while (done < content.size()) {
        const ssize_t count = ::write(file, content.constData() + done, size_t(content.size() - done));
        if (count < 0 && errno != EINTR) {
            return false;
        }
        done += qMax<ssize_t>(count, 0);
    }
    return ::fsync(file) == 0;
}

bool fail(QString *error)
{
    *error = qt_error_string(errno);
    return false;
}

} // namespace

bool platform::writePrivateFile(const QString &path, const QByteArray &content, QString *error)
{
    // A new file of our own is moved over the old name: neither step follows a link that somebody put there.
    const QByteArray target = QFile::encodeName(path);
    const QByteArray scratch = target + '.' + QByteArray::number(qint64(::getpid()));
    const int file = ::open(
        scratch.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) {
        return fail(error);
    }
    const bool written = writeAll(file, content);
    if (::close(file) == 0 && written && ::rename(scratch.constData(), target.constData()) == 0) {
        return true;
    }
    fail(error);
    ::unlink(scratch.constData());
    return false;
}

bool platform::isOwnFile(const QString &path)
{
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode)
           && status.st_uid == ::getuid();
}
