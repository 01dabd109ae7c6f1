#pragma once

#include "data/numberdigits.h"

#include <cmath>

/// Reading of numbers in their plain form: digits, one decimal point, a sign, an exponent. Works on stored bytes and on
/// UTF-16 units alike. Where it isn't sure it says so, and the locale decides.
namespace NumberScan {

enum Outcome { Number, NoNumber, Unsure };

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
