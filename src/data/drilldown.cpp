#include "data/drilldown.h"

#include <algorithm>

QList<RowIndex> Drilldown::sourceRows(RowIndex row, ColumnIndex column) const
{
    if (!m_sorted) {
        std::stable_sort(m_entries.begin(), m_entries.end(), standsBefore);
        m_sorted = true;
    }
    const Entry wanted{row.toInt(), column.toInt(), 0};
    const auto range = std::equal_range(m_entries.cbegin(), m_entries.cend(), wanted, standsBefore);
    QList<RowIndex> rows;
    for (auto entry = range.first; entry != range.second; ++entry) {
        rows.append(RowIndex(entry->sourceRow));
    }
    return rows;
}
