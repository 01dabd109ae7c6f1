#pragma once

#include "data/columnprofile.h"
#include "data/realwriter.h"

#include <QVector>

/// The figures of a column's profile that a person can read, each one line of a table.
enum class ProfileLine {
    Empty,
    NonEmpty,
    Numeric,
    Integer,
    Real,
    Boolean,
    Text,
    Date,
    Distinct,
    Unique,
    Duplicated,
    MinLength,
    MinLengthNonEmpty,
    MaxLength,
    AverageLength,
    AverageLengthNonEmpty,
    MinNumber,
    MaxNumber,
    RangeNumber,
    Negative,
    Zero,
    Positive,
    Sum,
    Average,
    Median,
    Mode,
    StandardDeviation,
    Variance,
    LowerQuartile,
    UpperQuartile,
    InterquartileRange,
    Skew,
    DateFormat,
    MinDate,
    MaxDate,
    RangeDate,
    DistinctDates,
    MissingDates
};

/// The lines of a column's statistics in the order in which they are explored; the last ten numeric ones only
/// `withStatistics`, and those of dates at the end.
QVector<ProfileLine> exploredLines(bool withStatistics);
QString profileLabel(ProfileLine line);
/// What the line means, for a tool tip.
QString profileMeaning(ProfileLine line);
/// Says whether rows stand behind the line, and for which metric they are asked.
bool hasRows(ProfileLine line, ProfileMetric &metric);
/// `meaning` and, where there are any, examples: the first values behind the line with their rows (counted from 1), or
/// the first days that are missing.
QString profileTip(ProfileLine line, const ColumnProfile &profile, const CellColumn &column, bool isSample);
/// "'x' occurs 3 times" and its first rows.
QString valueTip(const ValueFrequencies &values, int value, const CellColumn &column);

/// Writes lines of profiles as text.
class ProfileWriter
{
public:
    /// `undefined` stands for a figure that the column's values don't support; counts are grouped by the locale
    /// `withGrouping`.
    ProfileWriter(const QString &undefined, bool withGrouping);
    QString text(ProfileLine line, const ColumnProfile &profile) const;

private:
    QString count(qint64 number) const;
    QString measure(double value, bool exists) const;
    QString measure(const std::optional<double> &value) const;
    QString modes(const std::vector<double> &values) const;
    QString date(const QDate &date, const ColumnProfile &profile) const;
    QString dateText(ProfileLine line, const ColumnProfile &profile) const;
    QString statistic(ProfileLine line, const ColumnProfile &profile) const;

    QString m_undefined;
    bool m_withGrouping;
    RealWriter m_writer;
};
