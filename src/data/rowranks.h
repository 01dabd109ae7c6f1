#pragma once

#include "data/rowsortkey.h"

#include <QVector>

/// Ranks of sorted rows. Rows that are the same by all keys and follow one another share a rank.
class RowRanks
{
public:
    enum Type { Minimum, Average, Maximum, Dense, Cumulative };

    /// `order` is that of the rows by `keys`.
    RowRanks(const std::vector<RowSortKey> &keys, const QVector<int> &order);

    /// The ranks as texts, by position in the order. Rows with different texts in `rankBy`, which may be null, are
    /// ranked on their own.
    CellColumn ranks(Type type, const CellColumn *rankBy) const;

private:
    struct Group;
    std::vector<Group> rankGroups(const CellColumn *rankBy) const;
    bool isSame(int a, int b) const;

    const std::vector<RowSortKey> &m_keys;
    const QVector<int> &m_order;
};
