#include "data/exactsum.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int mantissaBits = 53;
constexpr int smallestPower = -1074; ///< of the lowest bit of any double
constexpr int countBits = 64;        ///< room for the carries of any list
constexpr quint64 limbMask = 0xFFFFFFFFULL;
constexpr int mostUncarried = 1 << 29;

/// The power of two of a number's lowest mantissa bit.
int powerOf(double number)
{
    return number == 0.0 ? smallestPower : qMax(std::ilogb(number) - mantissaBits + 1, smallestPower);
}

} // namespace

ExactSum::ExactSum(const std::vector<double> &numbers)
{
    int lowest = 0;
    int highest = 0;
    bool isFirst = true;
    for (const double number : numbers) {
        if (number != 0.0) {
            const int power = powerOf(number);
            lowest = isFirst ? power : qMin(lowest, power);
            highest = isFirst ? power : qMax(highest, power);
            isFirst = false;
        }
    }
    m_lowest = lowest;
    m_limbs.resize(static_cast<size_t>((highest - lowest + mantissaBits + countBits) / limbBits + 3));
}

void ExactSum::change(double number, qint64 sign)
{
    if (number == 0.0) {
        return;
    }
    const int power = powerOf(number);
    const auto mantissa = static_cast<quint64>(std::ldexp(std::abs(number), -power));
    if (number < 0.0) {
        sign = -sign;
    }
    const int offset = power - m_lowest;
    const auto limb = static_cast<size_t>(offset / limbBits);
    const int shift = offset % limbBits;
    __extension__ using Wide = unsigned __int128;
    const Wide shifted = static_cast<Wide>(mantissa) << shift;
    for (size_t i = 0; i < 3; ++i) {
        m_limbs[limb + i] += sign * static_cast<qint64>(static_cast<quint64>(shifted >> (limbBits * i)) & limbMask);
    }
    if (++m_uncarried >= mostUncarried) {
        carry();
    }
}

/// Brings all limbs but the highest, which has the sign, to 0 to 2^32 - 1.
void ExactSum::carry()
{
    for (size_t i = 0; i + 1 < m_limbs.size(); ++i) {
        const qint64 over = m_limbs[i] >> limbBits;
        m_limbs[i] -= over * (qint64{1} << limbBits);
        m_limbs[i + 1] += over;
    }
    m_uncarried = 0;
}

/// To be called after carry().
void ExactSum::takeMagnitude()
{
    m_magnitude.assign(m_limbs.cbegin(), m_limbs.cend());
    if (m_limbs.back() >= 0) {
        return;
    }
    quint64 carried = 1;
    for (quint64 &limb : m_magnitude) {
        limb = (~limb & limbMask) + carried;
        carried = limb >> limbBits;
        limb &= limbMask;
    }
}

double ExactSum::rounded()
{
    carry();
    takeMagnitude();
    const std::vector<quint64> &limbs = m_magnitude;
    size_t top = limbs.size();
    while (top > 0 && limbs[top - 1] == 0) {
        --top;
    }
    if (top == 0) {
        return 0.0;
    }
    // The highest 64 bits; the last of them also stands for all bits below, which decide where to round to.
    __extension__ using Wide = unsigned __int128;
    Wide window = 0;
    for (size_t i = 0; i < 3; ++i) {
        window = window << limbBits | (i < top ? limbs[top - 1 - i] : 0);
    }
    bool hasMore = top > 3
                   && std::any_of(limbs.cbegin(), limbs.cbegin() + static_cast<std::ptrdiff_t>(top) - 3,
                       [](quint64 limb) { return limb != 0; });
    int power = m_lowest + limbBits * (static_cast<int>(top) - 3);
    while (window >> 64 != 0) {
        hasMore = hasMore || (window & 1) != 0;
        window >>= 1;
        ++power;
    }
    const double value = std::ldexp(static_cast<double>(static_cast<quint64>(window) | (hasMore ? 1U : 0U)), power);
    return m_limbs.back() < 0 ? -value : value;
}
