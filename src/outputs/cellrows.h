#pragma once

#include "data/dataset.h"

#include <vector>

/// The cells of a dataset for loops in row order, with the columns looked up once. The dataset outlives it, unchanged.
class CellRows
{
public:
    explicit CellRows(const Dataset &dataset)
        : m_rowCount(dataset.rowCount())
    {
        m_columns.reserve(static_cast<size_t>(dataset.columnCount()));
        for (int column = 0; column < dataset.columnCount(); ++column) {
            m_columns.push_back(dataset.column(ColumnIndex(column)).cells.constData());
        }
    }

    int rowCount() const { return m_rowCount; }
    int columnCount() const { return static_cast<int>(m_columns.size()); }
    const Cell &at(int row, int column) const { return m_columns[static_cast<size_t>(column)][row]; }
    /// For each column, its first cell.
    const Cell *const *columns() const { return m_columns.data(); }

private:
    int m_rowCount;
    std::vector<const Cell *> m_columns;
};
