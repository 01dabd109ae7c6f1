#include "transforms/column/sizereport.h"

#include "data/dataset.h"
#include "transforms/frame/messages.h"

#include <QStringList>

static QString change(int difference, const char *one, const char *many)
{
    const qint64 count = qAbs(static_cast<qint64>(difference));
    return QStringLiteral("%1 %2 %3")
        .arg(Messages::count(count), Messages::word(count, one, many),
            difference > 0 ? QStringLiteral("added") : QStringLiteral("removed"));
}

QString sizeReport(const Dataset &before, const Dataset &after)
{
    QStringList lines;
    if (after.columnCount() != before.columnCount()) {
        lines.append(change(after.columnCount() - before.columnCount(), "col", "cols"));
    }
    if (after.rowCount() != before.rowCount()) {
        lines.append(change(after.rowCount() - before.rowCount(), "row", "rows"));
    }
    return lines.join(QStringLiteral(", "));
}
