#pragma once

#include "data/cell.h"

/// A hash for tables of texts that grow by doubling: all its bits depend on the text, the upper ones best.
namespace CellHash {

inline quint64 mixed(quint64 hash, quint64 word)
{
    hash = (hash ^ word) * 0x9E3779B97F4A7C15ULL;
    return hash ^ hash >> 29;
}

/// Equal texts have equal hashes. Texts of up to eight bytes that have equal sizes and equal hashes are equal, since
/// mixing in one word can be undone.
inline quint64 of(const Cell &cell)
{
    if (cell.isInline()) {
        return mixed(0, cell.bits());
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

} // namespace CellHash
