#include "platform/paths.h"

#include <QDir>
#include <QFileInfo>

QString platform::resolvedPath(const QString &path)
{
    const QString absolute = QDir::isRelativePath(path) ? QDir::currentPath() + QLatin1Char('/') + path : path;
    if (!absolute.contains(QLatin1String(".."))) {
        return QDir::cleanPath(absolute);
    }
    QString result = absolute.startsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString();
    for (const QString &part : absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (part == QLatin1String(".")) {
            continue;
        }
        if (part == QLatin1String("..")) {
            const QFileInfo folder(result);
            const QString target = folder.isSymLink() ? folder.canonicalFilePath() : QString();
            result = QFileInfo(target.isEmpty() ? result : target).path(); // of the root it is the root
            continue;
        }
        result += (result.isEmpty() || result.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/")) + part;
    }
    return result;
}
