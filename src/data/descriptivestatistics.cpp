#include "data/descriptivestatistics.h"

#include "data/statistics.h"

#include <algorithm>
#include <cmath>

void DescriptiveStatistics::clear()
{
    m_numbers.clear();
    m_isSorted = false;
}

void DescriptiveStatistics::add(double number)
{
    m_numbers.push_back(number);
    m_isSorted = false;
}

const std::vector<double> &DescriptiveStatistics::sorted() const
{
    if (!m_isSorted) {
        m_sorted.assign(m_numbers.cbegin(), m_numbers.cend());
        std::sort(m_sorted.begin(), m_sorted.end());
        m_isSorted = true;
    }
    return m_sorted;
}

double DescriptiveStatistics::sum() const
{
    return Statistics::sum(m_numbers.data(), m_numbers.data() + m_numbers.size());
}

std::optional<double> DescriptiveStatistics::minimum() const
{
    return m_numbers.empty() ? std::nullopt
                             : std::make_optional(*std::min_element(m_numbers.cbegin(), m_numbers.cend()));
}

std::optional<double> DescriptiveStatistics::maximum() const
{
    return m_numbers.empty() ? std::nullopt
                             : std::make_optional(*std::max_element(m_numbers.cbegin(), m_numbers.cend()));
}

std::optional<double> DescriptiveStatistics::mean() const
{
    return m_numbers.empty()
               ? std::nullopt
               : std::make_optional(Statistics::mean(m_numbers.data(), m_numbers.data() + m_numbers.size()));
}

double DescriptiveStatistics::middleOf(int begin, int end) const
{
    const double *const numbers = sorted().data();
    const int middle = begin + (end - begin) / 2;
    return (end - begin) % 2 == 1 ? numbers[middle] : (numbers[middle - 1] + numbers[middle]) / 2;
}

std::optional<double> DescriptiveStatistics::median() const
{
    if (m_numbers.empty()) {
        return std::nullopt;
    }
    if (!m_isSorted) {
        // Finding the middle is far cheaper than sorting.
        m_sorted.assign(m_numbers.cbegin(), m_numbers.cend());
        return Statistics::median(m_sorted.data(), m_sorted.data() + m_sorted.size());
    }
    return middleOf(0, count());
}

std::vector<double> DescriptiveStatistics::modes() const
{
    sorted();
    return Statistics::modes(m_sorted.data(), m_sorted.data() + m_sorted.size());
}

std::optional<double> DescriptiveStatistics::standardDeviation() const
{
    return count() < 2 ? std::nullopt
                       : std::make_optional(
                           Statistics::standardDeviation(m_numbers.data(), m_numbers.data() + m_numbers.size()));
}

std::optional<double> DescriptiveStatistics::variance() const
{
    const std::optional<double> deviation = standardDeviation();
    return deviation ? std::make_optional(*deviation * *deviation) : std::nullopt;
}

std::optional<double> DescriptiveStatistics::lowerQuartile() const
{
    if (count() < 2) {
        return median();
    }
    return middleOf(0, count() / 2);
}

std::optional<double> DescriptiveStatistics::upperQuartile() const
{
    if (count() < 2) {
        return median();
    }
    return middleOf(count() - count() / 2, count());
}

std::optional<double> DescriptiveStatistics::interquartileRange() const
{
    return m_numbers.empty() ? std::nullopt : std::make_optional(*upperQuartile() - *lowerQuartile());
}

std::optional<double> DescriptiveStatistics::skew() const
{
    const double deviation = standardDeviation().value_or(0.0);
    return deviation == 0.0 ? std::nullopt : std::make_optional(3 * (*mean() - *median()) / deviation);
}

std::optional<double> DescriptiveStatistics::atPosition(double position) const
{
    const double low = std::floor(position);
    const double high = std::ceil(position);
    if (m_numbers.empty() || low < 0 || high >= count()) {
        return std::nullopt;
    }
    const double *const numbers = sorted().data();
    const double lower = numbers[static_cast<size_t>(low)];
    return lower + (position - low) * (numbers[static_cast<size_t>(high)] - lower);
}

std::optional<double> DescriptiveStatistics::inclusivePercentile(int percent) const
{
    return atPosition((count() - 1) * (percent * 0.01));
}

std::optional<double> DescriptiveStatistics::exclusivePercentile(int percent) const
{
    return atPosition((count() + 1) * (percent * 0.01) - 1);
}
