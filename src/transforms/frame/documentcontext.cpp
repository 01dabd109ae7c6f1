#include "transforms/frame/documentcontext.h"

namespace {
QString &currentPath()
{
    static QString path;
    return path;
}
} // namespace

QString DocumentContext::path()
{
    return currentPath();
}

void DocumentContext::setPath(const QString &path)
{
    currentPath() = path;
}
