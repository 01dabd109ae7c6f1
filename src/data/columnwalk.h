#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QList>
#include <algorithm>
#include <functional>

/// Called for one column that a value names; may put another id there and then returns true.
using ColumnChange = std::function<bool(ColumnId &)>;

// Each form of value that names columns: calls `change` for its ids in order, true when one changed. Records with forms
// of their own overload it.

inline bool changeColumnsIn(ColumnId &id, const ColumnChange &change)
{
    return change(id);
}

template<class Entry>
bool changeColumnsIn(QList<Entry> &list, const ColumnChange &change)
{
    bool changed = false;
    for (Entry &entry : list) {
        changed |= changeColumnsIn(entry, change);
    }
    return changed;
}

/// In the order of the ids, so that messages come in the same order each time.
template<class Value>
bool changeColumnsIn(QHash<ColumnId, Value> &map, const ColumnChange &change)
{
    QList<ColumnId> ids = map.keys();
    std::sort(ids.begin(), ids.end());
    bool changed = false;
    QHash<ColumnId, Value> result;
    for (const ColumnId before : qAsConst(ids)) {
        ColumnId id = before;
        changed |= change(id);
        result.insert(id, map.value(before));
    }
    map = result;
    return changed;
}
