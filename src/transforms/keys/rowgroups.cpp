#include "transforms/keys/rowgroups.h"

#include <cstddef>

RowGroups::RowGroups(const std::vector<int> &groupOfRow, int groupCount)
{
    fill(groupOfRow, groupCount, [&groupOfRow](auto take) {
        for (size_t row = 0; row < groupOfRow.size(); ++row) {
            if (groupOfRow[row] >= 0) {
                take(static_cast<int>(row));
            }
        }
    });
}

RowGroups::RowGroups(const std::vector<int> &groupOfRow, int groupCount, const Rows &order)
{
    fill(groupOfRow, groupCount, [&order](auto take) {
        for (int row : order) {
            take(row);
        }
    });
}

template<class ForEachRow>
void RowGroups::fill(const std::vector<int> &groupOfRow, int groupCount, ForEachRow forEachRow)
{
    const auto groupOf = [&groupOfRow](int row) { return static_cast<size_t>(groupOfRow[static_cast<size_t>(row)]); };
    const auto count = static_cast<size_t>(groupCount);
    m_begins.assign(count + 1, 0);
    forEachRow([&](int row) { ++m_begins[groupOf(row) + 1]; });
    for (size_t group = 0; group < count; ++group) {
        m_begins[group + 1] += m_begins[group];
    }
    m_rows.resize(static_cast<size_t>(m_begins[count]));
    std::vector<int> next = m_begins;
    forEachRow([&](int row) { m_rows[static_cast<size_t>(next[groupOf(row)]++)] = row; });
}
