#include "transforms/analysis/correlation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The mean of numbers that may all be the same: then exactly that number, whatever the sum's rounding.
class Mean
{
public:
    void add(double number)
    {
        m_sum += number;
        m_least = std::min(m_least, number);
        m_most = std::max(m_most, number);
    }
    double value(int count) const { return m_least == m_most ? m_least : m_sum / count; }

private:
    double m_sum = 0.0;
    double m_least = std::numeric_limits<double>::infinity();
    double m_most = -std::numeric_limits<double>::infinity();
};

bool isPair(double x, double y)
{
    return !std::isnan(x) && !std::isnan(y);
}

} // namespace

void Correlation::scale(std::vector<double> &numbers)
{
    double most = 0.0;
    for (const double number : numbers) {
        most = std::isnan(number) ? most : std::max(most, std::abs(number));
    }
    if (most == 0.0) {
        return;
    }
    const int exponent = std::ilogb(most);
    for (double &number : numbers) {
        number = std::ldexp(number, -exponent);
    }
}

Correlation Correlation::of(const std::vector<double> &x, const std::vector<double> &y)
{
    Correlation result;
    Mean meanX;
    Mean meanY;
    for (size_t i = 0; i < x.size(); ++i) {
        if (isPair(x[i], y[i])) {
            ++result.m_pairCount;
            meanX.add(x[i]);
            meanY.add(y[i]);
        }
    }
    const double middleX = meanX.value(result.m_pairCount);
    const double middleY = meanY.value(result.m_pairCount);
    for (size_t i = 0; i < x.size(); ++i) {
        if (isPair(x[i], y[i])) {
            const double fromX = x[i] - middleX;
            const double fromY = y[i] - middleY;
            result.m_products += fromX * fromY;
            result.m_squaresOfX += fromX * fromX;
            result.m_squaresOfY += fromY * fromY;
        }
    }
    return result;
}

double Correlation::coefficient() const
{
    return m_products / std::sqrt(m_squaresOfX * m_squaresOfY);
}
