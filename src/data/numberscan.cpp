#include "data/numberscan.h"

#include <charconv>

namespace NumberScan {

const double powersOfTen[exactPowers + 1] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13,
    1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

bool roundExactly(const char *text, int size, double *value)
{
    const std::from_chars_result result = std::from_chars(text, text + size, *value);
    // Near the ends of the range the locale's reading has rules of its own.
    return result.ec == std::errc() && result.ptr == text + size && *value > 1e-300 && *value < 1e300;
}

} // namespace NumberScan
