#include "transforms/keyindex.h"

#include "data/cellhash.h"

#include <QVarLengthArray>

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

quint32 KeyIndex::slotFor(const Cell &key) const
{
    return static_cast<quint32>(CellHash::of(key) >> 32) & m_mask;
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
    m_slots.assign(slotCount, -1);
    // From the last row to the first, so that each key's rows come out in ascending order.
    for (int row = keys.size() - 1; row >= 0; --row) {
        const Cell &key = keys.at(row);
        quint32 slot = slotFor(key);
        while (m_slots[slot] >= 0 && !keys.at(m_slots[slot]).sameText(key)) {
            slot = (slot + 1) & m_mask;
        }
        m_keyCount += m_slots[slot] < 0;
        m_next[static_cast<size_t>(row)] = m_slots[slot];
        m_slots[slot] = row;
    }
}

int KeyIndex::firstRow(const Cell &key) const
{
    quint32 slot = slotFor(key);
    while (m_slots[slot] >= 0 && !m_keys.at(m_slots[slot]).sameText(key)) {
        slot = (slot + 1) & m_mask;
    }
    return m_slots[slot];
}
