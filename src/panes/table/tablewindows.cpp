#include "panes/table/tablewindows.h"

#include "data/values.h"
#include "panes/dialogs/prompts.h"
#include "panes/table/colfrequenciesdialog.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/drilldowndialog.h"
#include "panes/table/rowvaluesdialog.h"
#include "panes/table/valuedialog.h"

void TableWindows::showRow(Prompts &prompts, const DataTableModel &table, int row)
{
    if (row < 0 || row >= table.rowCount() || !table.rowOf(row).isValid()) {
        return;
    }
    RowValuesDialog dialog(table.dataset(), table.rowOf(row), table.showsWhitespace(), prompts.window());
    prompts.exec(dialog);
}

void TableWindows::showColumn(Prompts &prompts, const DataTableModel &table, int column)
{
    if (column < 0 || column >= table.columnCount()) {
        return;
    }
    ColFrequenciesDialog dialog(table.dataset(), ColumnIndex(column), prompts);
    prompts.exec(dialog);
}

void TableWindows::showValue(Prompts &prompts, const DataTableModel &table, const QModelIndex &index)
{
    if (!index.isValid() || !table.rowOf(index.row()).isValid()) {
        return;
    }
    const RowIndex row = table.rowOf(index.row());
    const ColumnIndex column(index.column());
    const QString place = QStringLiteral("Row %1, column '%2'")
                              .arg(formatInteger(row.toInt() + 1, true),
                                  ellipsized(table.dataset().columnName(column), 100));
    ValueDialog dialog(place, table.dataset().value(row, column), prompts.window());
    prompts.exec(dialog);
}

void TableWindows::showDrilldown(Prompts &prompts, const DataTableModel &table, const QModelIndex &index)
{
    if (!table.hasDrilldown(index)) {
        return;
    }
    DrilldownDialog dialog(table.drilldown(index), prompts);
    prompts.exec(dialog);
}
