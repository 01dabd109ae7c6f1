#include "app/programinfo.h"

#include "settings/product.h"
#include "settings/version.h"

#include <QSysInfo>

QString ProgramInfo::nameAndVersion()
{
    return QStringLiteral("%1 %2").arg(QLatin1String(Product::name), QLatin1String(Version::text));
}

QString ProgramInfo::build()
{
    return QStringLiteral("%1 for %2 with Qt %3")
        .arg(QLatin1String(Version::text), QSysInfo::buildAbi(), QLatin1String(QT_VERSION_STR));
}
