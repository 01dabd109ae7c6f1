#include "panes/explore/keyoverlap.h"

#include "panes/explore/joinedkeys.h"
#include "transforms/keys/rowkeys.h"

KeyOverlap::KeyOverlap(
    const Dataset &top, ColumnIndex topColumn, const Dataset &bottom, ColumnIndex bottomColumn, bool caseSensitive)
    : m_columns{{{top, topColumn}, {bottom, bottomColumn}}}
{
    const Dataset joined = joinedKeys(top.column(topColumn), bottom.column(bottomColumn));
    RowKeys keys(joined, {ColumnIndex(0)}, caseSensitive);
    for (int row = 0; row < joined.rowCount(); ++row) {
        keys.add(row);
    }
    const auto keyCount = static_cast<size_t>(keys.count());
    int row = 0;
    for (const Side side : {Top, Bottom}) {
        m_counts[side].assign(keyCount, 0);
        m_firstRows[side].assign(keyCount, -1);
        const int rows = m_columns[side].table.rowCount();
        for (int i = 0; i < rows; ++i, ++row) {
            const int key = keys.numberOf(row);
            if (m_counts[side][static_cast<size_t>(key)]++ == 0) {
                m_firstRows[side][static_cast<size_t>(key)] = i;
                m_order[side].append(key);
            }
        }
        m_figures[side].rows = rows;
        m_figures[side].keys = m_order[side].size();
    }
    for (const Side side : {Top, Bottom}) {
        for (const int key : qAsConst(m_order[side])) {
            m_figures[side].matching += count(key, side == Top ? Bottom : Top) > 0;
            m_figures[side].duplicates += count(key, side) > 1;
        }
    }
}

QVector<int> KeyOverlap::keys(Side side, ExploredKeys which, bool duplicates) const
{
    QVector<int> result;
    for (const int key : m_order[side]) {
        const bool isMatching = count(key, side == Top ? Bottom : Top) > 0;
        if ((duplicates || count(key, side) == 1)
            && (which == ExploredKeys::All || isMatching == (which == ExploredKeys::OnlyMatching))) {
            result.append(key);
        }
    }
    return result;
}

QString KeyOverlap::text(int key, Side side) const
{
    const int row = m_firstRows[side][static_cast<size_t>(key)];
    return row < 0 ? QString() : m_columns[side].table.value(RowIndex(row), m_columns[side].column);
}
