#include "data/dataset.h"

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

Dataset Dataset::withRows(const QVector<int> &rows) const
{
    Dataset result;
    result.m_columns.reserve(columnCount());
    for (const CellColumn &column : m_columns) {
        result.m_columns.append(column.gathered(rows));
    }
    result.m_rowCount = hasColumns() ? rows.size() : 0;
    result.m_hasHeader = m_hasHeader;
    result.m_header = m_header;
    result.m_columnIds = m_columnIds;
    return result;
}
