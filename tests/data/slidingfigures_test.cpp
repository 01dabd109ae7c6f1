#include "data/rollingstatistics.h"
#include "data/statistics.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace {

using Figure = std::function<double(double *, double *)>;

std::vector<double> oneByOne(const std::vector<double> &numbers, const RollingWindows &windows, const Figure &figure)
{
    std::vector<double> figures;
    for (size_t i = 0; i < windows.count(); ++i) {
        std::vector<double> window(numbers.begin() + windows.begins[i], numbers.begin() + windows.ends[i]);
        figures.push_back(window.empty() ? 0.0 : figure(window.data(), window.data() + window.size()));
    }
    return figures;
}

std::vector<double> randomNumbers(std::mt19937 &random, int kind, int count)
{
    std::vector<double> numbers;
    for (int i = 0; i < count; ++i) {
        const int drawn = static_cast<int>(random() % 2001) - 1000;
        switch (kind) {
        case 0:
            numbers.push_back(drawn);
            break;
        case 1:
            numbers.push_back(drawn / 100.0);
            break;
        case 2:
            numbers.push_back(drawn * 1e300);
            break;
        default:
            numbers.push_back(drawn * 1e13 + 0.3);
        }
    }
    return numbers;
}

/// Windows of rows that follow one another, cut at both ends.
RollingWindows steadyWindows(int numbers, int size)
{
    RollingWindows windows;
    for (int end = 1; end < numbers + size; ++end) {
        windows.add(std::min(numbers, std::max(0, end - size)), std::min(numbers, end));
    }
    return windows;
}

/// Windows whose bounds rise by chance, now and then by much.
RollingWindows randomWindows(std::mt19937 &random, int numbers, int count)
{
    RollingWindows windows;
    int begin = 0;
    int end = 0;
    for (int i = 0; i < count; ++i) {
        end = std::min(numbers, end + static_cast<int>(random() % (random() % 20 == 0 ? 50 : 3)));
        begin = std::min(end, begin + static_cast<int>(random() % (random() % 20 == 0 ? 50 : 3)));
        windows.add(begin, end);
    }
    return windows;
}

TEST(RollingStatistics, AreThoseOfEachWindowOnItsOwn)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        const int count = static_cast<int>(random() % 300);
        const std::vector<double> numbers = randomNumbers(random, round % 4, count);
        const RollingWindows windows = round % 8 < 4 ? randomWindows(random, count, static_cast<int>(random() % 300))
                                                     : steadyWindows(count, static_cast<int>(random() % 100));
        EXPECT_EQ(RollingStatistics::sums(numbers, windows), oneByOne(numbers, windows, Statistics::sum));
        EXPECT_EQ(RollingStatistics::medians(numbers, windows), oneByOne(numbers, windows, Statistics::median));
        EXPECT_EQ(RollingStatistics::minimums(numbers, windows),
            oneByOne(numbers, windows, [](double *begin, double *end) { return *std::min_element(begin, end); }));
        EXPECT_EQ(RollingStatistics::maximums(numbers, windows),
            oneByOne(numbers, windows, [](double *begin, double *end) { return *std::max_element(begin, end); }));
    }
}

TEST(RollingStatistics, SumsOfWideWindowsAreRoundedOnce)
{
    // Multiples of 2^-40 below 2^20 have sums that 128 bits hold exactly.
    constexpr int fractionBits = 40;
    __extension__ using Wide = __int128;
    std::mt19937_64 random(11);
    std::vector<double> numbers;
    std::vector<Wide> before{0};
    for (int i = 0; i < 6000; ++i) {
        const auto scaled = static_cast<qint64>(random() >> (4 + random() % 40)) - (qint64{1} << 30);
        const double number = std::ldexp(static_cast<double>(scaled), -fractionBits);
        numbers.push_back(number);
        before.push_back(before.back() + static_cast<Wide>(std::ldexp(number, fractionBits)));
    }
    RollingWindows windows;
    for (int i = 0; i < 6000; ++i) {
        windows.add(qMax(0, i - 2000), i + 1);
    }
    const std::vector<double> sums = RollingStatistics::sums(numbers, windows);
    for (size_t i = 0; i < sums.size(); ++i) {
        const Wide exact = before[static_cast<size_t>(windows.ends[i])]
                           - before[static_cast<size_t>(windows.begins[i])];
        ASSERT_EQ(sums[i], std::ldexp(static_cast<double>(exact), -fractionBits)) << i;
    }
}

} // namespace
