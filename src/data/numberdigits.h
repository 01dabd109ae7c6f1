#pragma once

#include <QtGlobal>

/// The parts that plain numbers are read by: kinds of characters, digits, exponents. For stored bytes and UTF-16 units.
namespace NumberScan {

template<class Unit>
inline bool isDigit(Unit c)
{
    return static_cast<uint>(c) - '0' < 10;
}

template<class Unit>
inline bool isAsciiLetter(Unit c)
{
    return (static_cast<uint>(c) | 0x20) - 'a' < 26;
}

template<class Unit>
inline bool isAsciiSpace(Unit c)
{
    return c == ' ' || static_cast<uint>(c) - '\t' < 5;
}

/// Moves the ends inwards over blanks; false when another kind of whitespace may stand there.
template<class Unit>
inline bool trim(const Unit *&begin, const Unit *&end)
{
    while (begin < end && isAsciiSpace(*begin)) {
        ++begin;
    }
    while (begin < end && isAsciiSpace(end[-1])) {
        --end;
    }
    return begin == end || (static_cast<uint>(*begin) < 0x80 && static_cast<uint>(end[-1]) < 0x80);
}

/// Digits of a number, gathered without rounding.
struct Digits
{
    quint64 value = 0;
    int count = 0;
    int exponent = 0;
    bool negative = false;
};

constexpr int largestCount = 19;
constexpr int exactPowers = 22;
extern const double powersOfTen[exactPowers + 1];

/// Rounds a digit text with '.' for the decimal point, without sign; false when it is too large, too small or too long.
bool roundExactly(const char *text, int size, double *value);

template<class Unit>
inline const Unit *takeDigits(const Unit *p, const Unit *end, Digits *digits)
{
    const Unit *const begin = p;
    for (; p < end && isDigit(*p); ++p) {
        digits->value = digits->value * 10 + (static_cast<uint>(*p) - '0');
    }
    digits->count += static_cast<int>(p - begin);
    return p;
}

/// The exponent behind "e"; null when there are no digits or too many.
template<class Unit>
inline const Unit *takeExponent(const Unit *p, const Unit *end, Digits *digits)
{
    bool negative = false;
    if (p < end && (*p == '-' || *p == '+')) {
        negative = *p == '-';
        ++p;
    }
    const Unit *const begin = p;
    int exponent = 0;
    for (; p < end && isDigit(*p) && p - begin < 4; ++p) {
        exponent = exponent * 10 + (static_cast<int>(*p) - '0');
    }
    digits->exponent += negative ? -exponent : exponent;
    return p == begin ? nullptr : p;
}

} // namespace NumberScan
