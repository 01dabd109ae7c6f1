#pragma once

#include "data/descriptivestatistics.h"
#include "data/valuefrequencies.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <limits>

struct CellColumn;

/// What rows can be looked up for in a profile; the numbers are the places in the table of metrics.
enum class ProfileMetric {
    Empty = 0,
    NonEmpty = 1,
    Numeric = 2,
    Integer = 3,
    Real = 4,
    Boolean = 5,
    Text = 6,
    Date = 7,
    MinLength = 8,
    MinLengthNonEmpty = 9,
    MaxLength = 10,
    MinNumber = 11,
    MaxNumber = 12,
    Negative = 14,
    Zero = 15,
    Positive = 16,
    MinDate = 17,
    MaxDate = 18,
};

/// What the values of one column, or of some of its rows, look like: counts by the kind of value, lengths, numbers,
/// dates, frequencies, and the rows behind each of them. A value is the first of these that it reads as: empty, number
/// (currency symbols ignored), boolean, date, otherwise text. A value of blanks is not empty.
struct ColumnProfile
{
    // Counts of values
    int m_empty = 0;
    int m_nonEmpty = 0;
    int m_numeric = 0;
    int m_integer = 0;
    int m_real = 0;
    int m_boolean = 0;
    int m_date = 0;
    int m_text = 0;
    int m_negative = 0;
    int m_zero = 0;
    int m_positive = 0;

    // Lengths in characters
    int m_minLength = std::numeric_limits<int>::max();
    int m_minLengthNonEmpty = std::numeric_limits<int>::max();
    int m_maxLength = 0;
    qint64 m_lengthSum = 0;

    // Numbers
    double m_minNumber = std::numeric_limits<double>::max();
    double m_maxNumber = std::numeric_limits<double>::lowest();
    DescriptiveStatistics m_numbers; ///< in the order of the rows, when asked for

    // Dates
    QString m_dateFormat; ///< empty when none was found
    QDate m_minDate;
    QDate m_maxDate;
    int m_distinctDates = 0;

    ValueFrequencies m_values;

    /// Days between the first and the last date, both included; 0 without dates.
    qint64 dayCount() const { return m_minDate.isValid() ? m_minDate.daysTo(m_maxDate) + 1 : 0; }
    qint64 missingDateCount() const { return dayCount() - m_distinctDates; }
    /// The first `limit` days between the first and the last date that no value names.
    QList<QDate> missingDates(int limit) const;
    /// The days that come, ascending.
    QList<QDate> distinctDates() const;

    /// The first `limit` rows behind a metric, in the order of the rows; all of them below 0.
    QVector<int> rowsOf(ProfileMetric metric, int limit = -1) const;
    QVector<int> rowsOf(const QDate &date, int limit = -1) const;

private:
    friend class ColumnProfiler;
    /// A day and a number of m_values that reads as it.
    struct DayOfValue
    {
        qint64 julianDay;
        int value;
    };
    std::vector<quint32> m_metricsOfValue; ///< a bit for each metric
    std::vector<DayOfValue> m_days;        ///< ascending
};

/// Fills `profile`, whose m_values and m_dateFormat are set, from the column that was counted. The list of numbers is
/// kept only when `withNumbers`.
void fillColumnProfile(ColumnProfile &profile, const CellColumn &column, bool withNumbers);
