#include "data/statistics.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Statistics {

double sum(const double *begin, const double *end)
{
    return std::accumulate(begin, end, 0.0);
}

double mean(const double *begin, const double *end)
{
    return begin == end ? 0.0 : sum(begin, end) / static_cast<double>(end - begin);
}

double median(double *begin, double *end)
{
    if (begin == end) {
        return 0.0;
    }
    double *const middle = begin + (end - begin) / 2;
    std::nth_element(begin, middle, end);
    if ((end - begin) % 2 == 1) {
        return *middle;
    }
    return (*std::max_element(begin, middle) + *middle) / 2;
}

std::vector<double> modes(double *begin, double *end)
{
    std::sort(begin, end);
    std::vector<double> result;
    std::ptrdiff_t most = 0;
    for (const double *first = begin; first != end;) {
        const double *const next = std::upper_bound(first, static_cast<const double *>(end), *first);
        if (next - first > most) {
            most = next - first;
            result.clear();
        }
        if (next - first == most) {
            result.push_back(*first);
        }
        first = next;
    }
    return result;
}

double standardDeviation(const double *begin, const double *end)
{
    if (end - begin < 2) {
        return 0.0;
    }
    const double average = mean(begin, end);
    double squares = 0.0;
    for (const double *number = begin; number != end; ++number) {
        squares += (*number - average) * (*number - average);
    }
    return std::sqrt(squares / static_cast<double>(end - begin - 1));
}

} // namespace Statistics
