#include "transforms/other/matchingrows.h"

#include <algorithm>

MatchingRows::MatchingRows(const Dataset &dataset, const QVector<ColumnIndex> &keyColumns, bool caseSensitive,
    const std::vector<int> &rows, Match match)
    : m_keys(keysOf(dataset, keyColumns, caseSensitive))
    , m_rowsByKey(groupsOf(m_keys, rows))
    , m_rows(rows)
{
    if (match == Best) {
        m_isMarked.resize(static_cast<size_t>(m_keys.count()));
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

int MatchingRows::matchOf(int row)
{
    const int key = m_keys.numberOf(row);
    if (m_columns.empty() || !m_rowsByKey.rows(key).isEmpty()) {
        return key;
    }
    QVector<int> values;
    for (const Column &column : m_columns) {
        values.append(keysLike(column, key).isEmpty() ? -1 : column.valueOfKey[static_cast<size_t>(key)]);
    }
    // Behind the numbers of the keys, so that none has that of a key.
    return m_numbers.insert(values, m_numbers.value(values, m_keys.count() + m_numbers.size())).value();
}

/// In how many columns the two keys have the same value.
int MatchingRows::matchesOf(int key, int other) const
{
    return static_cast<int>(std::count_if(m_columns.cbegin(), m_columns.cend(), [=](const Column &column) {
        return column.valueOfKey[static_cast<size_t>(key)] == column.valueOfKey[static_cast<size_t>(other)];
    }));
}

std::vector<int> MatchingRows::bestKeys(int key)
{
    std::vector<RowGroups::Rows> lists;
    for (const Column &column : m_columns) {
        if (!keysLike(column, key).isEmpty()) {
            lists.push_back(keysLike(column, key));
        }
    }
    // A key that is in none of the short lists can't match in more columns than there are lists left, so the long ones
    // need no look where more is found before.
    std::sort(lists.begin(), lists.end(), [](const auto &a, const auto &b) { return a.size() < b.size(); });
    std::vector<int> marked;
    std::vector<int> best;
    int most = 0;
    for (size_t i = 0; i < lists.size() && most <= static_cast<int>(lists.size() - i); ++i) {
        for (const int other : lists[i]) {
            ++m_lookedAt;
            char &isMarked = m_isMarked[static_cast<size_t>(other)];
            if (isMarked) {
                continue;
            }
            isMarked = 1;
            marked.push_back(other);
            const int matches = matchesOf(key, other);
            if (matches > most) {
                most = matches;
                best.clear();
            }
            if (matches == most) {
                best.push_back(other);
            }
        }
    }
    for (const int other : marked) {
        m_isMarked[static_cast<size_t>(other)] = 0;
    }
    return best;
}

std::vector<int> MatchingRows::rowsFor(int row)
{
    const int key = m_keys.numberOf(row);
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
