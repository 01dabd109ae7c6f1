#pragma once

#include "data/cell.h"

#include <cstring>
#include <memory>

/// Finds texts that a column holds already, so that equal texts share their bytes. It remembers the last text of each
/// hash, no more, and gives up on a column whose texts don't repeat: what it costs is bounded and small.
class ValuePool
{
public:
    /// The cell last entered with the same text, or an empty cell.
    Cell find(const char *bytes, int size)
    {
        if (m_givenUp || size > largestSize) {
            m_slot = nullptr;
            return Cell();
        }
        if (m_entered >= m_slotCount && m_slotCount < slotCount) {
            grow();
        }
        m_slot = &m_cells[hash(bytes, size) & (m_slotCount - 1)];
        if (++m_lookups == trialLookups) {
            m_givenUp = m_hits < trialLookups / 4;
            m_lookups = 0;
            m_hits = 0;
        }
        if (m_slot->size() == size && std::memcmp(m_slot->bytes(), bytes, static_cast<size_t>(size)) == 0) {
            ++m_hits;
            return *m_slot;
        }
        return Cell();
    }

    /// Remembers the cell made for the text that find() has just not found.
    void enter(Cell cell)
    {
        if (m_slot) {
            *m_slot = cell;
            ++m_entered;
        }
    }

private:
    static constexpr uint slotCount = 2048;
    static constexpr uint leastSlots = 16;
    static constexpr int trialLookups = 4096;
    static constexpr int largestSize = 200;

    /// Short columns, of which a table can have many, get few slots. What was remembered is forgotten.
    void grow()
    {
        m_slotCount = m_slotCount == 0 ? leastSlots : slotCount;
        m_cells = std::make_unique<Cell[]>(m_slotCount);
    }

    static uint hash(const char *bytes, int size)
    {
        // Called for sizes of eight and more only: first and last eight bytes and the size tell most texts apart.
        quint64 first;
        quint64 last;
        std::memcpy(&first, bytes, 8);
        std::memcpy(&last, bytes + size - 8, 8);
        const quint64 mixed = (first ^ (last * 0x9E3779B97F4A7C15ULL) ^ static_cast<quint64>(size))
                              * 0xD6E8FEB86659FD93ULL;
        return static_cast<uint>(mixed >> 40);
    }

    std::unique_ptr<Cell[]> m_cells;
    Cell *m_slot = nullptr;
    uint m_slotCount = 0;
    uint m_entered = 0;
    int m_lookups = 0;
    int m_hits = 0;
    bool m_givenUp = false;
};
