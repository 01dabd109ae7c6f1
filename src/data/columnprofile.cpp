#include "data/columnprofile.h"

#include "data/dataset.h"
#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/rowkeyindex.h"
#include "data/values.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

/// Reads each different text once and counts it as often as it comes.
class Profiler
{
public:
    Profiler(ColumnProfile &profile, const CellColumn &column)
        : m_profile(profile)
        , m_column(column)
        , m_reader(false, true)
    {
        if (!profile.m_dateFormat.isEmpty()) {
            m_dates = std::make_unique<DateParser>(profile.m_dateFormat);
        }
    }

    void run(bool withNumbers)
    {
        countTexts();
        std::vector<double> numbers(m_counts.size(), std::numeric_limits<double>::quiet_NaN());
        for (size_t text = 0; text < m_counts.size(); ++text) {
            add(m_column.at(m_firstRows[text]), m_counts[text], numbers[text]);
        }
        if (withNumbers) {
            for (int text : m_textOfRow) {
                const double number = numbers[static_cast<size_t>(text)];
                if (!std::isnan(number)) {
                    m_profile.m_numbers.add(number);
                }
            }
        }
        std::sort(m_days.begin(), m_days.end());
        const auto end = std::unique(m_days.begin(), m_days.end());
        m_profile.m_distinctDates = static_cast<int>(end - m_days.begin());
        if (!m_days.empty()) {
            m_profile.m_minDate = QDate::fromJulianDay(m_days.front());
            m_profile.m_maxDate = QDate::fromJulianDay(*(end - 1));
        }
    }

private:
    void countTexts()
    {
        constexpr int announced = 32;
        const int rowCount = m_column.size();
        RowKeyIndex index({m_column.cells.constData()});
        m_textOfRow.reserve(static_cast<size_t>(rowCount));
        for (int row = 0; row < rowCount; ++row) {
            if (row % announced == 0) {
                index.announce(row, std::min(row + announced, rowCount));
            }
            const int text = index.add(row);
            m_textOfRow.push_back(text);
            m_counts.resize(static_cast<size_t>(index.size()), 0);
            ++m_counts[static_cast<size_t>(text)];
        }
        int most = 0;
        for (int text = 0; text < index.size(); ++text) {
            m_firstRows.push_back(index.firstRow(text));
            const int count = m_counts[static_cast<size_t>(text)];
            ++(count == 1 ? m_profile.m_unique : m_profile.m_duplicated);
            if (count > most) {
                most = count;
                m_profile.m_mostFrequent = m_firstRows.back();
            }
        }
        m_profile.m_distinct = index.size();
    }

    /// Books a text that comes `count` times; `number` takes its value if it has one.
    void add(const Cell &cell, int count, double &number)
    {
        const int length = TextCoding::unitCount(cell.bytes(), cell.size());
        m_profile.m_minLength = std::min(m_profile.m_minLength, length);
        if (cell.isEmpty()) {
            m_profile.m_empty += count;
            return;
        }
        m_profile.m_nonEmpty += count;
        m_profile.m_minLengthNonEmpty = std::min(m_profile.m_minLengthNonEmpty, length);
        m_profile.m_maxLength = std::max(m_profile.m_maxLength, length);
        m_profile.m_lengthSum += static_cast<qint64>(length) * count;
        bool ok = false;
        const double value = m_reader.read(cell, &ok);
        if (ok) {
            number = value;
            addNumber(value, count);
        } else if (isBoolean(cell)) {
            m_profile.m_boolean += count;
        } else if (!addDate(cell, count)) {
            m_profile.m_text += count;
        }
    }

    void addNumber(double value, int count)
    {
        m_profile.m_numeric += count;
        (std::floor(value) == std::ceil(value) ? m_profile.m_integer : m_profile.m_real) += count;
        (value < 0 ? m_profile.m_negative : value > 0 ? m_profile.m_positive : m_profile.m_zero) += count;
        m_profile.m_minNumber = std::min(m_profile.m_minNumber, value);
        m_profile.m_maxNumber = std::max(m_profile.m_maxNumber, value);
    }

    static bool isBoolean(const Cell &cell)
    {
        bool ok = false;
        parseBoolean(cell.text(), true, false, &ok);
        return ok;
    }

    bool addDate(const Cell &cell, int count)
    {
        const QDate date = m_dates ? m_dates->parse(cell) : QDate();
        if (!date.isValid()) {
            return false;
        }
        m_profile.m_date += count;
        m_days.push_back(date.toJulianDay());
        return true;
    }

    ColumnProfile &m_profile;
    const CellColumn &m_column;
    const NumberReader m_reader;
    std::unique_ptr<DateParser> m_dates;
    std::vector<int> m_textOfRow;
    std::vector<int> m_firstRows;
    std::vector<int> m_counts;
    std::vector<qint64> m_days;
};

} // namespace

ColumnProfile columnProfile(
    const Dataset &dataset, ColumnIndex column, const QStringList &dateFormats, bool withNumbers)
{
    constexpr int sampledDates = 50;
    ColumnProfile profile;
    if (!dateFormats.isEmpty()) {
        dataset.isColumnDate(column, dateFormats, &profile.m_dateFormat, sampledDates);
    }
    Profiler(profile, dataset.column(column)).run(withNumbers);
    return profile;
}
