#include "transforms/analysis/bins.h"

#include <algorithm>
#include <cmath>

Bins::Bins(const Settings &settings)
    : m_settings(settings)
    , m_origin(settings.lower.value_or(0.0))
{
    m_locale.setNumberOptions(QLocale::OmitGroupSeparator);
}

double Bins::rangeOf(double value) const
{
    return std::floor((value - m_origin) / m_settings.size);
}

void Bins::add(double value)
{
    m_values.push_back(value);
    if (isBelow(value)) {
        m_hasBelow = true;
    } else if (isAbove(value)) {
        m_hasAbove = true;
    } else {
        const double range = rangeOf(value);
        m_firstRange = std::min(m_firstRange, range);
        m_lastRange = std::max(m_lastRange, range);
    }
}

double Bins::rangeCount() const
{
    if (m_firstRange > m_lastRange) {
        return 0;
    }
    const double count = m_lastRange - m_firstRange + 1;
    return std::isfinite(count) ? count : std::numeric_limits<double>::infinity();
}

QVector<Bins::Bin> Bins::list() const
{
    QVector<Bin> bins;
    if (m_hasBelow) {
        bins.append({QLatin1Char('<') + text(*m_settings.lower), 0});
    }
    const auto count = static_cast<int>(rangeCount());
    for (int i = 0; i < count; ++i) {
        bins.append({label(m_firstRange + i), 0});
    }
    if (m_hasAbove) {
        bins.append({QChar(0x2265) + text(*m_settings.upper), 0});
    }
    for (int place : places()) {
        ++bins[place].count;
    }
    return bins;
}

std::vector<int> Bins::places() const
{
    const int firstPlace = m_hasBelow ? 1 : 0;
    const int lastPlace = firstPlace + static_cast<int>(rangeCount());
    std::vector<int> places;
    places.reserve(m_values.size());
    for (double value : m_values) {
        places.push_back(isBelow(value)   ? 0
                         : isAbove(value) ? lastPlace
                                          : firstPlace + static_cast<int>(rangeOf(value) - m_firstRange));
    }
    return places;
}

QString Bins::label(double range) const
{
    const double start = range * m_settings.size + m_origin;
    double end = start + m_settings.size - (m_settings.integers ? 1 : 0);
    if (m_settings.upper) {
        end = std::min(end, *m_settings.upper - (m_settings.integers ? 1 : 0));
    }
    if (!m_settings.integers) {
        return text(start) + m_settings.delimiter + QLatin1Char('<') + text(end);
    }
    return start == end ? text(start) : text(start) + m_settings.delimiter + text(end);
}

QString Bins::text(double value) const
{
    // The sum has no negative zero.
    return m_settings.integers ? m_locale.toString(static_cast<qlonglong>(value)) : m_locale.toString(value + 0.0);
}
