#pragma once

#include "data/indexes.h"

#include <QList>

class DataSource;

/// Turns column ids into the column numbers that documents hold, and back, by the table of one item upstream.
class ColumnNumbers
{
public:
    /// `source` may be null: then no column exists.
    explicit ColumnNumbers(const DataSource *source)
        : m_source(source)
    {
    }

    /// 0 for no column, -1 for one that has gone.
    int numberOf(ColumnId id) const;
    /// Null only for 0: a number that the table lacks gives an id that has gone and keeps its number.
    ColumnId idOf(int number) const;
    /// True for an id that the table doesn't have.
    bool hasGone(ColumnId id) const;
    /// The column with that id; invalid for none or one that has gone.
    ColumnIndex indexOf(ColumnId id) const;
    /// All columns of the table.
    QList<ColumnId> ids() const;
    bool hasTable() const { return m_source != nullptr; }

private:
    const DataSource *m_source;
};
