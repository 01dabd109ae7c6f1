#pragma once

#include "transforms/keys/rowgroups.h"
#include "transforms/keys/rowkeys.h"

#include <QHash>
#include <QVector>

/// Finds, among some rows of a table, those whose cells in the key columns match those of a row.
class MatchingRows
{
public:
    enum Match { Exact, Best };

    /// `rows`, ascending, are those to find.
    MatchingRows(const Dataset &dataset, const QVector<ColumnIndex> &keyColumns, bool caseSensitive,
        const std::vector<int> &rows, Match match);

    /// The number of what a row can be matched by: rows with the same number find the same rows. Keys that only differ
    /// where they match nothing have the same.
    int matchOf(int row);
    /// Exact: the rows with the same key as `row`. Best: those that match it in the most columns, all rows when none
    /// matches in any. Ascending.
    std::vector<int> rowsFor(int row);
    /// How many keys were looked at.
    qint64 lookedAt() const { return m_lookedAt; }

private:
    /// The values of one key column.
    struct Column
    {
        std::vector<int> valueOfKey;
        RowGroups keysByValue; ///< keys that have rows to find
    };
    static RowKeys keysOf(const Dataset &dataset, const QVector<ColumnIndex> &columns, bool caseSensitive);
    static RowGroups groupsOf(const RowKeys &keys, const std::vector<int> &rows);
    Column columnOf(const Dataset &dataset, ColumnIndex column, bool caseSensitive) const;
    RowGroups::Rows keysLike(const Column &column, int key) const
    {
        return column.keysByValue.rows(column.valueOfKey[static_cast<size_t>(key)]);
    }
    int matchesOf(int key, int other) const;
    std::vector<int> bestKeys(int key);

    RowKeys m_keys;
    RowGroups m_rowsByKey;
    std::vector<int> m_rows;
    std::vector<Column> m_columns;
    QHash<QVector<int>, int> m_numbers; ///< of what keys can be matched by
    std::vector<char> m_isMarked;       ///< of each key, all 0 between calls
    qint64 m_lookedAt = 0;
};
