#pragma once

class DataTableModel;
class Prompts;
class QModelIndex;

/// Windows that show a part of a table by itself. They show copies, so the table may change or go meanwhile.
namespace TableWindows {

/// The names of the columns beside the values of a row; `row` is one of the model.
void showRow(Prompts &prompts, const DataTableModel &table, int row);
/// The most frequent values of a column and figures about it.
void showColumn(Prompts &prompts, const DataTableModel &table, int column);
/// The whole text of a cell.
void showValue(Prompts &prompts, const DataTableModel &table, const QModelIndex &index);
/// The rows of the table upstream that a cell sums up.
void showDrilldown(Prompts &prompts, const DataTableModel &table, const QModelIndex &index);

} // namespace TableWindows
