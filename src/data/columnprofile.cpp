#include "data/columnprofile.h"

#include "data/cellcolumn.h"
#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/textcoding.h"
#include "data/values.h"

#include <algorithm>
#include <cmath>
#include <memory>

/// Reads each different text once and counts it as often as it comes.
class ColumnProfiler
{
public:
    ColumnProfiler(ColumnProfile &profile, const CellColumn &column)
        : m_profile(profile)
        , m_column(column)
        , m_values(profile.m_values)
        , m_reader(false, true)
        , m_facts(static_cast<size_t>(m_values.distinct()))
    {
        if (!profile.m_dateFormat.isEmpty()) {
            m_dates = std::make_unique<DateParser>(profile.m_dateFormat);
        }
        profile.m_metricsOfValue.assign(m_facts.size(), 0);
    }

    void run(bool withNumbers)
    {
        for (int value = 0; value < m_values.distinct(); ++value) {
            add(value, m_column.at(m_values.firstRow(value)), m_values.count(value));
        }
        if (withNumbers) {
            listNumbers();
        }
        listDays();
        for (int value = 0; value < m_values.distinct(); ++value) {
            markExtremes(value);
        }
    }

private:
    /// What a text was read as.
    struct Facts
    {
        int length = 0;
        double number = std::numeric_limits<double>::quiet_NaN();
        qint64 julianDay = noDay;
    };
    static constexpr qint64 noDay = std::numeric_limits<qint64>::min();

    Facts &factsOf(int value) { return m_facts[static_cast<size_t>(value)]; }

    void mark(int value, ProfileMetric metric, bool applies = true)
    {
        m_profile.m_metricsOfValue[static_cast<size_t>(value)] |= applies ? 1U << static_cast<int>(metric) : 0U;
    }

    void countAs(int value, ProfileMetric metric, int &counter, int count)
    {
        counter += count;
        mark(value, metric);
    }

    void add(int value, const Cell &cell, int count)
    {
        const int length = TextCoding::unitCount(cell.bytes(), cell.size());
        factsOf(value).length = length;
        m_profile.m_minLength = std::min(m_profile.m_minLength, length);
        if (cell.isEmpty()) {
            countAs(value, ProfileMetric::Empty, m_profile.m_empty, count);
            return;
        }
        countAs(value, ProfileMetric::NonEmpty, m_profile.m_nonEmpty, count);
        m_profile.m_minLengthNonEmpty = std::min(m_profile.m_minLengthNonEmpty, length);
        m_profile.m_maxLength = std::max(m_profile.m_maxLength, length);
        m_profile.m_lengthSum += static_cast<qint64>(length) * count;
        bool ok = false;
        const double number = m_reader.read(cell, &ok);
        if (ok) {
            addNumber(value, number, count);
        } else if (isBoolean(cell)) {
            countAs(value, ProfileMetric::Boolean, m_profile.m_boolean, count);
        } else if (!addDate(value, cell, count)) {
            countAs(value, ProfileMetric::Text, m_profile.m_text, count);
        }
    }

    void addNumber(int value, double number, int count)
    {
        factsOf(value).number = number;
        countAs(value, ProfileMetric::Numeric, m_profile.m_numeric, count);
        if (std::floor(number) == std::ceil(number)) {
            countAs(value, ProfileMetric::Integer, m_profile.m_integer, count);
        } else {
            countAs(value, ProfileMetric::Real, m_profile.m_real, count);
        }
        if (number < 0) {
            countAs(value, ProfileMetric::Negative, m_profile.m_negative, count);
        } else if (number > 0) {
            countAs(value, ProfileMetric::Positive, m_profile.m_positive, count);
        } else {
            countAs(value, ProfileMetric::Zero, m_profile.m_zero, count);
        }
        m_profile.m_minNumber = std::min(m_profile.m_minNumber, number);
        m_profile.m_maxNumber = std::max(m_profile.m_maxNumber, number);
    }

    static bool isBoolean(const Cell &cell)
    {
        bool ok = false;
        parseBoolean(cell.text(), true, false, &ok);
        return ok;
    }

