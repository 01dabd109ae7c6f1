#include "outputs/outputpaths.h"

#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QFileInfo>

QString OutputPaths::extension(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

bool OutputPaths::isBlocked(const QString &path)
{
    return Settings::isExtensionBlocked(extension(path), Settings::current().blockedOutputExtensions());
}

int OutputPaths::fileType(const QString &path, int fallback)
{
    const int type = Settings::current().outputTypeOf(extension(path));
    return type == FileType::None ? fallback : type;
}
