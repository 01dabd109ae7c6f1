#pragma once

#include "data/indexes.h"

#include <QStringList>

class DataSource;

/// The columns that may be chosen of a table.
struct ColumnList
{
    QStringList names;
    QList<ColumnId> ids;

    int size() const { return ids.size(); }
    /// -1 for a column that isn't there.
    int indexOf(ColumnId id) const { return id.isNull() ? -1 : ids.indexOf(id); }
    friend bool operator==(const ColumnList &a, const ColumnList &b) { return a.ids == b.ids && a.names == b.names; }
    friend bool operator!=(const ColumnList &a, const ColumnList &b) { return !(a == b); }

    /// Those of the table of `source`, which may be null.
    static ColumnList of(const DataSource *source);
};
