#pragma once

#include <QtGlobal>
#include <cstring>

namespace spreadsheet {

/// A number in 32 bits: the upper 30 of a real, or an integer of 30 bits with sign; bit 0 tells that it is a hundred
/// times the value, bit 1 that it is an integer.
inline double rkNumber(quint32 bits)
{
    double value = 0;
    if (bits & 2) {
        value = static_cast<qint32>(bits) >> 2;
    } else {
        const quint64 wide = static_cast<quint64>(bits & ~quint32(3)) << 32;
        std::memcpy(&value, &wide, sizeof(value));
    }
    return bits & 1 ? value / 100 : value;
}

} // namespace spreadsheet
