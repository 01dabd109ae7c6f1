#include "transforms/other/matchingrows.h"

#include <algorithm>

MatchingRows::MatchingRows(const Dataset &dataset, const QVector<ColumnIndex> &keyColumns, bool caseSensitive,
    const std::vector<int> &rows, Match match)
    : m_keys(keysOf(dataset, keyColumns, caseSensitive))
    , m_rowsByKey(groupsOf(m_keys, rows))
    , m_rows(rows)
{
    if (match == Best) {
        m_matches.resize(static_cast<size_t>(m_keys.count()));
        for (const ColumnIndex column : keyColumns) {
            m_columns.push_back(columnOf(dataset, column, caseSensitive));
        }
    }
}

RowKeys MatchingRows::keysOf(const Dataset &dataset, const QVector<ColumnIndex> &columns, bool caseSensitive)
{
    RowKeys keys(dataset, columns, caseSensitive);
    for (int row = 0; row < dataset.rowCount(); ++row) {
        keys.add(row);
    }
    return keys;
}

RowGroups MatchingRows::groupsOf(const RowKeys &keys, const std::vector<int> &rows)
{
    std::vector<int> groups(keys.numbers().size(), -1);
    for (const int row : rows) {
        groups[static_cast<size_t>(row)] = keys.numberOf(row);
    }
    return RowGroups(groups, keys.count());
}

MatchingRows::Column MatchingRows::columnOf(const Dataset &dataset, ColumnIndex column, bool caseSensitive) const
{
    const RowKeys values = keysOf(dataset, {column}, caseSensitive);
    std::vector<int> valueOfKey;
    std::vector<int> found;
    for (int key = 0; key < m_keys.count(); ++key) {
        valueOfKey.push_back(values.numberOf(m_keys.firstRow(key)));
        found.push_back(m_rowsByKey.rows(key).isEmpty() ? -1 : valueOfKey.back());
    }
    return {std::move(valueOfKey), RowGroups(found, values.count())};
}

std::vector<int> MatchingRows::bestKeys(int key)
{
    std::vector<int> matching;
    int most = 0;
    for (const Column &column : m_columns) {
        const RowGroups::Rows keys = column.keysByValue.rows(column.valueOfKey[static_cast<size_t>(key)]);
        for (const int other : keys) {
            int &matches = m_matches[static_cast<size_t>(other)];
            if (matches == 0) {
                matching.push_back(other);
            }
            most = qMax(most, ++matches);
        }
    }
    std::vector<int> best;
    for (const int other : matching) {
        if (m_matches[static_cast<size_t>(other)] == most) {
            best.push_back(other);
        }
        m_matches[static_cast<size_t>(other)] = 0;
    }
    return best;
}

std::vector<int> MatchingRows::rowsFor(int key)
{
    const RowGroups::Rows exact = m_rowsByKey.rows(key);
    if (m_columns.empty() || !exact.isEmpty()) {
        return {exact.begin(), exact.end()};
    }
    std::vector<int> rows;
    for (const int best : bestKeys(key)) {
        const RowGroups::Rows group = m_rowsByKey.rows(best);
        rows.insert(rows.end(), group.begin(), group.end());
    }
    if (rows.empty()) {
        return m_rows;
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}
