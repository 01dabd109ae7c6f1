#pragma once

#include <QStringList>
#include <vector>

/// How far numbers lie from the bulk of a list, and what counts as too far.
class Spread
{
public:
    /// Scores count standard deviations from the mean. `numbers` has two at least and no NaN.
    static Spread ofDeviation(std::vector<double> numbers, double threshold);
    /// Scores count inter-quartile ranges outside the quartiles, which are the medians of the lower and upper half of
    /// the list; the middle one of an odd list belongs to neither.
    static Spread ofQuartiles(std::vector<double> numbers, double threshold);

    /// Why there are no scores; empty when there are.
    const QString &fault() const { return m_fault; }
    /// The figures behind the scores, for a person.
    const QStringList &infos() const { return m_infos; }
    double score(double number) const
    {
        return number < m_low ? (number - m_low) / m_unit : number > m_high ? (number - m_high) / m_unit : 0.0;
    }
    /// -1 for a number below the lower limit, 1 for one above the upper limit, otherwise 0.
    int side(double number) const
    {
        const double scored = score(number);
        return scored < -m_threshold ? -1 : scored > m_threshold ? 1 : 0;
    }
    double lowerLimit() const { return m_low - m_threshold * m_unit; }
    double upperLimit() const { return m_high + m_threshold * m_unit; }

private:
    explicit Spread(double threshold)
        : m_threshold(threshold)
    {
    }
    void addInfo(const char *name, double figure);

    double m_threshold;
    double m_low = 0.0;  ///< numbers from here
    double m_high = 0.0; ///< to here have the score 0
    double m_unit = 1.0;
    QString m_fault;
    QStringList m_infos;
};
