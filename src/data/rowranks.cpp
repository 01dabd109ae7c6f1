#include "data/rowranks.h"

#include "data/realwriter.h"
#include "data/rowkeyindex.h"

#include <algorithm>
#include <numeric>

/// Positions in the order of the rows that are ranked together.
struct RowRanks::Group
{
    std::vector<int> positions;
};

RowRanks::RowRanks(const std::vector<RowSortKey> &keys, const QVector<int> &order)
    : m_keys(keys)
    , m_order(order)
{
}

std::vector<RowRanks::Group> RowRanks::rankGroups(const CellColumn *rankBy) const
{
    std::vector<Group> groups;
    if (!rankBy) {
        groups.resize(1);
        groups.front().positions.resize(static_cast<size_t>(m_order.size()));
        std::iota(groups.front().positions.begin(), groups.front().positions.end(), 0);
        return groups;
    }
    RowKeyIndex index({rankBy->cells.constData()});
    for (int position = 0; position < m_order.size(); ++position) {
        const auto number = static_cast<size_t>(index.add(m_order.at(position)));
        if (number == groups.size()) {
            groups.emplace_back();
        }
        groups[number].positions.push_back(position);
    }
    return groups;
}

bool RowRanks::isSame(int a, int b) const
{
    return std::all_of(m_keys.cbegin(), m_keys.cend(), [a, b](const RowSortKey &key) { return key.isSame(a, b); });
}

CellColumn RowRanks::ranks(Type type, const CellColumn *rankBy) const
{
    CellColumn column;
    const TextArenaPointer arena(new TextArena);
    column.keep(arena);
    column.cells.resize(m_order.size());
    Cell *cells = column.cells.data();
    const RealWriter writer(false, -1, true);
    TextBuffer text;
    for (const Group &group : rankGroups(rankBy)) {
        const std::vector<int> &positions = group.positions;
        int tieGroup = 0;
        double cumulated = 0;
        for (size_t first = 0; first < positions.size();) {
            size_t end = first + 1;
            while (end < positions.size() && isSame(m_order.at(positions[end - 1]), m_order.at(positions[end]))) {
                ++end;
            }
            ++tieGroup;
            cumulated += static_cast<double>(end - first) / static_cast<double>(positions.size());
            const double ranks[] = {first + 1.0, (first + 1.0 + static_cast<double>(end)) / 2.0,
                static_cast<double>(end), static_cast<double>(tieGroup), cumulated};
            writer.write(ranks[type], text);
            const Cell cell = arena->store(text.constData(), text.size());
            for (; first < end; ++first) {
                cells[positions[first]] = cell;
            }
        }
    }
    return column;
}
