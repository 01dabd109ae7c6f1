#include "transforms/format/datetimeconverter.h"

#include <algorithm>

namespace {

constexpr int mostRemembered = 20000;
constexpr int longestRemembered = 100;

bool hasTimeLetters(const QString &format)
{
    return std::any_of(format.cbegin(), format.cend(), [](QChar c) { return QStringLiteral("hHmszaAt").contains(c); });
}

} // namespace

DateTimeConverter::DateTimeConverter(
    const QString &inputFormat, const QLocale &input, const QString &outputFormat, const QLocale &output)
    : m_inputFormat(inputFormat)
    , m_input(input)
    , m_pattern(NumericPattern::forDate(inputFormat))
    , m_readsTime(!m_pattern.isUsable())
    , m_outputFormat(outputFormat)
    , m_output(output)
    , m_writesTime(hasTimeLetters(outputFormat))
    , m_dateWriter(outputFormat, output)
{
    if (m_readsTime) {
        m_pattern = NumericPattern::forDateTime(inputFormat);
    }
    if (input.zeroDigit() != QLatin1Char('0')) {
        m_pattern = NumericPattern();
    }
}

bool DateTimeConverter::write(const NumericPattern::Numbers &numbers, TextBuffer &out) const
{
    const int fullYear = numbers[NumericPattern::Year];
    const int year = fullYear ? fullYear : 1900 + numbers[NumericPattern::TwoDigitYear];
    const int month = numbers[NumericPattern::Month];
    const int day = numbers[NumericPattern::Day];
    if (!QDate::isValid(year, month, day)) {
        return false;
    }
    if (m_readsTime || m_writesTime) {
        const QTime time(
            numbers[NumericPattern::Hour], numbers[NumericPattern::Minute], numbers[NumericPattern::Second]);
        const QDateTime dateTime(QDate(year, month, day), time);
        if (!dateTime.isValid()) {
            return false; // in the hour that a change to summer time leaves out
        }
        if (m_writesTime) {
            setText(out, m_output.toString(dateTime, m_outputFormat));
            return true;
        }
    }
    m_dateWriter.write(year, month, day, out);
    return true;
}

bool DateTimeConverter::convert(const Cell &cell, TextBuffer &out)
{
    NumericPattern::Numbers numbers;
    switch (m_pattern.match(cell.bytes(), cell.size(), &numbers)) {
    case NumericPattern::Match:
        return write(numbers, out);
    case NumericPattern::NoMatch:
        return false;
    default:
        return convertSlowly(cell, out);
    }
}

bool DateTimeConverter::convertSlowly(const Cell &cell, TextBuffer &out)
{
    auto known = m_memory.constFind(QByteArray::fromRawData(cell.bytes(), cell.size()));
    if (known == m_memory.constEnd()) {
        const QDateTime dateTime = m_input.toDateTime(cell.text(), m_inputFormat);
        const Known result{
            dateTime.isValid(), dateTime.isValid() ? m_output.toString(dateTime, m_outputFormat) : QString()};
        if (cell.size() > longestRemembered) {
            setText(out, result.text);
            return result.isRead;
        }
        if (m_memory.size() >= mostRemembered) {
            m_memory.clear();
        }
        known = m_memory.insert(QByteArray(cell.bytes(), cell.size()), result);
    }
    setText(out, known->text);
    return known->isRead;
}
