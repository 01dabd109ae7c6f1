#include "platform/installedfiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString platform::installedFolder(const QString &name)
{
    const QDir program(QCoreApplication::applicationDirPath());
    QStringList roots{QStringLiteral(QUILLMERE_DATA_FROM_PROGRAM)};
    // build/PRESET/bin; an installed program must not look above its own tree.
    if (program.exists(QStringLiteral("../CMakeCache.txt"))) {
        roots.append(QStringLiteral("../../.."));
    }
    for (const QString &root : roots) {
        const QString folder = QDir::cleanPath(program.absoluteFilePath(root + QLatin1Char('/') + name));
        if (QFileInfo(folder).isDir()) {
            return folder;
        }
    }
    return QString();
}
