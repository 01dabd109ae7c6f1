#pragma once

#include <QtGlobal>
#include <vector>

/// A sum of doubles without any rounding, which numbers can be added to and taken from in any order. It is held as one
/// long binary number over all bits that the numbers can have.
class ExactSum
{
public:
    /// Room for the numbers of a list, which are finite, and no others.
    explicit ExactSum(const std::vector<double> &numbers);

    void add(double number) { change(number, 1); }
    void subtract(double number) { change(number, -1); }
    /// The double nearest to the sum; halves go to the even one.
    double rounded();

private:
    static constexpr int limbBits = 32;
    void change(double number, qint64 sign);
    void carry();
    void takeMagnitude();

    int m_lowest = 0; ///< the power of two of the lowest bit
    std::vector<qint64> m_limbs;
    std::vector<quint64> m_magnitude; ///< the limbs without the sign, while a sum is rounded
    int m_uncarried = 0;              ///< changes since limbs were brought below 2^32
};
