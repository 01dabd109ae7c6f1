#include "transforms/column/partcounts.h"

#include <algorithm>

void PartCounts::addRow(const QStringList &parts)
{
    for (const QString &part : parts) {
        auto number = m_numbers.constFind(part);
        if (number == m_numbers.constEnd()) {
            number = m_numbers.insert(part, m_distinct.size());
            m_distinct.append(part);
        }
        m_parts.push_back(number.value());
    }
    m_ends.push_back(m_parts.size());
}

/// For each different part its place among `parts`, -1 for one that isn't there.
std::vector<int> PartCounts::placesOf(const QStringList &parts) const
{
    std::vector<int> places(static_cast<size_t>(m_distinct.size()), -1);
    for (int place = 0; place < parts.size(); ++place) {
        const int number = m_numbers.value(parts.at(place), -1);
        if (number >= 0) {
            places[static_cast<size_t>(number)] = place;
        }
    }
    return places;
}

CellColumn PartCounts::zeros(int rows)
{
    CellColumn column;
    column.cells.resize(rows);
    std::fill_n(column.cells.data(), rows, Cell::inlined("0", 1));
    return column;
}

Cell PartCounts::counted(int count, TextArena &arena)
{
    if (count == 1) {
        return Cell::inlined("1", 1);
    }
    const QByteArray digits = QByteArray::number(count);
    return arena.store(digits.constData(), digits.size());
}
