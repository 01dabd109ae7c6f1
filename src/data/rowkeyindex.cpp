#include "data/rowkeyindex.h"

#include "data/cellhash.h"

#include <QVarLengthArray>

RowKeyIndex::RowKeyIndex(std::vector<const Cell *> columns)
    : m_columns(std::move(columns))
    , m_slots(1024)
{
}

quint32 RowKeyIndex::hashOf(int row) const
{
    quint64 hash = 0;
    for (const Cell *cells : m_columns) {
        hash = CellHash::mixed(hash, CellHash::of(cells[row]));
    }
    return static_cast<quint32>(hash >> 32);
}

bool RowKeyIndex::sameKey(int a, int b) const
{
    for (const Cell *cells : m_columns) {
        if (!cells[a].sameText(cells[b])) {
            return false;
        }
    }
    return true;
}

/// Where the row's key stands, or the free slot for it.
size_t RowKeyIndex::slotOf(int row, quint32 hash) const
{
    const size_t mask = m_slots.size() - 1;
    size_t at = hash & mask;
    while (m_slots[at].number >= 0 && (m_slots[at].hash != hash || !sameKey(firstRow(m_slots[at].number), row))) {
        at = (at + 1) & mask;
    }
    return at;
}

// Keys lie all over memory. Asking for many at a time lets the waits for them overlap.
void RowKeyIndex::announce(int begin, int end) const
{
    QVarLengthArray<size_t, 64> places;
    for (int row = begin; row < end; ++row) {
        places.append(hashOf(row) & (m_slots.size() - 1));
        __builtin_prefetch(&m_slots[places.back()]);
    }
    QVarLengthArray<int, 64> rows;
    for (const size_t place : places) {
        if (m_slots[place].number >= 0) {
            rows.append(firstRow(m_slots[place].number));
            for (const Cell *cells : m_columns) {
                __builtin_prefetch(cells + rows.back());
            }
        }
    }
    for (const int row : rows) {
        for (const Cell *cells : m_columns) {
            __builtin_prefetch(cells[row].bytes());
        }
    }
}

int RowKeyIndex::find(int row) const
{
    return m_slots[slotOf(row, hashOf(row))].number;
}

int RowKeyIndex::add(int row)
{
    const quint32 hash = hashOf(row);
    Slot &slot = m_slots[slotOf(row, hash)];
    if (slot.number >= 0) {
        return slot.number;
    }
    const int number = size();
    slot = {hash, number};
    m_firstRows.push_back(row);
    if (m_firstRows.size() * 2 > m_slots.size()) {
        grow();
    }
    return number;
}

void RowKeyIndex::grow()
{
    std::vector<Slot> grown(m_slots.size() * 4);
    const size_t mask = grown.size() - 1;
    for (const Slot &slot : m_slots) {
        if (slot.number >= 0) {
            size_t at = slot.hash & mask;
            while (grown[at].number >= 0) {
                at = (at + 1) & mask;
            }
            grown[at] = slot;
        }
    }
    m_slots.swap(grown);
}
