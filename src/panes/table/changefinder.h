#pragma once

#include <QSet>

class DataTableModel;

/// A place in a shown table.
struct TablePlace
{
    int row = -1; ///< of the model, which leaves out what the filter hides
    int column = -1;
    bool isValid() const { return row >= 0; }
};

/// Finds changed cells, row by row from left to right.
namespace ChangeFinder {

/// The first changed cell behind `from`; invalid when there is none. An invalid `from` starts at the top. Cells in
/// `hiddenColumns` are passed over.
TablePlace next(const DataTableModel &table, TablePlace from, const QSet<int> &hiddenColumns = {});
/// The last changed cell before `from`; an invalid `from` starts at the bottom.
TablePlace previous(const DataTableModel &table, TablePlace from, const QSet<int> &hiddenColumns = {});

} // namespace ChangeFinder
