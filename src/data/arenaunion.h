#pragma once

#include "data/cellcolumn.h"

#include <QSet>
#include <vector>

/// Gathers what keeps the texts of many columns, so that each of many other columns can keep all of them at the cost of
/// one arena. Columns that took one another's arenas singly would need time and memory by the square of their number.
class ArenaUnion
{
public:
    void add(const CellColumn &column);
    /// Keeps the texts of all columns that were added; null when they need none.
    TextArenaPointer arena() const;

private:
    QSet<const TextArena *> m_known;
    std::vector<TextArenaPointer> m_arenas;
};
