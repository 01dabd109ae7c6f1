#pragma once

#include "data/cell.h"

/// The order of texts by UTF-16 code unit, as QString::compare has it, found on their WTF-8. It differs from
/// that of the bytes where characters outside the first plane meet the last ones of it.
namespace TextOrder {

/// Below, at or above 0 as `a` is before, equal to or behind `b`.
int compare(const char *a, int sizeOfA, const char *b, int sizeOfB);
inline int compare(const Cell &a, const Cell &b)
{
    return a.bits() == b.bits() ? 0 : compare(a.bytes(), a.size(), b.bytes(), b.size());
}
/// The same as QString::compare without regard to case has it.
int compareIgnoringCase(const char *a, int sizeOfA, const char *b, int sizeOfB);

} // namespace TextOrder
