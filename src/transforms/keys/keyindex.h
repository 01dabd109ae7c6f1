#pragma once

#include "data/cellcolumn.h"

#include <vector>

/// Texts of a column as keys: the cells themselves, or their lower-case forms. Held by column, so that keys are folded
/// once and compared by their bytes.
CellColumn keyColumn(const CellColumn &column, bool caseSensitive);

/// Finds the rows of a column of keys that hold a text. Keeps the column's cells alive.
class KeyIndex
{
public:
    explicit KeyIndex(const CellColumn &keys);

    /// The first row with the text of `key`, or -1.
    int firstRow(const Cell &key) const;
    /// firstRow() of `count` keys. Keys lie all over memory: asked for many at a time, the waits for them overlap.
    void firstRows(const Cell *keys, int count, int *rows) const;
    /// The next row with the same text as `row`, in ascending order, or -1.
    int nextRow(int row) const { return m_next.at(static_cast<size_t>(row)); }
    /// How many different keys there are.
    int keyCount() const { return m_keyCount; }
    const CellColumn &keys() const { return m_keys; }

private:
    struct Slot
    {
        quint64 hash = 0;
        int row = -1; ///< the first row of a key
        int size = 0; ///< of the key in bytes
    };
    static constexpr int toldByHash = 8; ///< keys of up to this size needn't be looked at themselves
    quint32 homeOf(quint64 hash) const { return static_cast<quint32>(hash >> 32) & m_mask; }
    quint32 slotOf(const Cell &key, quint64 hash) const;

    CellColumn m_keys;
    std::vector<Slot> m_slots;
    std::vector<int> m_next;
    quint32 m_mask = 0;
    int m_keyCount = 0;
};
