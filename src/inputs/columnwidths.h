#pragma once

#include <QList>

/// Edits of the widths of fixed-width columns, in characters. Columns are numbered from 0; `columns` of an edit are in
/// ascending order and there.
namespace ColumnWidths {

/// Where each column starts, and behind them where the last one ends.
QList<int> starts(const QList<int> &widths);
/// The column at a character position, or -1 beyond the last.
int columnAt(const QList<int> &widths, int position);

/// Two or more columns that stand side by side.
bool canMerge(const QList<int> &columns);
/// One column of at least two characters.
bool canSplit(const QList<int> &widths, const QList<int> &columns);

/// One column as wide as all of them.
QList<int> merged(const QList<int> &widths, const QList<int> &columns);
/// Two columns in the place of one, the first the wider one where its width is odd.
QList<int> split(const QList<int> &widths, int column);
/// A column of width 1 before `column`; behind the last for the number of columns.
QList<int> inserted(const QList<int> &widths, int column);
QList<int> removed(const QList<int> &widths, const QList<int> &columns);

} // namespace ColumnWidths
