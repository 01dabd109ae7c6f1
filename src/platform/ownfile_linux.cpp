#include "platform/ownfile.h"

#include <QFile>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

bool platform::isOwnFile(const QString &path)
{
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode)
           && status.st_uid == ::getuid();
}

bool platform::moveOver(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}
