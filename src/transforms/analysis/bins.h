#pragma once

#include <QLocale>
#include <QString>
#include <QVector>
#include <limits>
#include <optional>
#include <vector>

/// Ranges of equal size into which numbers are put. There may be a bin of its own for all numbers below a lower bound,
/// and one for all from an upper bound on.
class Bins
{
public:
    static constexpr int mostRanges = 10000;

    struct Settings
    {
        bool integers = false; ///< all numbers, bounds and the size are whole
        double size = 1.0;     ///< above 0
        std::optional<double> lower;
        std::optional<double> upper; ///< above `lower` where both are set
        QString delimiter;           ///< between the ends of a range
    };

    explicit Bins(const Settings &settings);

    void add(double value);
    /// How many ranges lie from the first to the last one with a number; infinite for numbers that are too large for
    /// ranges of that size.
    double rangeCount() const;

    struct Bin
    {
        QString label;
        int count = 0;
    };
    /// From the lowest to the highest, with the empty ranges between others. For at most mostRanges.
    QVector<Bin> list() const;
    /// Where in the list each number went, in the order in which they came.
    std::vector<int> places() const;

private:
    bool isBelow(double value) const { return m_settings.lower && value < *m_settings.lower; }
    bool isAbove(double value) const { return m_settings.upper && value >= *m_settings.upper; }
    double rangeOf(double value) const;
    QString label(double range) const;
    QString text(double value) const;

    const Settings m_settings;
    const double m_origin;
    QLocale m_locale;
    std::vector<double> m_values;
    double m_firstRange = std::numeric_limits<double>::infinity();
    double m_lastRange = -std::numeric_limits<double>::infinity();
    bool m_hasBelow = false;
    bool m_hasAbove = false;
};
