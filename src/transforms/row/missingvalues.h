#pragma once

#include <QtGlobal>
#include <optional>
#include <vector>

/// Whole numbers that a column holds, and the bounds of a sequence of which some may be missing.
class MissingValues
{
public:
    /// A bound that is set already isn't taken from the values.
    MissingValues(std::optional<qint64> minimum, std::optional<qint64> maximum)
        : m_minimum(minimum)
        , m_maximum(maximum)
        , m_minimumFromData(!minimum)
        , m_maximumFromData(!maximum)
    {
    }

    void addPresent(qint64 value);
    bool hasBounds() const { return m_minimum && m_maximum; }
    qint64 minimum() const { return *m_minimum; }
    qint64 maximum() const { return *m_maximum; }
    /// How many values from the minimum to the maximum are missing. Both bounds are set and in order.
    quint64 count();
    /// All of them, ascending.
    std::vector<qint64> list();

private:
    void sortPresent();

    std::optional<qint64> m_minimum;
    std::optional<qint64> m_maximum;
    bool m_minimumFromData;
    bool m_maximumFromData;
    std::vector<qint64> m_present;
};
