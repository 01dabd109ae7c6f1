#pragma once

#include "data/dataset.h"

/// The table of differences: one row a difference, with "N/A" in the fields that don't apply.
class DifferenceTable
{
public:
    /// With `hasKey` the rows have a field for the key. At most `limit` differences go in.
    DifferenceTable(bool hasKey, int limit);

    struct Difference
    {
        QString change;
        QString column;
        QString key;
        int topRow = -1;    ///< 0-based
        int bottomRow = -1; ///< 0-based
        QString topValue;   ///< null for none, which an empty value isn't
        QString bottomValue;
    };

    /// False when the table is full; then it has said so in a last row and takes nothing more.
    bool add(const Difference &difference);
    bool isFull() const { return m_full; }
    int count() const { return m_count; }
    const Dataset &dataset() const { return m_dataset; }

private:
    const bool m_hasKey;
    const int m_limit;
    int m_count = 0;
    bool m_full = false;
    Dataset m_dataset;
};
