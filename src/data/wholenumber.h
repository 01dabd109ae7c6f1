#pragma once

#include "data/cell.h"

#include <cmath>
#include <optional>

class NumberReader;

/// Whole numbers beyond 2^53, of which several have the same nearest double: what tells these apart.
namespace WholeNumber {

/// True for a double that may stand for several whole numbers; the only ones for which the texts need be looked at.
inline bool isShared(double number)
{
    constexpr double firstShared = 9007199254740992.0;
    return std::abs(number) >= firstShared;
}

/// How far the whole number in the text lies above `number`, which is what `reader` reads the text as. Nothing for a
/// text that is no whole number, or one of more than 34 digits (what 64 bits hold where digits are grouped).
std::optional<qint64> restOf(const Cell &cell, double number, const NumberReader &reader);
std::optional<qint64> restOf(const QString &text, double number, const NumberReader &reader);

/// Below, at or above 0 as `a` is less than, equal to or greater than `b`, both read as the same `number`: the whole
/// numbers decide where both texts are some.
template<class A, class B>
int compareShared(const A &a, const B &b, double number, const NumberReader &reader)
{
    const std::optional<qint64> restOfA = restOf(a, number, reader);
    const std::optional<qint64> restOfB = restOfA ? restOf(b, number, reader) : std::nullopt;
    return restOfB ? (*restOfA > *restOfB) - (*restOfA < *restOfB) : 0;
}

} // namespace WholeNumber
