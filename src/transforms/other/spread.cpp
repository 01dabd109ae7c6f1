#include "transforms/other/spread.h"

#include "data/statistics.h"
#include "data/values.h"

#include <algorithm>
#include <cmath>

static QString text(double number)
{
    return formatReal(number, false, -1, true);
}

void Spread::addInfo(const char *name, double figure)
{
    m_infos.append(QLatin1String(name) + QLatin1Char('=') + text(figure));
}

Spread Spread::ofDeviation(std::vector<double> numbers, double threshold)
{
    Spread spread(threshold);
    const double *const begin = numbers.data();
    const double *const end = begin + numbers.size();
    const auto extremes = std::minmax_element(begin, end);
    // The mean of equal numbers may differ from them in the last digit, which would look like a spread.
    const bool allEqual = *extremes.first == *extremes.second;
    const double mean = allEqual ? *begin : Statistics::mean(begin, end);
    const double deviation = allEqual ? 0.0 : Statistics::standardDeviation(begin, end);
    if (!std::isfinite(mean) || !std::isfinite(deviation)) {
        spread.m_fault = QStringLiteral("Could not calculate standard deviation");
    } else if (deviation <= 0.0) {
        spread.m_fault = QStringLiteral("Standard deviation = %1").arg(text(deviation));
    }
    spread.m_low = spread.m_high = mean;
    spread.m_unit = deviation;
    spread.addInfo("Average (mean)", mean);
    spread.addInfo("Standard deviation", deviation);
    return spread;
}

Spread Spread::ofQuartiles(std::vector<double> numbers, double threshold)
{
    Spread spread(threshold);
    std::sort(numbers.begin(), numbers.end());
    double *const begin = numbers.data();
    double *const end = begin + numbers.size();
    const auto half = static_cast<std::ptrdiff_t>(numbers.size() / 2);
    const double first = Statistics::median(begin, begin + half);
    const double third = Statistics::median(end - half, end);
    const double range = third - first;
    if (!std::isfinite(first) || !std::isfinite(third) || !std::isfinite(range)) {
        spread.m_fault = QStringLiteral("Could not calculate quartile values");
    } else if (range <= 0.0) {
        spread.m_fault = QStringLiteral("Inter quartile range = %1").arg(text(range));
    }
    spread.m_low = first;
    spread.m_high = third;
    spread.m_unit = range;
    spread.addInfo("Quartile 1", first);
    spread.addInfo("Quartile 3", third);
    spread.addInfo("Inter Quartile Range", range);
    spread.addInfo("Lower fence", spread.lowerLimit());
    spread.addInfo("Upper fence", spread.upperLimit());
    return spread;
}
