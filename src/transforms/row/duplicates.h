#pragma once

#include "data/dataset.h"
#include "transforms/row/keyfolding.h"

class DedupeProgress;

/// What becomes of rows that repeat others.
enum class DedupeMode : int { RemoveDuplicates = 0, KeepDuplicates = 1, AddInformation = 2 };

/// Which rows repeat others, and what becomes of them.
struct DuplicateRules
{
    QVector<ColumnIndex> columns; ///< those that are compared
    KeyFolding folding;
    int closeness = 100; ///< in percent, see keyCloseness(); 100 asks for the same texts
    DedupeMode mode = DedupeMode::RemoveDuplicates;
    bool drilldown = false; ///< record the input rows of each row that stays
};

/// Finds the rows of `dataset` that repeat an earlier row. Returns the rows that stay or the rows that repeat, or, for
/// AddInformation, all rows in groups with five more columns. The counts are those of the groups and of the rows that
/// joined one.
Dataset findDuplicates(
    DedupeProgress *progress, const Dataset &dataset, const DuplicateRules &rules, int *nonDupesFound, int *dupesFound);

/// The texts by which a row is compared, in the table's order of columns.
QStringList rowKey(const Dataset &dataset, RowIndex row, const QVector<ColumnIndex> &columns, bool caseSensitive,
    bool ignoreSpaces, bool ignorePunctuation);

/// Appends the columns of AddInformation, with empty cells.
void appendDuplicateColumns(Dataset &dataset);
