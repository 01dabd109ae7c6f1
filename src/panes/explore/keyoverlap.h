#pragma once

#include "data/dataset.h"
#include "settings/choices.h"

#include <array>
#include <vector>

/// Which keys two tables share, a key being a text of a table's key column, and how many rows have each.
class KeyOverlap
{
public:
    enum Side { Top, Bottom, SideCount };
    /// The rows of one table.
    struct Figures
    {
        int rows = 0;
        int keys = 0;       ///< different ones
        int matching = 0;   ///< of them, those that the other table has too
        int duplicates = 0; ///< of them, those of more than one row
    };

    /// Both columns are there.
    KeyOverlap(
        const Dataset &top, ColumnIndex topColumn, const Dataset &bottom, ColumnIndex bottomColumn, bool caseSensitive);

    const Figures &figures(Side side) const { return m_figures[side]; }
    /// The numbers of a table's keys, in the order of their first rows there. Without `duplicates` only keys of one
    /// row.
    QVector<int> keys(Side side, ExploredKeys which, bool duplicates) const;
    int count(int key, Side side) const { return m_counts[side][static_cast<size_t>(key)]; }
    /// As the first row of the table has it.
    QString text(int key, Side side) const;

private:
    struct KeyColumn
    {
        Dataset table;
        ColumnIndex column;
    };
    std::array<KeyColumn, SideCount> m_columns;
    std::array<std::vector<int>, SideCount> m_counts;    ///< by key
    std::array<std::vector<int>, SideCount> m_firstRows; ///< by key, -1 for one that the table doesn't have
    std::array<QVector<int>, SideCount> m_order;         ///< keys by their first rows
    std::array<Figures, SideCount> m_figures;
};
