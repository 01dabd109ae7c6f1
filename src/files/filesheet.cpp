#include "files/filesheet.h"

#include "platform/paths.h"

#include <QDir>

QString absoluteNativePath(const QString &path)
{
    return path.isEmpty() ? QString() : QDir::toNativeSeparators(platform::resolvedPath(path));
}

QString fileSheetText(const QString &path, const QString &sheet)
{
    const QString file = QDir::toNativeSeparators(path);
    return sheet.isEmpty() ? file : QStringLiteral("%1[%2]").arg(file, sheet);
}

FileSheet splitFileSheet(const QString &text)
{
    const int bracket = text.lastIndexOf(QLatin1Char('['));
    // What a sheet's name may hold is for the workbook to say; a slash in it begins no folder.
    const bool hasSheet = text.endsWith(QLatin1Char(']')) && bracket > text.lastIndexOf(QLatin1Char(']'), -2);
    if (!hasSheet) {
        return {text, QString()};
    }
    return {text.left(bracket), text.mid(bracket + 1, text.size() - bracket - 2)};
}
