#include "transforms/keyindex.h"

#include "data/cellhash.h"

#include <QVarLengthArray>
#include <array>

namespace {

Cell lowered(const Cell &cell, TextArena &arena)
{
    const int size = cell.size();
    if (!TextCoding::isAscii(cell.bytes(), size)) {
        return arena.store(cell.text().toLower());
    }
    QVarLengthArray<char, 256> bytes(size);
    bool changes = false;
    for (int i = 0; i < size; ++i) {
        const char c = cell.bytes()[i];
        const bool upper = c >= 'A' && c <= 'Z';
        changes |= upper;
        bytes[i] = upper ? static_cast<char>(c + 32) : c;
    }
    return changes ? arena.store(bytes.constData(), size) : cell;
}

} // namespace

CellColumn keyColumn(const CellColumn &column, bool caseSensitive)
{
    if (caseSensitive) {
        return column;
    }
    CellColumn keys;
    const TextArenaPointer arena(new TextArena);
    keys.keepAllOf(column);
    keys.keep(arena);
    keys.cells.reserve(column.size());
    for (int row = 0; row < column.size(); ++row) {
        keys.cells.append(lowered(column.at(row), *arena));
    }
    return keys;
}

quint32 KeyIndex::hashOf(const Cell &key)
{
    return static_cast<quint32>(CellHash::of(key) >> 32);
}

/// Where the key stands, or the free slot for it.
quint32 KeyIndex::slotOf(const Cell &key, quint32 hash) const
{
    quint32 at = hash & m_mask;
    while (m_slots[at].row >= 0 && (m_slots[at].hash != hash || !m_keys.at(m_slots[at].row).sameText(key))) {
        at = (at + 1) & m_mask;
    }
    return at;
}

KeyIndex::KeyIndex(const CellColumn &keys)
    : m_keys(keys)
    , m_next(static_cast<size_t>(keys.size()), -1)
{
    quint32 slotCount = 16;
    while (slotCount < static_cast<quint32>(keys.size()) * 2U && slotCount < (1U << 31)) {
        slotCount *= 2;
    }
    m_mask = slotCount - 1;
    m_slots.resize(slotCount);
    // From the last row to the first, so that each key's rows come out in ascending order.
    for (int row = keys.size() - 1; row >= 0; --row) {
        const quint32 hash = hashOf(keys.at(row));
        Slot &slot = m_slots[slotOf(keys.at(row), hash)];
        m_keyCount += slot.row < 0;
        m_next[static_cast<size_t>(row)] = slot.row;
        slot = {hash, row};
    }
}

int KeyIndex::firstRow(const Cell &key) const
{
    return m_slots[slotOf(key, hashOf(key))].row;
}

void KeyIndex::firstRows(const Cell *keys, int count, int *rows) const
{
    constexpr int atOnce = 32;
    const Cell *const cells = m_keys.cells.constData();
    for (int begin = 0; begin < count; begin += atOnce) {
        std::array<quint32, atOnce> hashes;
        const int end = qMin(begin + atOnce, count);
        for (int i = begin; i < end; ++i) {
            hashes[static_cast<size_t>(i - begin)] = hashOf(keys[i]);
            __builtin_prefetch(&m_slots[hashes[static_cast<size_t>(i - begin)] & m_mask]);
        }
        for (int i = begin; i < end; ++i) {
            rows[i] = m_slots[hashes[static_cast<size_t>(i - begin)] & m_mask].row;
            __builtin_prefetch(cells + qMax(0, rows[i]));
        }
        for (int i = begin; i < end; ++i) {
            if (rows[i] >= 0) {
                __builtin_prefetch(cells[rows[i]].bytes());
            }
        }
        for (int i = begin; i < end; ++i) {
            rows[i] = m_slots[slotOf(keys[i], hashes[static_cast<size_t>(i - begin)])].row;
        }
    }
}
