#include "data/profilelines.h"
#include "data/values.h"

ProfileWriter::ProfileWriter(const QString &undefined, bool withGrouping)
    : m_undefined(undefined)
    , m_withGrouping(withGrouping)
    , m_writer(withGrouping)
{
}

QString ProfileWriter::count(qint64 number) const
{
    return formatInteger(number, m_withGrouping);
}

QString ProfileWriter::measure(double value, bool exists) const
{
    return exists ? m_writer.text(value) : m_undefined;
}

QString ProfileWriter::measure(const std::optional<double> &value) const
{
    return measure(value.value_or(0.0), value.has_value());
}

QString ProfileWriter::modes(const std::vector<double> &values) const
{
    constexpr int shownModes = 5;
    if (values.empty()) {
        return m_undefined;
    }
    const int size = static_cast<int>(values.size());
    QString text = formatRealList(QList<double>(values.cbegin(), values.cbegin() + qMin(size, shownModes)));
    if (size > shownModes) {
        text += QStringLiteral(" + %1 more").arg(count(size - shownModes));
    }
    return text;
}

QString ProfileWriter::date(const QDate &date, const ColumnProfile &profile) const
{
    return date.isValid() ? ::dateText(date, profile.m_dateFormat) : m_undefined;
}

QString ProfileWriter::text(ProfileLine line, const ColumnProfile &profile) const
{
    const int rows = profile.m_empty + profile.m_nonEmpty;
    const bool anyNumber = profile.m_numeric > 0;
    switch (line) {
    case ProfileLine::Empty:
        return count(profile.m_empty);
    case ProfileLine::NonEmpty:
        return count(profile.m_nonEmpty);
    case ProfileLine::Numeric:
        return count(profile.m_numeric);
    case ProfileLine::Integer:
        return count(profile.m_integer);
    case ProfileLine::Real:
        return count(profile.m_real);
    case ProfileLine::Boolean:
        return count(profile.m_boolean);
    case ProfileLine::Text:
        return count(profile.m_text);
    case ProfileLine::Date:
        return count(profile.m_date);
    case ProfileLine::Distinct:
        return count(profile.m_values.distinct());
    case ProfileLine::Unique:
        return count(profile.m_values.unique());
    case ProfileLine::Duplicated:
        return count(profile.m_values.duplicated());
    case ProfileLine::MinLength:
        return measure(profile.m_minLength, rows > 0);
    case ProfileLine::MinLengthNonEmpty:
        return measure(profile.m_minLengthNonEmpty, profile.m_nonEmpty > 0);
    case ProfileLine::MaxLength:
        return measure(profile.m_maxLength, rows > 0);
    case ProfileLine::AverageLength:
        return measure(static_cast<double>(profile.m_lengthSum) / rows, rows > 0);
    case ProfileLine::AverageLengthNonEmpty:
        return measure(static_cast<double>(profile.m_lengthSum) / profile.m_nonEmpty, profile.m_nonEmpty > 0);
    case ProfileLine::MinNumber:
        return measure(profile.m_minNumber, anyNumber);
    case ProfileLine::MaxNumber:
        return measure(profile.m_maxNumber, anyNumber);
    case ProfileLine::RangeNumber:
        return measure(profile.m_maxNumber - profile.m_minNumber, anyNumber);
    case ProfileLine::Negative:
        return count(profile.m_negative);
    case ProfileLine::Zero:
        return count(profile.m_zero);
    case ProfileLine::Positive:
        return count(profile.m_positive);
    case ProfileLine::Sum:
    case ProfileLine::Average:
    case ProfileLine::Median:
    case ProfileLine::Mode:
    case ProfileLine::StandardDeviation:
    case ProfileLine::Variance:
    case ProfileLine::LowerQuartile:
    case ProfileLine::UpperQuartile:
    case ProfileLine::InterquartileRange:
    case ProfileLine::Skew:
        return statistic(line, profile);
    case ProfileLine::DateFormat:
    case ProfileLine::MinDate:
    case ProfileLine::MaxDate:
    case ProfileLine::RangeDate:
    case ProfileLine::DistinctDates:
    case ProfileLine::MissingDates:
        return dateText(line, profile);
    }
    return QString();
}

QString ProfileWriter::statistic(ProfileLine line, const ColumnProfile &profile) const
{
    const DescriptiveStatistics &numbers = profile.m_numbers;
    switch (line) {
    case ProfileLine::Sum:
        return measure(numbers.sum(), true);
    case ProfileLine::Average:
        return measure(numbers.mean());
    case ProfileLine::Median:
        return measure(numbers.median());
    case ProfileLine::Mode:
        return modes(numbers.modes());
    case ProfileLine::StandardDeviation:
        return measure(numbers.standardDeviation());
    case ProfileLine::Variance:
        return measure(numbers.variance());
    case ProfileLine::LowerQuartile:
        return measure(numbers.lowerQuartile());
    case ProfileLine::UpperQuartile:
        return measure(numbers.upperQuartile());
    case ProfileLine::InterquartileRange:
        return measure(numbers.interquartileRange());
    default:
        return measure(numbers.skew());
    }
}

QString ProfileWriter::dateText(ProfileLine line, const ColumnProfile &profile) const
{
    const qint64 days = profile.dayCount();
    switch (line) {
    case ProfileLine::DateFormat:
        return profile.m_dateFormat.isEmpty() ? m_undefined : profile.m_dateFormat;
    case ProfileLine::MinDate:
        return date(profile.m_minDate, profile);
    case ProfileLine::MaxDate:
        return date(profile.m_maxDate, profile);
    case ProfileLine::DistinctDates:
        return count(profile.m_distinctDates);
    case ProfileLine::MissingDates:
        return count(profile.missingDateCount());
    default:
        return days == 0 ? m_undefined
                         : QStringLiteral("%1 %2").arg(count(days), QLatin1String(days == 1 ? "day" : "days"));
    }
}
