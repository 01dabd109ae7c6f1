#include "data/exactsum.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();

TEST(ExactSum, RoundsOnceAtTheEnd)
{
    struct Case
    {
        const char *what;
        std::vector<double> added;
        std::vector<double> subtracted;
        double sum;
    };
    const Case cases[] = {
        {"nothing", {}, {}, 0.0},
        {"what is small survives what is large", {1e300, 1.5, 1e-300}, {1e300}, 1.5},
        {"in any order", {1e-300, 1e300}, {1e300, 1e-300}, 0.0},
        {"ten tenths are the double next to their true sum", std::vector<double>(10, 0.1), {}, 1.0},
        {"negative sums", {1.25}, {2.5, 1e-9}, -1.250000001},
        {"halves go to the even number", {9007199254740992.0, 1.0}, {}, 9007199254740992.0},
        {"and up where that is the even one", {9007199254740994.0, 1.0}, {}, 9007199254740996.0},
        {"more than half goes up", {9007199254740992.0, 1.0, smallest}, {}, 9007199254740994.0},
        {"less than half goes down", {9007199254740994.0, 1.0}, {smallest}, 9007199254740994.0},
        {"the smallest numbers", {smallest, smallest, smallest}, {}, 3 * smallest},
        {"the largest ones and back", {largest, largest}, {largest}, largest},
        {"too large", {largest, largest}, {}, std::numeric_limits<double>::infinity()},
        {"zeros", {0.0, -0.0}, {0.0}, 0.0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<double> all = c.added;
        all.insert(all.end(), c.subtracted.cbegin(), c.subtracted.cend());
        ExactSum sum(all);
        for (const double number : c.added) {
            sum.add(number);
        }
        for (const double number : c.subtracted) {
            sum.subtract(number);
        }
        EXPECT_EQ(sum.rounded(), c.sum);
        EXPECT_EQ(sum.rounded(), c.sum) << "asking changes nothing";
    }
}

} // namespace
