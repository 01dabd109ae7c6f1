#pragma once

#include "spreadsheet/xls/rknumber.h"

#include <cmath>

namespace spreadsheet {

/// Finds the form in 32 bits that rkNumber() reads as exactly this number, to the last bit; false when there is none.
inline bool encodeRk(double number, quint32 *bits)
{
    constexpr double most = 536870911.0; // 30 bits with sign
    const auto isExact = [number](quint32 candidate) {
        const double decoded = rkNumber(candidate);
        return std::memcmp(&decoded, &number, sizeof(number)) == 0;
    };
    const auto tryInteger = [&](double value, quint32 mark) {
        if (!(std::fabs(value) <= most)) {
            return false;
        }
        *bits = static_cast<quint32>(static_cast<qint32>(std::lround(value))) << 2 | 2 | mark;
        return isExact(*bits);
    };
    if (tryInteger(number, 0) || tryInteger(number * 100, 1)) {
        return true;
    }
    quint64 wide = 0;
    std::memcpy(&wide, &number, sizeof(wide));
    *bits = static_cast<quint32>(wide >> 32) & ~quint32(3);
    return isExact(*bits);
}

} // namespace spreadsheet
