#include "platform/filehold.h"

#include <sys/file.h>

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

void FileHold::release()
{
    m_file.reset();
}

} // namespace platform
