#include "platform/filehold.h"

#include <cerrno>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

FileHold::~FileHold() = default;

bool FileHold::acquire(const QString &path)
{
    release();
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadWrite)) {
        return false;
    }
    // The lock belongs to this descriptor: reading the document through another one doesn't drop it.
    if (::flock(file->handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return false;
    }
    m_file = std::move(file);
    return true;
}

bool FileHold::isAt(const QString &path) const
{
    struct stat held;
    struct stat there;
    return m_file && ::fstat(m_file->handle(), &held) == 0 && ::stat(QFile::encodeName(path).constData(), &there) == 0
           && held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

void FileHold::release()
{
    m_file.reset();
}

} // namespace platform
