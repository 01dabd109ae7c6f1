#pragma once

#include <QString>
#include <climits>

/// The least and most parts that a value may have when a column is split, and how often each was needed.
class SplitLimits
{
public:
    /// A `most` below `least` counts for nothing.
    SplitLimits(int least, int most)
        : m_least(least)
        , m_most(most < least ? INT_MAX : most)
    {
    }

    int least() const { return m_least; }
    int most() const { return m_most; }
    /// How many parts a value of `count` parts gets; counts the row when that is another number.
    int apply(int count)
    {
        m_padded += count < m_least;
        m_truncated += count > m_most;
        return qBound(m_least, count, m_most);
    }
    int padded() const { return m_padded; }
    int truncated() const { return m_truncated; }

private:
    int m_least;
    int m_most;
    int m_padded = 0;
    int m_truncated = 0;
};
