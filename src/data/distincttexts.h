#pragma once

#include "data/cellcolumn.h"
#include "data/rowkeyindex.h"

#include <vector>

/// Tells equal texts apart from new ones within lists of one column's rows. The texts are compared once, when it is
/// made; a list costs no more than its length.
class DistinctTexts
{
public:
    explicit DistinctTexts(const CellColumn &column)
        : m_numbers(static_cast<size_t>(column.size()))
    {
        RowKeyIndex index({column.cells.constData()});
        for (int row = 0; row < column.size(); ++row) {
            m_numbers[static_cast<size_t>(row)] = index.add(row);
        }
        m_counts.resize(static_cast<size_t>(index.size()));
    }

    /// Begins the next list.
    void startList() { ++m_list; }
    /// How often the row's text has come in this list, this time included.
    int add(int row)
    {
        Count &count = m_counts[static_cast<size_t>(m_numbers[static_cast<size_t>(row)])];
        if (count.list != m_list) {
            count = {m_list, 0};
        }
        return ++count.times;
    }

private:
    struct Count
    {
        qint64 list = -1;
        int times = 0;
    };
    std::vector<int> m_numbers;
    std::vector<Count> m_counts;
    qint64 m_list = 0;
};
