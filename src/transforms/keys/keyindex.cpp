#include "transforms/keys/keyindex.h"

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

/// Where the key stands, or the free slot for it.
quint32 KeyIndex::slotOf(const Cell &key, quint64 hash) const
{
    const int size = key.size();
    quint32 at = homeOf(hash);
    for (; m_slots[at].row >= 0; at = (at + 1) & m_mask) {
        const Slot &slot = m_slots[at];
        if (slot.hash == hash && slot.size == size && (size <= toldByHash || m_keys.at(slot.row).sameText(key))) {
            break;
        }
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
        const quint64 hash = CellHash::of(keys.at(row));
        Slot &slot = m_slots[slotOf(keys.at(row), hash)];
        m_keyCount += slot.row < 0;
        m_next[static_cast<size_t>(row)] = slot.row;
        slot = {hash, row, keys.at(row).size()};
    }
}

int KeyIndex::firstRow(const Cell &key) const
{
    return m_slots[slotOf(key, CellHash::of(key))].row;
}

void KeyIndex::firstRows(const Cell *keys, int count, int *rows) const
{
    constexpr int atOnce = 32;
    const Cell *const cells = m_keys.cells.constData();
    std::array<quint64, atOnce> hashes;
    for (int begin = 0; begin < count; begin += atOnce) {
        const int size = qMin(atOnce, count - begin);
        for (int i = 0; i < size; ++i) {
            hashes[static_cast<size_t>(i)] = CellHash::of(keys[begin + i]);
            __builtin_prefetch(&m_slots[homeOf(hashes[static_cast<size_t>(i)])]);
        }
        for (int i = 0; i < size; ++i) {
            const Slot &slot = m_slots[homeOf(hashes[static_cast<size_t>(i)])];
            rows[begin + i] = slot.size > toldByHash ? slot.row : -1;
            __builtin_prefetch(cells + qMax(0, rows[begin + i]));
        }
        for (int i = 0; i < size; ++i) {
            if (rows[begin + i] >= 0) {
                __builtin_prefetch(cells[rows[begin + i]].bytes());
            }
        }
        for (int i = 0; i < size; ++i) {
            const int row = m_slots[slotOf(keys[begin + i], hashes[static_cast<size_t>(i)])].row;
            rows[begin + i] = row;
            __builtin_prefetch(m_next.data() + qMax(0, row)); // whoever finds a row asks for the next
        }
    }
}
