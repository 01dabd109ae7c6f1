#pragma once

#include "data/cell.h"

#include <vector>

/// Remembers what was found for cells by their bits, so that a text that repeats costs a look-up. Equal bits mean equal
/// text among cells whose texts all stay where they are. A cell takes the place of another one now and then: what is
/// remembered never outgrows the columns.
template<class Value>
class CellMemo
{
public:
    /// For columns of `cellCount` cells, with 2^`mostBits` places at most. A memo of a size of its own would outweigh
    /// the cells of short columns, of which a table can have many.
    CellMemo(int cellCount, int mostBits)
        : m_shift(64 - bitsFor(cellCount, mostBits))
        , m_slots(size_t(1) << (64 - m_shift))
    {
    }

    /// What is remembered of the cell; `find(cell, value)` sets it if nothing is.
    template<class Find>
    const Value &of(const Cell &cell, Find find)
    {
        const quint64 bits = cell.bits();
        Slot &slot = m_slots[bits * 0x9E3779B97F4A7C15ULL >> m_shift];
        if (slot.bits != bits) {
            find(cell, slot.value);
            slot.bits = bits;
        }
        return slot.value;
    }
    /// Forgets all.
    void clear() { m_slots.assign(m_slots.size(), Slot()); }

private:
    struct Slot
    {
        quint64 bits = ~quint64(0); ///< of no cell
        Value value{};
    };

    static int bitsFor(int cellCount, int mostBits)
    {
        int bits = 2;
        while (bits < mostBits && (1 << bits) < cellCount) {
            ++bits;
        }
        return bits;
    }

    int m_shift;
    std::vector<Slot> m_slots;
};
