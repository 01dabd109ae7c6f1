#include "data/rollingstatistics.h"

#include "data/exactsum.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numeric>

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

std::vector<double> exactSums(const std::vector<double> &numbers, const RollingWindows &windows)
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

/// Wider windows are summed without rounding, which takes the same time for any width.
constexpr int widestAddedAnew = 1024;

bool isAnyWide(const RollingWindows &windows)
{
    for (size_t i = 0; i < windows.count(); ++i) {
        if (windows.size(i) > widestAddedAnew) {
            return true;
        }
    }
    return false;
}

bool areFinite(const std::vector<double> &numbers)
{
    return std::all_of(numbers.cbegin(), numbers.cend(), [](double number) { return std::isfinite(number); });
}

std::vector<double> roundedSums(const std::vector<double> &numbers, const RollingWindows &windows)
{
    std::vector<double> sums(windows.count(), 0.0);
    ExactSum sum(numbers);
    int begin = 0;
    int end = 0;
    for (size_t i = 0; i < sums.size(); ++i) {
        for (; end < windows.ends[i]; ++end) {
            sum.add(numbers[static_cast<size_t>(end)]);
        }
        for (; begin < windows.begins[i]; ++begin) {
            sum.subtract(numbers[static_cast<size_t>(begin)]);
        }
        sums[i] = sum.rounded();
    }
    return sums;
}

constexpr size_t lanes = 16;
constexpr size_t additionsPerReport = size_t{1} << 24;

/// Sums `lanes` windows that begin one number after the other side by side, since each addition of one sum has to wait
/// for the one before.
void addLanes(const double *numbers, const RollingWindows &windows, const size_t *which, double *sums)
{
    const double *const start = numbers + windows.begins[which[0]];
    int common = windows.size(which[0]);
    for (size_t lane = 1; lane < lanes; ++lane) {
        common = std::min(common, windows.size(which[lane]));
    }
    std::array<double, lanes> totals{};
    for (int i = 0; i < common; ++i) {
        for (size_t lane = 0; lane < lanes; ++lane) {
            totals[lane] += start[static_cast<size_t>(i) + lane];
        }
    }
    for (size_t lane = 0; lane < lanes; ++lane) {
        double total = totals[lane];
        for (int i = common; i < windows.size(which[lane]); ++i) {
            total += start[static_cast<size_t>(i) + lane];
        }
        sums[which[lane]] = total;
    }
}

bool growsFromLast(const RollingWindows &windows, size_t window)
{
    return window > 0 && windows.begins[window] == windows.begins[window - 1];
}

/// Windows that begin elsewhere than the one before.
std::vector<size_t> newWindows(const RollingWindows &windows)
{
    std::vector<size_t> found;
    found.reserve(windows.count());
    for (size_t i = 0; i < windows.count(); ++i) {
        if (!growsFromLast(windows, i)) {
            found.push_back(i);
        }
    }
    return found;
}

/// Binary tree of counts by which the number at a place in the order of a changing set is found.
class OrderStatisticTree
{
public:
    explicit OrderStatisticTree(const std::vector<double> &numbers)
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
std::vector<double> extremes(const std::vector<double> &numbers, const RollingWindows &windows, Before isBefore)
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

std::vector<double> RollingStatistics::sums(
    const std::vector<double> &numbers, const RollingWindows &windows, const Progress &progress)
{
    if (addExactly(numbers)) {
        return exactSums(numbers, windows);
    }
    if (isAnyWide(windows) && areFinite(numbers)) {
        return roundedSums(numbers, windows);
    }
    std::vector<double> sums(windows.count(), 0.0);
    const std::vector<size_t> anew = newWindows(windows);
    size_t additions = 0;
    for (size_t i = 0; i < anew.size();) {
        const size_t last = i + lanes - 1;
        const auto size = static_cast<size_t>(windows.size(anew[i]));
        if (last < anew.size() && windows.begins[anew[last]] == windows.begins[anew[i]] + static_cast<int>(lanes) - 1) {
            addLanes(numbers.data(), windows, &anew[i], sums.data());
            i += lanes;
            additions += size * lanes;
        } else {
            const double *const first = numbers.data() + windows.begins[anew[i]];
            sums[anew[i]] = std::accumulate(first, first + size, 0.0);
            ++i;
            additions += size;
        }
        if (additions >= additionsPerReport && progress) {
            progress(static_cast<double>(i) / static_cast<double>(anew.size()));
            additions = 0;
        }
    }
    for (size_t i = 1; i < sums.size(); ++i) {
        if (growsFromLast(windows, i)) {
            const auto begin = numbers.cbegin() + windows.ends[i - 1];
            sums[i] = std::accumulate(begin, numbers.cbegin() + windows.ends[i], sums[i - 1]);
        }
    }
    return sums;
}

std::vector<double> RollingStatistics::minimums(const std::vector<double> &numbers, const RollingWindows &windows)
{
    return extremes(numbers, windows, std::less<double>());
}

std::vector<double> RollingStatistics::maximums(const std::vector<double> &numbers, const RollingWindows &windows)
{
    return extremes(numbers, windows, std::greater<double>());
}

std::vector<double> RollingStatistics::medians(const std::vector<double> &numbers, const RollingWindows &windows)
{
    std::vector<double> medians(windows.count(), 0.0);
    OrderStatisticTree window(numbers);
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
