#include "platform/filereplacement.h"

#include <QDir>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr mode_t permissionBits = 0777;

/// Where symbolic links lead to, which need not be there yet. Folders on the way are left to the system to follow.
QByteArray linkEnd(const QByteArray &path)
{
    constexpr int mostLinks = 40; // as many as the system follows
    std::filesystem::path end(path.toStdString());
    std::error_code error;
    for (int i = 0; i < mostLinks && std::filesystem::is_symlink(end, error); ++i) {
        end = end.parent_path() / std::filesystem::read_symlink(end, error);
    }
    return QByteArray::fromStdString(end.string());
}

QByteArray folderOf(const QByteArray &path)
{
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(slash + 1);
}

mode_t modeOfNewFiles()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return permissionBits & 0666 & ~mask;
}

int openForWriting(const QByteArray &path)
{
    return ::open(path.constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
}

QString systemError(int code)
{
    return qt_error_string(code);
}

/// Why no file can be made in a folder.
QString folderError(int code)
{
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("The folder doesn't exist");
    case EACCES:
    case EPERM:
    case EROFS:
        return QStringLiteral("The folder can't be written");
    default:
        return systemError(code);
    }
}

} // namespace

FileReplacement::FileReplacement(const QString &path)
    : m_path(QFile::encodeName(path))
{
}

FileReplacement::~FileReplacement()
{
    if (!m_temporary.isEmpty()) {
        ::unlink(m_temporary.constData());
    }
}

bool FileReplacement::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool FileReplacement::open()
{
    return findTarget() && openAnywhere();
}

bool FileReplacement::findTarget()
{
    struct stat status;
    if (m_path.isEmpty()) {
        return fail(QStringLiteral("The file has no name"));
    }
    m_target = linkEnd(m_path);
    m_isNew = ::stat(m_path.constData(), &status) != 0;
    if (m_isNew) {
        m_mode = modeOfNewFiles();
        return errno == ENOENT || fail(folderError(errno));
    }
    if (!S_ISREG(status.st_mode)) {
        return fail(S_ISDIR(status.st_mode)
                        ? QStringLiteral("It is a folder")
                        : QStringLiteral("It is a device or a pipe, and only files can be replaced"));
    }
    m_mode = status.st_mode & permissionBits;
    m_owner = status.st_uid;
    m_group = status.st_gid;
    // A file that may not be written isn't replaced either, although its folder would allow that.
    const int descriptor = openForWriting(m_target);
    if (descriptor < 0) {
        const bool folderIsOpen = ::access(folderOf(m_target).constData(), W_OK) == 0;
        return fail(folderIsOpen ? QStringLiteral("The file can't be written")
                                 : QStringLiteral("Neither the file nor the folder can be written"));
    }
    ::close(descriptor);
    return true;
}

bool FileReplacement::openAnywhere()
{
    if (openTemporary(folderOf(m_target))) {
        return true;
    }
    const int code = errno;
    m_isElsewhere = true;
    return (!m_isNew && openTemporary(QFile::encodeName(QDir::tempPath()) + '/')) || fail(folderError(code));
}

/// The name begins with a point and says nothing of the target's, which may be as long as names can be.
bool FileReplacement::openTemporary(const QByteArray &folder)
{
    QByteArray name = folder + (folder.endsWith('/') ? "" : "/") + ".new-XXXXXX";
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    m_temporary = name;
    if (!m_isElsewhere) {
        if (!m_isNew && ::fchown(descriptor, m_owner, m_group) != 0 && ::fchown(descriptor, uid_t(-1), m_group) != 0) {
            m_mode &= ~0070U | (m_mode & 0007U) << 3; // to another group what everybody is allowed
        }
        ::fchmod(descriptor, m_mode);
    }
    return m_file.open(descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle);
}

bool FileReplacement::commit()
{
    if (!m_file.flush() || m_file.error() != QFileDevice::NoError) {
        return fail(m_file.errorString());
    }
    ::fsync(m_file.handle()); // where that can't be done there is nothing more to do
    if (!m_isElsewhere) {
        if (std::rename(m_temporary.constData(), m_target.constData()) == 0) {
            m_temporary.clear();
            m_file.close();
            return true;
        }
        if (m_isNew) {
            return fail(systemError(errno));
        }
    }
    // A file that is mounted by itself, or that another user has in a shared folder, can't be replaced, only written.
    return copyOver();
}

bool FileReplacement::copyOver()
{
    QFile target;
    const int descriptor = openForWriting(m_target);
    if (descriptor < 0
        || !target.open(descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        return fail(QStringLiteral("The file can't be written"));
    }
    const qint64 oldSize = target.size();
    const qint64 newSize = m_file.size();
    // Room is made before a byte of the old content goes.
    const int code = newSize > oldSize ? ::posix_fallocate(descriptor, oldSize, newSize - oldSize) : 0;
    if (code != 0) {
        target.resize(oldSize);
        return fail(systemError(code));
    }
    if (!copyContent(target) || !target.resize(newSize)) {
        const QString whole = QFile::decodeName(m_temporary);
        m_temporary.clear();
        return fail(QStringLiteral("Only a part could be written. The whole is in '%1'").arg(whole));
    }
    ::fsync(descriptor);
    return true;
}

bool FileReplacement::copyContent(QFile &to)
{
    constexpr qint64 pieceSize = 1 << 20;
    if (!m_file.seek(0)) {
        return false;
    }
    for (;;) {
        const QByteArray piece = m_file.read(pieceSize);
        if (piece.isEmpty()) {
            return m_file.atEnd() && m_file.error() == QFileDevice::NoError;
        }
        if (to.write(piece) != piece.size()) {
            return false;
        }
    }
}

} // namespace platform
