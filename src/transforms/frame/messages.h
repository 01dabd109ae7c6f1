#pragma once

#include <QString>
#include <QStringList>

/// Texts that many transforms say: each stands here once. Counts are grouped as the locale has it.
namespace Messages {

/// A count for a person to read.
QString count(qint64 number);
/// `one` for exactly 1, otherwise `many`.
inline QString word(qint64 number, const char *one, const char *many)
{
    return QString::fromLatin1(number == 1 ? one : many);
}
/// "1 duplicate", "2 duplicates"
inline QString counted(qint64 number, const char *one, const char *many)
{
    return count(number) + QLatin1Char(' ') + word(number, one, many);
}
inline QString rows(qint64 number)
{
    return word(number, "row", "rows");
}
inline QString cols(qint64 number)
{
    return word(number, "col", "cols");
}

/// "No changes"
QString noChanges();
/// "3 changed, 9 unchanged", or "No changes" when nothing changed.
QString changed(qint64 changed, qint64 unchanged);
/// "3 changed", or "No changes".
QString changed(qint64 changed);
/// "1 row removed", or "No changes" for none.
QString rowsRemoved(qint64 number);
/// "2 cols added", or "No changes" for none.
QString colsAdded(qint64 number);
/// "2 cols removed", or "No changes" for none.
QString colsRemoved(qint64 number);

/// What is wrong with a regular expression.
QString invalidExpression(const QString &pattern, const QString &error);

} // namespace Messages
