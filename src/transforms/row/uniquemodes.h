#pragma once

#include <QStringList>

/// What becomes of a column when rows are grouped: the values of an option for grouping, as documents store them.
enum class UniqueMode : int {
    KeepUnique,
    KeepFirst,
    KeepLast,
    Sum,
    Maximum,
    Minimum,
    Average,
    Concat,
    ConcatDistinct,
    KeepFirstNonEmpty,
    KeepLastNonEmpty,
    CountDistinct,
    CountUnique,
    CountDuplicate,
    CountEmpty,
    CountNonEmpty,
    SetEmpty
};

namespace UniqueModes {

/// What a person reads for each mode, in the order of the values.
const QStringList &texts();
inline QString text(UniqueMode mode)
{
    return texts().at(static_cast<int>(mode));
}

} // namespace UniqueModes
