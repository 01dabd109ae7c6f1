#include "files/excelmessages.h"

#include "files/filesheet.h"

QString ExcelMessages::notLoaded(const QString &path, const QString &reason)
{
    return withReason(
        QStringLiteral("Unable to load Excel workbook '%1' information.").arg(absoluteNativePath(path)), reason);
}

QString ExcelMessages::withReason(const QString &text, const QString &reason)
{
    return reason.isEmpty() ? text : QStringLiteral("%1\nError: %2").arg(text, reason);
}
