#pragma once

#include "data/dataset.h"

/// Builds rows of any width out of the cells of another table.
class RowStacker
{
public:
    explicit RowStacker(const Dataset &source)
        : m_source(source)
    {
    }

    void add(RowIndex row, ColumnIndex column) { m_cells.append(m_source.cell(row, column)); }
    bool isRowEmpty() const { return m_cells.size() == m_rowStart; }
    /// Ends the row; the next cell begins another one.
    void endRow()
    {
        m_ends.append(m_cells.size());
        m_width = qMax(m_width, m_cells.size() - m_rowStart);
        m_rowStart = m_cells.size();
    }
    int rowCount() const { return m_ends.size(); }

    /// Makes the table at least so wide.
    void widenTo(int width) { m_width = qMax(m_width, width); }

    /// The rows, padded to the widest. When the source has a header, its names come first and then again and again,
    /// without that of column `leftOut` unless it is -1.
    Dataset table(int leftOut) const;

private:
    const Dataset &m_source;
    QVector<Cell> m_cells;
    QVector<int> m_ends;
    int m_rowStart = 0;
    int m_width = 0;
};
