#pragma once

#include "data/cell.h"

#include <vector>

/// Numbers the different keys among rows, a key being the row's texts in some columns. The columns' cells are used
/// where they lie and must stay there.
class RowKeyIndex
{
public:
    /// Each entry points to the first cell of a column.
    explicit RowKeyIndex(std::vector<const Cell *> columns);

    /// Number of the row's key, counted from 0 in the order in which keys first come.
    int add(int row);
    /// Says that the rows from `begin` to before `end` come next, at best a few dozen: fetches what add() will look at.
    void announce(int begin, int end) const;
    /// Number of the row's key, or -1 when no row with that key was added.
    int find(int row) const;
    int size() const { return static_cast<int>(m_firstRows.size()); }
    /// The first row that was added with that key.
    int firstRow(int number) const { return m_firstRows[static_cast<size_t>(number)]; }

private:
    struct Slot
    {
        quint32 hash = 0;
        int number = -1;
    };
    quint32 hashOf(int row) const;
    bool sameKey(int a, int b) const;
    size_t slotOf(int row, quint32 hash) const;
    void grow();

    const std::vector<const Cell *> m_columns;
    std::vector<Slot> m_slots; ///< a power of two, at most half used
    std::vector<int> m_firstRows;
};
