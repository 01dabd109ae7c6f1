#include "panes/table/changefinder.h"

#include "panes/table/datatablemodel.h"

#include <vector>

namespace {

/// A column that may hold changes, looked up once for all its rows.
struct ComparedColumn
{
    int index;
    bool isChangedAsWhole;
    const Cell *cells;
    const Cell *previous;
    int previousRows;

    bool isChangedAt(int row) const
    {
        return isChangedAsWhole || (row < previousRows && !cells[row].sameText(previous[row]));
    }
};

/// The shown columns that may hold changes, from left to right. Those that still share their cells with the previous
/// table hold none.
std::vector<ComparedColumn> comparedColumns(const DataTableModel &table, const QSet<int> &hidden)
{
    std::vector<ComparedColumn> columns;
    for (int i = 0; i < table.columnCount(); ++i) {
        const ColumnIndex column(i);
        const Cell *cells = table.dataset().column(column).cells.constData();
        const CellColumn *previous = table.previousColumn(column);
        const bool isWhole = table.isChangedColumn(column);
        if (!hidden.contains(i) && (isWhole || (previous && previous->cells.constData() != cells))) {
            columns.push_back(
                {i, isWhole, cells, isWhole ? nullptr : previous->cells.constData(), isWhole ? 0 : previous->size()});
        }
    }
    return columns;
}

} // namespace

TablePlace ChangeFinder::next(const DataTableModel &table, TablePlace from, const QSet<int> &hiddenColumns)
{
    const std::vector<ComparedColumn> columns = comparedColumns(table, hiddenColumns);
    const int rows = columns.empty() ? 0 : table.rowCount();
    for (int row = qMax(0, from.row); row < rows; ++row) {
        const int place = table.rowOf(row).toInt();
        for (const ComparedColumn &column : columns) {
            const bool isBehind = row != from.row || column.index > from.column;
            if (isBehind && column.isChangedAt(place)) {
                return {row, column.index};
            }
        }
    }
    return {};
}

TablePlace ChangeFinder::previous(const DataTableModel &table, TablePlace from, const QSet<int> &hiddenColumns)
{
    const std::vector<ComparedColumn> columns = comparedColumns(table, hiddenColumns);
    const int last = columns.empty() ? -1 : table.rowCount() - 1;
    for (int row = from.isValid() ? qMin(from.row, last) : last; row >= 0; --row) {
        const int place = table.rowOf(row).toInt();
        for (auto column = columns.rbegin(); column != columns.rend(); ++column) {
            const bool isBefore = row != from.row || column->index < from.column;
            if (isBefore && column->isChangedAt(place)) {
                return {row, column->index};
            }
        }
    }
    return {};
}
