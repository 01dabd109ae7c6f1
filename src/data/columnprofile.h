#pragma once

#include "data/indexes.h"
#include "data/numberfigures.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <limits>

class Dataset;

/// What the values of one column look like: counts by the kind of value, lengths, numbers and dates. A value is the
/// first of these that it reads as: empty, number (currency symbols ignored), boolean, date, otherwise text.
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

    // Counts of different texts
    int m_distinct = 0;
    int m_unique = 0;        ///< those that come once
    int m_duplicated = 0;    ///< those that come more often
    int m_mostFrequent = -1; ///< a row with the text that comes most often, the first of several; -1 without rows

    // Lengths in characters
    int m_minLength = std::numeric_limits<int>::max();
    int m_minLengthNonEmpty = std::numeric_limits<int>::max();
    int m_maxLength = 0;
    qint64 m_lengthSum = 0;

    // Numbers
    double m_minNumber = std::numeric_limits<double>::max();
    double m_maxNumber = std::numeric_limits<double>::lowest();
    NumberFigures m_numbers; ///< in the order of the rows, when asked for

    // Dates
    QString m_dateFormat; ///< empty when none was found
    QDate m_minDate;
    QDate m_maxDate;
    int m_distinctDates = 0;

    /// Days between the first and the last date, both included; 0 without dates.
    qint64 dayCount() const { return m_minDate.isValid() ? m_minDate.daysTo(m_maxDate) + 1 : 0; }
};

/// Reads all values of a column. Dates are looked for under the best of `dateFormats`; an empty list looks for none.
/// The list of numbers is kept only when `withNumbers`.
ColumnProfile columnProfile(
    const Dataset &dataset, ColumnIndex column, const QStringList &dateFormats, bool withNumbers);
