#pragma once

#include <QtGlobal>
#include <charconv>
#include <cmath>

/// Reading of numbers in their plain form: digits, one decimal point, a sign, an exponent. Works on stored bytes and on
/// UTF-16 units alike. Where it isn't sure it says so, and the locale decides.
namespace NumberScan {

enum Outcome { Number, NoNumber, Unsure };

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

template<class Unit>
Outcome round(const Unit *begin, const Unit *end, char decimalPoint, const Digits &digits, double *value)
{
    constexpr quint64 exactIntegers = 1ULL << 53;
    if (digits.count <= largestCount && digits.value <= exactIntegers && std::abs(digits.exponent) <= exactPowers) {
        // Both operands are exact, so the one operation rounds as the standard asks.
        const auto exact = static_cast<double>(digits.value);
        *value = digits.exponent < 0 ? exact / powersOfTen[-digits.exponent] : exact * powersOfTen[digits.exponent];
        return Number;
    }
    char text[64];
    const auto size = static_cast<int>(end - begin);
    if (size > static_cast<int>(sizeof text)) {
        return Unsure;
    }
    for (int i = 0; i < size; ++i) {
        const auto c = static_cast<char>(begin[i]);
        text[i] = c == decimalPoint ? '.' : c;
    }
    return roundExactly(text, size, value) ? Number : Unsure;
}

/// `begin` to `end` is trimmed and not empty; `decimalPoint` is 0 when the locale's isn't ASCII.
template<class Unit>
Outcome readReal(const Unit *begin, const Unit *end, char decimalPoint, double *value)
{
    const Unit *p = begin;
    Digits digits;
    if (*p == '-' || *p == '+') {
        digits.negative = *p == '-';
        ++p;
    }
    const Unit *const unsignedBegin = p;
    p = takeDigits(p, end, &digits);
    if (p < end && *p == static_cast<Unit>(decimalPoint) && decimalPoint) {
        const Unit *const fraction = ++p;
        p = takeDigits(p, end, &digits);
        digits.exponent = -static_cast<int>(p - fraction);
    }
    if (digits.count == 0) {
        return Unsure;
    }
    if (p < end && (*p == 'e' || *p == 'E')) {
        p = takeExponent(p + 1, end, &digits);
        if (!p) {
            return Unsure;
        }
    }
    if (p < end) {
        // Times, dates, codes and units begin with digits and are met in every column that isn't numeric.
        return isAsciiLetter(*p) || *p == '/' || *p == ':' || *p == '-' ? NoNumber : Unsure;
    }
    const Outcome outcome = round(unsignedBegin, end, decimalPoint, digits, value);
    if (digits.negative && outcome == Number) {
        *value = -*value;
    }
    return outcome;
}

/// A whole number of up to 18 digits; zeros behind the decimal point are let pass.
template<class Unit>
Outcome readWhole(const Unit *begin, const Unit *end, char decimalPoint, qint64 *value)
{
    const Unit *p = begin;
    Digits digits;
    if (*p == '-' || *p == '+') {
        digits.negative = *p == '-';
        ++p;
    }
    p = takeDigits(p, end, &digits);
    if (digits.count == 0 || digits.count > 18) {
        return Unsure;
    }
    if (p < end && *p == static_cast<Unit>(decimalPoint) && decimalPoint) {
        ++p;
        while (p < end && *p == '0') {
            ++p;
        }
    }
    if (p < end) {
        return isAsciiLetter(*p) ? NoNumber : Unsure;
    }
    *value = digits.negative ? -static_cast<qint64>(digits.value) : static_cast<qint64>(digits.value);
    return Number;
}

/// True for a number as JSON writes it; `begin` to `end` is trimmed.
template<class Unit>
bool isJsonNumber(const Unit *p, const Unit *end)
{
    if (p < end && *p == '-') {
        ++p;
    }
    if (p == end || !isDigit(*p)) {
        return false;
    }
    Digits ignored;
    p = *p == '0' ? p + 1 : takeDigits(p, end, &ignored);
    if (p < end && *p == '.') {
        const Unit *const fraction = ++p;
        p = takeDigits(p, end, &ignored);
        if (p == fraction) {
            return false;
        }
    }
    if (p < end && (*p == 'e' || *p == 'E')) {
        ++p;
        if (p < end && (*p == '+' || *p == '-')) {
            ++p;
        }
        const Unit *const exponent = p;
        p = takeDigits(p, end, &ignored);
        if (p == exponent) {
            return false;
        }
    }
    return p == end;
}

} // namespace NumberScan
