#pragma once

#include "data/cellcolumn.h"

#include <QHash>
#include <QStringList>
#include <vector>

/// How often each part comes in each row. Only what is there is kept and walked over, so that time and memory follow
/// the parts and not rows times different parts.
class PartCounts
{
public:
    /// Rows are added from the first to the last.
    void addRow(const QStringList &parts);
    /// The different parts in the order in which they first came.
    const QStringList &distinct() const { return m_distinct; }
    /// A column for each of `parts`, which may be in any order; with `onlyWhether` counts above 1 are 1. `reportRow` is
    /// called for each row.
    template<class ReportRow>
    std::vector<CellColumn> columns(const QStringList &parts, bool onlyWhether, ReportRow reportRow) const;

private:
    int rowCount() const { return static_cast<int>(m_ends.size()); }
    std::vector<int> placesOf(const QStringList &parts) const;
    static CellColumn zeros(int rows);
    static Cell counted(int count, TextArena &arena);

    QHash<QString, int> m_numbers;
    QStringList m_distinct;
    std::vector<int> m_parts;   ///< numbers of the parts, row after row
    std::vector<size_t> m_ends; ///< where each row ends among them
};

template<class ReportRow>
std::vector<CellColumn> PartCounts::columns(const QStringList &parts, bool onlyWhether, ReportRow reportRow) const
{
    const std::vector<int> places = placesOf(parts);
    const TextArenaPointer arena(new TextArena);
    CellColumn none = zeros(rowCount());
    none.keep(arena);
    std::vector<CellColumn> result(static_cast<size_t>(parts.size()), none);
    std::vector<Cell *> cells;
    for (CellColumn &column : result) {
        cells.push_back(column.cells.data());
    }
    std::vector<int> counts(result.size(), 0);
    size_t begin = 0;
    for (int row = 0; row < rowCount(); ++row) {
        reportRow(row);
        const size_t end = m_ends[static_cast<size_t>(row)];
        const auto forEachPlace = [&](auto take) {
            for (size_t i = begin; i < end; ++i) {
                const int place = places[static_cast<size_t>(m_parts[i])];
                if (place >= 0) {
                    take(static_cast<size_t>(place));
                }
            }
        };
        forEachPlace([&](size_t place) { ++counts[place]; });
        forEachPlace([&](size_t place) {
            // A part that comes several times stands here several times, and is written once.
            if (counts[place] > 0) {
                cells[place][row] = counted(onlyWhether ? 1 : counts[place], *arena);
                counts[place] = 0;
            }
        });
        begin = end;
    }
    return result;
}
