#pragma once

#include "data/dataset.h"

class DedupeProgress;

/// What becomes of rows that repeat others.
enum class DedupeMode : int { RemoveDuplicates = 0, KeepDuplicates = 1, AddInformation = 2 };

/// Finds the rows of `dataset` whose texts in `columns` repeat those of an earlier row: exactly for a `closeness` of
/// 100, otherwise by at least that percentage (see keyCloseness()). Returns the rows that stay or the rows that repeat,
/// or, for AddInformation, all rows in groups with five more columns. `drilldown` records the input rows of each row
/// that stays. The counts are those of the groups and of the rows that joined one.
Dataset findDuplicates(DedupeProgress *progress, const Dataset &dataset, const QVector<ColumnIndex> &columns,
    bool caseSensitive, bool ignoreSpaces, bool ignorePunctuation, int closeness, DedupeMode mode, bool drilldown,
    int *nonDupesFound, int *dupesFound);

/// The texts by which a row is compared, in the table's order of columns.
QStringList rowKey(const Dataset &dataset, RowIndex row, const QVector<ColumnIndex> &columns, bool caseSensitive,
    bool ignoreSpaces, bool ignorePunctuation);

/// Appends the columns of AddInformation, with empty cells.
void appendDuplicateColumns(Dataset &dataset);
