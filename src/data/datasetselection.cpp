#include "data/dataset.h"

void Dataset::addNamedColumn(const CellColumn &cells, const QString &name)
{
    appendColumn(cells);
    if (!name.isEmpty()) {
        setHeaderValue(lastColumn(), name);
    }
}

Dataset Dataset::withColumns(const QVector<ColumnIndex> &columns) const
{
    Dataset result;
    QStringList names;
    for (ColumnIndex source : columns) {
        names.append(m_header.value(source.toInt()));
        result.appendColumn(column(source), QString(), columnId(source));
    }
    if (m_hasHeader && !columns.isEmpty()) {
        result.setHeader(names);
    }
    return result;
}
