#include "transforms/frame/messages.h"

#include "data/values.h"

QString Messages::count(qint64 number)
{
    return formatInteger(number, true);
}

QString Messages::noChanges()
{
    return QStringLiteral("No changes");
}

QString Messages::changed(qint64 changed, qint64 unchanged)
{
    return changed == 0 ? noChanges()
                        : QStringLiteral("%1 changed, %2 unchanged").arg(count(changed), count(unchanged));
}

QString Messages::changed(qint64 changed)
{
    return changed == 0 ? noChanges() : QStringLiteral("%1 changed").arg(count(changed));
}

QString Messages::rowsRemoved(qint64 number)
{
    return number == 0 ? noChanges() : QStringLiteral("%1 %2 removed").arg(count(number), rows(number));
}

QString Messages::colsAdded(qint64 number)
{
    return number == 0 ? noChanges() : QStringLiteral("%1 %2 added").arg(count(number), cols(number));
}

QString Messages::colsRemoved(qint64 number)
{
    return number == 0 ? noChanges() : QStringLiteral("%1 %2 removed").arg(count(number), cols(number));
}

QString Messages::invalidExpression(const QString &pattern, const QString &error)
{
    return QStringLiteral("Not a valid regular expression: '%1' (%2)").arg(pattern, error);
}
