#include "data/rowkeyindex.h"

#include <QVarLengthArray>

namespace {

constexpr quint64 multiplier = 0x9E3779B97F4A7C15ULL;

quint64 mixed(quint64 hash, quint64 word)
{
    hash = (hash ^ word) * multiplier;
    return hash ^ hash >> 29;
}

} // namespace

RowKeyIndex::RowKeyIndex(std::vector<const Cell *> columns)
    : m_columns(std::move(columns))
    , m_slots(1024)
{
}

quint64 RowKeyIndex::hashOf(const Cell &cell)
{
    if (cell.isInline()) {
        return cell.bits() * multiplier;
    }
    const char *bytes = cell.bytes();
    const int size = cell.size();
    quint64 hash = static_cast<quint64>(size);
    quint64 word;
    for (int i = 0; i + 8 < size; i += 8) {
        std::memcpy(&word, bytes + i, 8);
        hash = mixed(hash, word);
    }
    // Texts outside the cell have eight bytes or more; the last eight may overlap those before.
    std::memcpy(&word, bytes + size - 8, 8);
    return mixed(hash, word);
}

quint32 RowKeyIndex::hashOf(int row) const
{
    quint64 hash = 0;
    for (const Cell *cells : m_columns) {
        hash = mixed(hash, hashOf(cells[row]));
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
