#include "data/arenaunion.h"

void ArenaUnion::add(const CellColumn &column)
{
    for (const TextArenaPointer &arena : column.arenas) {
        // Columns that stand side by side mostly share an arena.
        if ((m_arenas.empty() || m_arenas.back() != arena) && !m_known.contains(arena.constData())) {
            m_known.insert(arena.constData());
            m_arenas.push_back(arena);
        }
    }
}

TextArenaPointer ArenaUnion::arena() const
{
    if (m_arenas.empty()) {
        return TextArenaPointer();
    }
    return m_arenas.size() == 1 ? m_arenas.front() : TextArenaPointer(new TextArena(m_arenas));
}
