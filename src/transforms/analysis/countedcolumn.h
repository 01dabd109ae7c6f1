#pragma once

#include "data/dataset.h"

class OptionValues;

/// The options and names that the kinds share which count the values of one column.
namespace CountedColumn {

/// The name of the column of counts: "Count" and the counted column's name, or the one that the user gave.
QString newName(const OptionValues &values, const Dataset &input, ColumnIndex column);
/// A table of what was counted and how often, in two columns. An invalid `column` stands for none chosen.
Dataset table(const OptionValues &values, const Dataset &input, ColumnIndex column, const CellColumn &labels,
    const CellColumn &counts);

} // namespace CountedColumn
