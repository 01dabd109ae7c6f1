#include "panes/table/changefinder.h"

#include "panes/table/datatablemodel.h"

TablePlace ChangeFinder::next(const DataTableModel &table, TablePlace from)
{
    const int rows = table.rowCount();
    const int columns = table.columnCount();
    int column = from.isValid() ? from.column + 1 : 0;
    for (int row = qMax(0, from.row); row < rows; ++row, column = 0) {
        const RowIndex place = table.rowOf(row);
        for (; column < columns; ++column) {
            if (table.isChanged(place, ColumnIndex(column))) {
                return {row, column};
            }
        }
    }
    return {};
}

TablePlace ChangeFinder::previous(const DataTableModel &table, TablePlace from)
{
    const int columns = table.columnCount();
    int column = from.isValid() ? from.column - 1 : columns - 1;
    for (int row = from.isValid() ? from.row : table.rowCount() - 1; row >= 0; --row, column = columns - 1) {
        const RowIndex place = table.rowOf(row);
        for (; column >= 0; --column) {
            if (table.isChanged(place, ColumnIndex(column))) {
                return {row, column};
            }
        }
    }
    return {};
}
