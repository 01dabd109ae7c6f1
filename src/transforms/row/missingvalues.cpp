#include "transforms/row/missingvalues.h"

#include <algorithm>

void MissingValues::addPresent(qint64 value)
{
    m_present.push_back(value);
    if (m_minimumFromData && (!m_minimum || value < *m_minimum)) {
        m_minimum = value;
    }
    if (m_maximumFromData && (!m_maximum || value > *m_maximum)) {
        m_maximum = value;
    }
}

/// Leaves each value within the bounds once, ascending.
void MissingValues::sortPresent()
{
    const auto isOutside = [this](qint64 value) { return value < *m_minimum || value > *m_maximum; };
    m_present.erase(std::remove_if(m_present.begin(), m_present.end(), isOutside), m_present.end());
    std::sort(m_present.begin(), m_present.end());
    m_present.erase(std::unique(m_present.begin(), m_present.end()), m_present.end());
}

quint64 MissingValues::count()
{
    sortPresent();
    // The span between the bounds always fits without its sign; one more may not.
    const quint64 span = static_cast<quint64>(*m_maximum) - static_cast<quint64>(*m_minimum);
    const auto present = static_cast<quint64>(m_present.size());
    return present == 0 ? (span == ~0ULL ? span : span + 1) : span - (present - 1);
}

std::vector<qint64> MissingValues::list()
{
    std::vector<qint64> missing;
    missing.reserve(static_cast<size_t>(count()));
    auto present = m_present.cbegin();
    for (qint64 value = *m_minimum;; ++value) {
        if (present != m_present.cend() && *present == value) {
            ++present;
        } else {
            missing.push_back(value);
        }
        if (value == *m_maximum) {
            return missing;
        }
    }
}
