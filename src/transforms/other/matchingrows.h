#pragma once

#include "transforms/rowgroups.h"
#include "transforms/rowkeys.h"

/// Finds, among some rows of a table, those whose cells in the key columns match those of a row.
class MatchingRows
{
public:
    enum Match { Exact, Best };

    /// `rows`, ascending, are those to find.
    MatchingRows(const Dataset &dataset, const QVector<ColumnIndex> &keyColumns, bool caseSensitive,
        const std::vector<int> &rows, Match match);

    /// Rows with the same key find the same rows.
    int keyOf(int row) const { return m_keys.numberOf(row); }
    /// Exact: the rows with that key. Best: those that match it in the most columns, all rows when none matches in any.
    /// Ascending.
    std::vector<int> rowsFor(int key);

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
    std::vector<int> bestKeys(int key);

    RowKeys m_keys;
    RowGroups m_rowsByKey;
    std::vector<int> m_rows;
    std::vector<Column> m_columns;
    std::vector<int> m_matches; ///< of each key, all 0 between calls
};
