#include "panes/table/tableselection.h"

#include "panes/table/datatablemodel.h"

#include <algorithm>

TableSelection::TableSelection(const QVector<CellRange> &ranges)
{
    for (const CellRange &range : ranges) {
        if (range.cellCount() > 0) {
            m_rows.append({range.top, range.bottom});
            m_columns.append({range.left, range.right});
        }
    }
    m_rows = merged(m_rows);
    m_columns = merged(m_columns);
}

TableSelection::Spans TableSelection::merged(Spans spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) { return a.first < b.first; });
    Spans result;
    for (const Span &span : qAsConst(spans)) {
        if (!result.isEmpty() && span.first <= result.constLast().last + 1) {
            result.last().last = qMax(result.constLast().last, span.last);
        } else {
            result.append(span);
        }
    }
    return result;
}

int TableSelection::count(const Spans &spans)
{
    int sum = 0;
    for (const Span &span : spans) {
        sum += span.last - span.first + 1;
    }
    return sum;
}

Dataset TableSelection::copied(const DataTableModel &table, CopiedHeader header) const
{
    QVector<ColumnIndex> columns;
    for (const Span &span : m_columns) {
        for (int column = span.first; column <= span.last; ++column) {
            columns.append(ColumnIndex(column));
        }
    }
    QVector<int> rows;
    if (header != CopiedHeader::Only) {
        rows.reserve(rowCount());
        for (const Span &span : m_rows) {
            for (int row = span.first; row <= span.last; ++row) {
                rows.append(table.rowOf(row).toInt());
            }
        }
    }
    Dataset result = table.dataset().withColumns(columns).withRows(rows);
    if (header == CopiedHeader::Without) {
        result.setHeader({});
    }
    return result;
}
