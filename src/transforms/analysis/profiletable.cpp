#include "transforms/analysis/profiletable.h"

#include "data/columnprofile.h"
#include "data/dataset.h"
#include "data/values.h"

namespace {

constexpr int shownModes = 5;
constexpr QLatin1String notAvailable("N/A");

/// Writes one line a metric, in the order of ProfileTable::metrics().
class Lines
{
public:
    Lines(const ColumnProfile &profile, const RealWriter &writer)
        : m_profile(profile)
        , m_writer(writer)
    {
    }

    const QStringList &texts() const { return m_texts; }

    void addValueCounts(bool withDates)
    {
        for (int count : {m_profile.m_empty, m_profile.m_nonEmpty, m_profile.m_numeric, m_profile.m_integer,
                 m_profile.m_real, m_profile.m_boolean}) {
            addCount(count);
        }
        if (withDates) {
            addCount(m_profile.m_date);
        }
        for (int count : {m_profile.m_text, m_profile.m_distinct, m_profile.m_unique, m_profile.m_duplicated}) {
            addCount(count);
        }
    }

    void addLengths()
    {
        const int nonEmpty = m_profile.m_nonEmpty;
        const int all = nonEmpty + m_profile.m_empty;
        const auto sum = static_cast<double>(m_profile.m_lengthSum);
        addMeasure(m_profile.m_minLength, all > 0);
        addMeasure(m_profile.m_minLengthNonEmpty, nonEmpty > 0);
        addMeasure(m_profile.m_maxLength, all > 0);
        addMeasure(sum / all, all > 0);
        addMeasure(sum / nonEmpty, nonEmpty > 0);
    }

    void addNumbers()
    {
        const bool any = m_profile.m_numeric > 0;
        addMeasure(m_profile.m_minNumber, any);
        addMeasure(m_profile.m_maxNumber, any);
        addMeasure(m_profile.m_maxNumber - m_profile.m_minNumber, any);
        for (int count : {m_profile.m_negative, m_profile.m_zero, m_profile.m_positive}) {
            addCount(count);
        }
    }

    void addStatistics()
    {
        const NumberFigures &numbers = m_profile.m_numbers;
        addMeasure(numbers.sum());
        addMeasure(numbers.mean());
        addMeasure(numbers.median());
        addModes(numbers.modes());
        for (const std::optional<double> &figure : {numbers.standardDeviation(), numbers.variance(),
                 numbers.lowerQuartile(), numbers.upperQuartile(), numbers.interquartileRange(), numbers.skew()}) {
            addMeasure(figure);
        }
    }

    void addDates()
    {
        const bool any = m_profile.m_minDate.isValid();
        const qint64 days = m_profile.dayCount();
        m_texts.append(m_profile.m_dateFormat.isEmpty() ? QString(notAvailable) : m_profile.m_dateFormat);
        m_texts.append(any ? dateText(m_profile.m_minDate, m_profile.m_dateFormat) : QString(notAvailable));
        m_texts.append(any ? dateText(m_profile.m_maxDate, m_profile.m_dateFormat) : QString(notAvailable));
        m_texts.append(
            any ? QStringLiteral("%1 %2").arg(formatInteger(days, false), QLatin1String(days == 1 ? "day" : "days"))
                : QString(notAvailable));
        addCount(m_profile.m_distinctDates);
        m_texts.append(formatInteger(days - m_profile.m_distinctDates, false));
    }

    void addMostFrequent(const CellColumn &column)
    {
        if (m_profile.m_mostFrequent < 0) {
            m_texts.append(notAvailable);
            return;
        }
        const QString text = column.at(m_profile.m_mostFrequent).text();
        m_texts.append(text.isEmpty() ? QStringLiteral("(empty)") : text);
    }

private:
    void addCount(int count) { m_texts.append(formatInteger(count, false)); }
    void addMeasure(double value, bool exists)
    {
        m_texts.append(exists ? m_writer.text(value) : QString(notAvailable));
    }
    void addMeasure(const std::optional<double> &value) { addMeasure(value.value_or(0.0), value.has_value()); }

    void addModes(const std::vector<double> &modes)
    {
        if (modes.empty()) {
            m_texts.append(notAvailable);
            return;
        }
        const int count = static_cast<int>(modes.size());
        QString text = formatRealList(QList<double>(modes.cbegin(), modes.cbegin() + qMin(count, shownModes)));
        if (count > shownModes) {
            text += QStringLiteral(" + %1 more").arg(formatInteger(count - shownModes, false));
        }
        m_texts.append(text);
    }

    const ColumnProfile &m_profile;
    const RealWriter &m_writer;
    QStringList m_texts;
};

} // namespace

ProfileTable::ProfileTable(bool withDates, bool withStatistics)
    : m_withDates(withDates)
    , m_withStatistics(withStatistics)
    , m_dateFormats(withDates ? dateFormats() : QStringList())
{
}

QStringList ProfileTable::metrics() const
{
    QStringList names{
        "Empty values", "Non-empty values", "Numeric values", "Integer values", "Real values", "Boolean values"};
    if (m_withDates) {
        names += "Date values";
    }
    names += {"Text values", "Distinct values", "Unique values", "Duplicated values", "Min length inc empty",
        "Min length ex empty", "Max length", "Average length inc empty", "Average length ex empty", "Min numeric",
        "Max numeric", "Range numeric", "Negative numeric", "Zero numeric", "Positive numeric"};
    if (m_withStatistics) {
        names += {"Sum numeric", "Average numeric", "Median numeric", "Mode numeric", "Stddev numeric",
            "Variance numeric", "Q1 numeric", "Q3 numeric", "IQR numeric", "Skew numeric"};
    }
    if (m_withDates) {
        names += {"Format date", "Min date", "Max date", "Range date", "Distinct dates", "Missing dates"};
    }
    return names += "Most frequent";
}

QStringList ProfileTable::texts(const Dataset &dataset, ColumnIndex column) const
{
    const ColumnProfile profile = columnProfile(dataset, column, m_dateFormats, m_withStatistics);
    Lines lines(profile, m_writer);
    lines.addValueCounts(m_withDates);
    lines.addLengths();
    lines.addNumbers();
    if (m_withStatistics) {
        lines.addStatistics();
    }
    if (m_withDates) {
        lines.addDates();
    }
    lines.addMostFrequent(dataset.column(column));
    return lines.texts();
}
