#include "data/slidingfigures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace {

constexpr double mostExact = 9007199254740992.0; ///< whole numbers up to here add without rounding

/// Whether sums of any of the numbers in any order are exact.
bool addExactly(const std::vector<double> &numbers)
{
    double magnitude = 0.0;
    for (double number : numbers) {
        magnitude += std::abs(number);
        if (!(magnitude <= mostExact) || number != std::trunc(number)) {
            return false;
        }
    }
    return true;
}

std::vector<double> exactSums(const std::vector<double> &numbers, const SlidingWindows &windows)
{
    std::vector<double> before(numbers.size() + 1, 0.0);
    for (size_t i = 0; i < numbers.size(); ++i) {
        before[i + 1] = before[i] + numbers[i];
    }
    std::vector<double> sums(windows.count());
    for (size_t i = 0; i < sums.size(); ++i) {
        sums[i] = before[static_cast<size_t>(windows.ends[i])] - before[static_cast<size_t>(windows.begins[i])];
    }
    return sums;
}

constexpr size_t lanes = 8;

/// Sums `lanes` windows side by side, since each addition of one sum has to wait for the one before.
void addLanes(const double *numbers, const SlidingWindows &windows, size_t first, double *sums)
{
    std::array<const double *, lanes> starts;
    int common = windows.size(first);
    for (size_t lane = 0; lane < lanes; ++lane) {
        starts[lane] = numbers + windows.begins[first + lane];
        common = std::min(common, windows.size(first + lane));
    }
    std::array<double, lanes> totals{};
    for (int i = 0; i < common; ++i) {
        for (size_t lane = 0; lane < lanes; ++lane) {
            totals[lane] += starts[lane][i];
        }
    }
    for (size_t lane = 0; lane < lanes; ++lane) {
        double total = totals[lane];
        for (int i = common; i < windows.size(first + lane); ++i) {
            total += starts[lane][i];
        }
        sums[first + lane] = total;
    }
}

/// Binary tree of counts by which the number at a place in the order of a changing set is found.
class OrderedWindow
{
public:
    explicit OrderedWindow(const std::vector<double> &numbers)
        : m_values(numbers)
    {
        std::sort(m_values.begin(), m_values.end());
        m_values.erase(std::unique(m_values.begin(), m_values.end()), m_values.end());
        while (m_top * 2 <= m_values.size()) {
            m_top *= 2;
        }
        m_counts.resize(m_values.size() + 1);
        m_ranks.reserve(numbers.size());
        for (double number : numbers) {
            const auto at = std::lower_bound(m_values.cbegin(), m_values.cend(), number);
            m_ranks.push_back(static_cast<size_t>(at - m_values.cbegin()));
        }
    }

    /// Adds or takes away the number at position `number` of the list.
    void change(int number, int by)
    {
        for (size_t i = m_ranks[static_cast<size_t>(number)] + 1; i < m_counts.size(); i += i & (~i + 1)) {
            m_counts[i] += by;
        }
    }
    /// The number that `before` numbers of the window stand before.
    double at(int before) const
    {
        size_t place = 0;
        for (size_t step = m_top; step > 0; step /= 2) {
            if (place + step < m_counts.size() && m_counts[place + step] <= before) {
                place += step;
                before -= m_counts[place];
            }
        }
        return m_values[place];
    }

private:
    std::vector<double> m_values;
    std::vector<int> m_counts;
    std::vector<size_t> m_ranks;
    size_t m_top = 1;
};

template<class Before>
std::vector<double> extremes(const std::vector<double> &numbers, const SlidingWindows &windows, Before isBefore)
{
    std::vector<double> found(windows.count(), 0.0);
    // Positions of numbers that are the extreme of the window once those before them have left it.
    std::vector<int> candidates(numbers.size());
    size_t head = 0;
    size_t tail = 0;
    int next = 0;
    for (size_t i = 0; i < found.size(); ++i) {
        for (; next < windows.ends[i]; ++next) {
            const double number = numbers[static_cast<size_t>(next)];
            while (tail > head && !isBefore(numbers[static_cast<size_t>(candidates[tail - 1])], number)) {
                --tail;
            }
            candidates[tail++] = next;
        }
        while (head < tail && candidates[head] < windows.begins[i]) {
            ++head;
        }
        if (windows.size(i) > 0) {
            found[i] = numbers[static_cast<size_t>(candidates[head])];
        }
    }
    return found;
}

} // namespace

std::vector<double> SlidingFigures::sums(const std::vector<double> &numbers, const SlidingWindows &windows)
{
    if (addExactly(numbers)) {
        return exactSums(numbers, windows);
    }
    std::vector<double> sums(windows.count(), 0.0);
    size_t i = 0;
    while (i < sums.size()) {
        const bool grows = i > 0 && windows.begins[i] == windows.begins[i - 1];
        if (!grows && i + lanes <= sums.size()) {
            addLanes(numbers.data(), windows, i, sums.data());
            i += lanes;
            continue;
        }
        double total = grows ? sums[i - 1] : 0.0;
        for (int at = grows ? windows.ends[i - 1] : windows.begins[i]; at < windows.ends[i]; ++at) {
            total += numbers[static_cast<size_t>(at)];
        }
        sums[i++] = total;
    }
    return sums;
}

std::vector<double> SlidingFigures::minimums(const std::vector<double> &numbers, const SlidingWindows &windows)
{
    return extremes(numbers, windows, std::less<double>());
}

std::vector<double> SlidingFigures::maximums(const std::vector<double> &numbers, const SlidingWindows &windows)
{
    return extremes(numbers, windows, std::greater<double>());
}

std::vector<double> SlidingFigures::medians(const std::vector<double> &numbers, const SlidingWindows &windows)
{
    std::vector<double> medians(windows.count(), 0.0);
    OrderedWindow window(numbers);
    int begin = 0;
    int end = 0;
    for (size_t i = 0; i < medians.size(); ++i) {
        for (; end < windows.ends[i]; ++end) {
            window.change(end, 1);
        }
        for (; begin < windows.begins[i]; ++begin) {
            window.change(begin, -1);
        }
        const int size = windows.size(i);
        if (size > 0) {
            const double middle = window.at(size / 2);
            medians[i] = size % 2 == 1 ? middle : (window.at(size / 2 - 1) + middle) / 2;
        }
    }
    return medians;
}
