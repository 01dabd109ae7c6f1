#pragma once

#include "data/indexes.h"

#include <QList>
#include <QVector>

/// For the cells of an aggregate, the rows of the input that each sums up. Adding is cheap, for millions of rows; the
/// order for looking up is made at the first question.
class Drilldown
{
public:
    bool isEmpty() const { return m_entries.isEmpty(); }
    void clear() { m_entries.clear(); }
    /// An invalid column stands for the whole row.
    void add(RowIndex row, ColumnIndex column, RowIndex sourceRow)
    {
        m_entries.append({row.toInt(), column.toInt(), sourceRow.toInt()});
        m_sorted = false;
    }
    /// The rows added for exactly this cell, in the order in which they were added.
    QList<RowIndex> sourceRows(RowIndex row, ColumnIndex column) const;

private:
    struct Entry
    {
        int row;
        int column;
        int sourceRow;
    };
    static bool standsBefore(const Entry &a, const Entry &b)
    {
        return a.row != b.row ? a.row < b.row : a.column < b.column;
    }

    mutable QVector<Entry> m_entries;
    mutable bool m_sorted = true;
};
