#pragma once

#include <vector>

/// The Pearson coefficient of two lists of numbers of the same length.
class Correlation
{
public:
    /// Brings numbers to a common scale by a power of two, which changes no coefficient but keeps its sums in range.
    static void scale(std::vector<double> &numbers);
    /// Only the pairs count of which neither number is NaN.
    static Correlation of(const std::vector<double> &x, const std::vector<double> &y);

    int pairCount() const { return m_pairCount; }
    /// Whether a list has only one value among the pairs: then there is no coefficient.
    bool isConstantX() const { return !(m_squaresOfX > 0.0); }
    bool isConstantY() const { return !(m_squaresOfY > 0.0); }
    double coefficient() const;

private:
    int m_pairCount = 0;
    double m_products = 0.0;
    double m_squaresOfX = 0.0;
    double m_squaresOfY = 0.0;
};
