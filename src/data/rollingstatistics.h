#pragma once

#include <cstddef>
#include <functional>
#include <vector>

/// Windows over a list of numbers, as positions from `begins` to before `ends`. Neither bound ever falls from one
/// window to the next. A window may be empty.
struct RollingWindows
{
    std::vector<int> begins;
    std::vector<int> ends;

    void add(int begin, int end)
    {
        begins.push_back(begin);
        ends.push_back(end);
    }
    std::size_t count() const { return begins.size(); }
    int size(std::size_t window) const { return ends[window] - begins[window]; }
};

/// Figures of each of many windows. The figure of an empty window is 0. No number may be NaN.
namespace RollingStatistics {

/// Takes the fraction done, now and then.
using Progress = std::function<void(double)>;

/// Up to 1,024 numbers a window: the very sum that adding them from the first to the last gives. Where a window is
/// wider: the doubles nearest to the true sums, which adding and its many roundings may miss in the last digits.
std::vector<double> sums(
    const std::vector<double> &numbers, const RollingWindows &windows, const Progress &progress = nullptr);
std::vector<double> minimums(const std::vector<double> &numbers, const RollingWindows &windows);
std::vector<double> maximums(const std::vector<double> &numbers, const RollingWindows &windows);
std::vector<double> medians(const std::vector<double> &numbers, const RollingWindows &windows);

} // namespace RollingStatistics
