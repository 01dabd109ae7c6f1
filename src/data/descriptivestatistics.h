#pragma once

#include <optional>
#include <vector>

/// The statistics of one list of numbers. A figure that the list is too short for has no value. The list can be
/// refilled, which takes no memory anew.
class DescriptiveStatistics
{
public:
    void clear();
    /// `number` is not NaN.
    void add(double number);
    int count() const { return static_cast<int>(m_numbers.size()); }

    /// From the first to the last number; 0 for none.
    double sum() const;
    std::optional<double> minimum() const;
    std::optional<double> maximum() const;
    std::optional<double> mean() const;
    /// The middle number, or the mean of the two in the middle.
    std::optional<double> median() const;
    /// All numbers that come most often, ascending.
    std::vector<double> modes() const;
    /// Of a sample.
    std::optional<double> standardDeviation() const;
    std::optional<double> variance() const;
    /// The medians of the lower and of the upper half; the middle number of an odd count is in neither.
    std::optional<double> lowerQuartile() const;
    std::optional<double> upperQuartile() const;
    std::optional<double> interquartileRange() const;
    /// Three times the distance of mean and median in standard deviations.
    std::optional<double> skew() const;
    /// The value that `percent` percent of the numbers are at or below, or only below, between the numbers if need be.
    std::optional<double> inclusivePercentile(int percent) const;
    std::optional<double> exclusivePercentile(int percent) const;

private:
    const std::vector<double> &sorted() const;
    /// Of the sorted numbers from `begin` to before `end`.
    double middleOf(int begin, int end) const;
    std::optional<double> atPosition(double position) const;

    std::vector<double> m_numbers;
    mutable std::vector<double> m_sorted;
    mutable bool m_isSorted = true;
};
