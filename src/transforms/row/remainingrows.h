#pragma once

#include <vector>

/// The rows of a table of which some have been taken away, found by how many remain in front of them. A tree of counts
/// (P. M. Fenwick, "A new data structure for cumulative frequency tables", Software: Practice and Experience 24, 1994)
/// keeps each step logarithmic.
class RemainingRows
{
public:
    explicit RemainingRows(int rowCount)
        : m_counts(static_cast<size_t>(rowCount) + 1)
        , m_size(rowCount)
    {
        // Counts[i] covers as many rows up to i as the lowest bit of i says.
        for (size_t i = 1; i < m_counts.size(); ++i) {
            m_counts[i] = static_cast<int>(i & (~i + 1));
        }
        while (m_topBit * 2 < m_counts.size()) {
            m_topBit *= 2;
        }
    }

    int size() const { return m_size; }

    /// Takes away the row with `index` remaining rows in front of it and returns its number.
    int take(int index)
    {
        size_t at = 0;
        for (size_t step = m_topBit; step > 0; step /= 2) {
            if (at + step < m_counts.size() && m_counts[at + step] <= index) {
                at += step;
                index -= m_counts[at];
            } else if (at + step < m_counts.size()) {
                --m_counts[at + step]; // the row lies within
            }
        }
        --m_size;
        return static_cast<int>(at);
    }

private:
    std::vector<int> m_counts;
    size_t m_topBit = 1;
    int m_size;
};