    bool addDate(int value, const Cell &cell, int count)
    {
        const QDate date = m_dates ? m_dates->parse(cell) : QDate();
        if (!date.isValid()) {
            return false;
        }
        countAs(value, ProfileMetric::Date, m_profile.m_date, count);
        factsOf(value).julianDay = date.toJulianDay();
        m_profile.m_days.push_back({date.toJulianDay(), value});
        return true;
    }

    void listNumbers()
    {
        for (int position = 0; position < m_values.rowCount(); ++position) {
            const double number = factsOf(m_values.valueAt(position)).number;
            if (!std::isnan(number)) {
                m_profile.m_numbers.add(number);
            }
        }
    }

    void listDays()
    {
        auto &days = m_profile.m_days;
        std::sort(days.begin(), days.end(), [](const auto &a, const auto &b) {
            return a.julianDay != b.julianDay ? a.julianDay < b.julianDay : a.value < b.value;
        });
        if (!days.empty()) {
            m_profile.m_minDate = QDate::fromJulianDay(days.front().julianDay);
            m_profile.m_maxDate = QDate::fromJulianDay(days.back().julianDay);
        }
        m_profile.m_distinctDates = m_profile.distinctDates().size();
    }

    void markExtremes(int value)
    {
        const Facts &facts = factsOf(value);
        mark(value, ProfileMetric::MinLength, facts.length == m_profile.m_minLength);
        mark(value, ProfileMetric::MinLengthNonEmpty, facts.length == m_profile.m_minLengthNonEmpty);
        mark(value, ProfileMetric::MaxLength, facts.length == m_profile.m_maxLength);
        mark(value, ProfileMetric::MinNumber, facts.number == m_profile.m_minNumber);
        mark(value, ProfileMetric::MaxNumber, facts.number == m_profile.m_maxNumber);
        if (facts.julianDay != noDay) {
            mark(value, ProfileMetric::MinDate, facts.julianDay == m_profile.m_minDate.toJulianDay());
            mark(value, ProfileMetric::MaxDate, facts.julianDay == m_profile.m_maxDate.toJulianDay());
        }
    }

    ColumnProfile &m_profile;
    const CellColumn &m_column;
    const ValueFrequencies &m_values;
    const NumberReader m_reader;
    std::unique_ptr<DateParser> m_dates;
    std::vector<Facts> m_facts;
};

QList<QDate> ColumnProfile::distinctDates() const
{
    QList<QDate> dates;
    for (const DayOfValue &day : m_days) {
        const QDate date = QDate::fromJulianDay(day.julianDay);
        if (dates.isEmpty() || dates.constLast() != date) {
            dates.append(date);
        }
    }
    return dates;
}

QList<QDate> ColumnProfile::missingDates(int limit) const
{
    QList<QDate> missing;
    if (m_days.empty()) {
        return missing;
    }
    qint64 next = m_days.front().julianDay;
    for (const DayOfValue &day : m_days) {
        for (; next < day.julianDay && missing.size() < limit; ++next) {
            missing.append(QDate::fromJulianDay(next));
        }
        next = day.julianDay + 1;
    }
    return missing;
}

QVector<int> ColumnProfile::rowsOf(ProfileMetric metric, int limit) const
{
    const quint32 bit = 1U << static_cast<int>(metric);
    return m_values.rowsOf(
        [this, bit](int value) { return (m_metricsOfValue[static_cast<size_t>(value)] & bit) != 0; }, limit);
}

QVector<int> ColumnProfile::rowsOf(const QDate &date, int limit) const
{
    const qint64 wanted = date.isValid() ? date.toJulianDay() : -1;
    const auto begin = std::lower_bound(m_days.cbegin(), m_days.cend(), wanted,
        [](const DayOfValue &day, qint64 julianDay) { return day.julianDay < julianDay; });
    std::vector<int> values;
    for (auto day = begin; date.isValid() && day != m_days.cend() && day->julianDay == wanted; ++day) {
        values.push_back(day->value);
    }
    return m_values.rowsOf(
        [&values](int value) { return std::binary_search(values.cbegin(), values.cend(), value); }, limit);
}

void fillColumnProfile(ColumnProfile &profile, const CellColumn &column, bool withNumbers)
{
    ColumnProfiler(profile, column).run(withNumbers);
}
