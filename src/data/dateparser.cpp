#include "data/dateparser.h"

#include "data/numberscan.h"
#include "data/textbuffer.h"

namespace {

constexpr int mostRemembered = 20000;
constexpr int longestRemembered = 100;

QDate dateOf(const NumericPattern::Numbers &numbers)
{
    // Only one of the two kinds of year is in a pattern, and a four-digit year is never 0.
    const int year = numbers[NumericPattern::Year];
    return QDate(year ? year : 1900 + numbers[NumericPattern::TwoDigitYear], numbers[NumericPattern::Month],
        numbers[NumericPattern::Day]);
}

} // namespace

DateParser::DateParser(const QString &format)
    : m_format(format)
    , m_pattern(NumericPattern::forDate(format))
{
}

QDate DateParser::parse(const QString &text) const
{
    TextBuffer bytes;
    setText(bytes, text);
    return parseBytes(bytes.constData(), bytes.size());
}

QDate DateParser::parseBytes(const char *bytes, int size) const
{
    if (m_pattern.isUsable()) {
        const auto *begin = reinterpret_cast<const uchar *>(bytes);
        const auto *end = begin + size;
        if (NumberScan::trim(begin, end)) {
            NumericPattern::Numbers numbers;
            const auto trimmedSize = static_cast<int>(end - begin);
            const auto outcome = m_pattern.match(reinterpret_cast<const char *>(begin), trimmedSize, &numbers);
            if (outcome != NumericPattern::Unsure) {
                return outcome == NumericPattern::Match ? dateOf(numbers) : QDate();
            }
        }
    }
    return parseSlowly(bytes, size);
}

QDate DateParser::parseSlowly(const char *bytes, int size) const
{
    const auto known = m_memory.constFind(QByteArray::fromRawData(bytes, size));
    if (known != m_memory.constEnd()) {
        return *known;
    }
    const QDate date = QDate::fromString(TextCoding::decode(bytes, size).trimmed(), m_format);
    if (size <= longestRemembered) {
        if (m_memory.size() >= mostRemembered) {
            m_memory.clear();
        }
        m_memory.insert(QByteArray(bytes, size), date);
    }
    return date;
}

DateListParser::DateListParser(const QStringList &formats)
{
    m_parsers.reserve(static_cast<size_t>(formats.size()));
    for (const QString &format : formats) {
        m_parsers.emplace_back(format);
    }
}

QDate DateListParser::parse(const Cell &cell, int *matched) const
{
    for (size_t i = 0; i < m_parsers.size(); ++i) {
        const QDate date = m_parsers[i].parse(cell);
        if (date.isValid()) {
            if (matched) {
                *matched = static_cast<int>(i);
            }
            return date;
        }
    }
    return QDate();
}
