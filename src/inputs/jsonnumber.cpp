#include "inputs/jsonnumber.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace {

// Texts of so many digits come back from a double as they were.
constexpr int exactDigits = 15;
// Without an exponent, a number of fewer digits can't be out of range.
constexpr int safeDigits = 300;
constexpr double smallestSafe = 1e-290;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

const char *skipDigits(const char *p)
{
    while (isDigit(*p)) {
        ++p;
    }
    return p;
}

} // namespace

JsonNumber::Found JsonNumber::find(const char *bytes)
{
    const char *const whole = *bytes == '-' ? bytes + 1 : bytes;
    const char *p = skipDigits(whole);
    const auto wholeDigits = p - whole;
    if (wholeDigits == 0 || (*whole == '0' && wholeDigits > 1)) {
        return {};
    }
    const char *shown = p;
    auto digits = wholeDigits;
    bool isZero = *whole == '0';
    if (*p == '.') {
        const char *const fraction = p + 1;
        p = skipDigits(fraction);
        if (p == fraction) {
            return {};
        }
        const char *last = p;
        while (last > fraction && last[-1] == '0') {
            --last;
        }
        digits += p - fraction;
        if (last > fraction) {
            shown = last;
            isZero = false;
        }
    }
    const bool hasExponent = *p == 'e' || *p == 'E';
    if (hasExponent) {
        ++p;
        p = skipDigits(*p == '-' || *p == '+' ? p + 1 : p);
        if (!isDigit(p[-1])) {
            return {};
        }
    }
    double value;
    if ((hasExponent || digits > safeDigits) && !read(bytes, p, &value)) {
        return {};
    }
    const bool showsItself = !hasExponent && digits <= exactDigits && !(isZero && whole > bytes);
    return {p, showsItself ? shown : nullptr};
}

bool JsonNumber::read(const char *begin, const char *end, double *value)
{
    if (std::from_chars(begin, end, *value).ec != std::errc()) {
        return false;
    }
    // Whether the tiniest ones are in range is for others to say.
    return *value == 0 || std::abs(*value) > smallestSafe;
}
