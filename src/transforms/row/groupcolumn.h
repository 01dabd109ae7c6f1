#pragma once

#include "data/dataset.h"
#include "transforms/keys/rowgroups.h"
#include "transforms/row/uniquemodes.h"

/// How the texts of a group are joined into one.
struct Concatenation
{
    QString delimiter;
    bool ignoreEmpty = false;
};

/// A column with one cell for each of `groups`, which is made from the group's cells in `column` of `dataset`. No group
/// is empty, and rows within a group ascend. Throws std::length_error when no cell could hold a joined text.
CellColumn groupColumn(const Dataset &dataset, ColumnIndex column, const RowGroups &groups, UniqueMode mode,
    const Concatenation &concatenation);

/// The number of rows of each group.
CellColumn groupSizes(const RowGroups &groups);
