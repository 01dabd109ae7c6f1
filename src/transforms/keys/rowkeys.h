#pragma once

#include "data/dataset.h"
#include "data/rowkeyindex.h"

#include <vector>

/// Numbers the rows of a table by their keys, a key being the row's texts in some columns. Keys are numbered from 0 in
/// the order in which they first come. Without columns all rows have the same key.
class RowKeys
{
public:
    /// Unless `caseSensitive`, texts that differ only in case are the same.
    RowKeys(const Dataset &dataset, const QVector<ColumnIndex> &columns, bool caseSensitive = true);

    /// Gives the row its number and returns it. Quickest when rows come in ascending order.
    int add(int row)
    {
        if (row % announced == 0) {
            m_index.announce(row, row + qMin(announced, static_cast<int>(m_numbers.size()) - row));
        }
        return m_numbers[static_cast<size_t>(row)] = m_index.add(row);
    }
    int count() const { return m_index.size(); }
    /// -1 for a row that wasn't added.
    int numberOf(int row) const { return m_numbers[static_cast<size_t>(row)]; }
    const std::vector<int> &numbers() const { return m_numbers; }
    /// The row that was added first with that key.
    int firstRow(int key) const { return m_ranked.isEmpty() ? m_index.firstRow(key) : m_ranked.at(key); }
    /// Numbers the keys anew in the order of their texts, column by column by UTF-16 code unit, as the first row of
    /// each key has them. No row is added afterwards.
    void sortByText();

private:
    static constexpr int announced = 32;

    static std::vector<const Cell *> cellsOf(const QVector<CellColumn> &columns);

    QVector<CellColumn> m_columns;
    QVector<CellColumn> m_keys;
    RowKeyIndex m_index;
    std::vector<int> m_numbers;
    QVector<int> m_ranked; ///< first rows by number, once sorted
};
