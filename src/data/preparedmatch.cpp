#include "data/preparedmatch.h"

#include "data/textorder.h"
#include "data/textsimilarity.h"
#include "data/wholenumber.h"

#include <algorithm>

PreparedMatch::PreparedMatch(
    int op, const QString &text, const QString &cellDateFormat, const QString &textDateFormat, bool caseSensitive)
    : m_isKnown(op >= 0 && op < MatchOperators::count)
    , m_op(MatchOperators::positive(static_cast<MatchOperator>(m_isKnown ? op : 0)))
    , m_negated(m_op != static_cast<MatchOperator>(op))
    , m_cs(caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive)
    , m_cellDates(cellDateFormat)
    , m_textDates(textDateFormat)
    , m_numbers(false, true)
    , m_matcher(QString(), m_cs)
{
    setText(text);
}

void PreparedMatch::setText(const QString &text)
{
    m_text = text;
    m_bytes.clear();
    TextCoding::appendEncoded(m_bytes, text.constData(), text.size());
    switch (m_op) {
    case MatchOperator::Contains:
        m_matcher = CellMatcher(text, m_cs);
        break;
    case MatchOperator::StartsWith:
    case MatchOperator::EndsWith:
        m_wholeCharacters = std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); });
        break;
    case MatchOperator::MatchesRegex:
        m_regex = TextRegex(text, m_cs);
        break;
    case MatchOperator::IsEmpty:
        break;
    default:
        if (MatchOperators::closeness(m_op) > 0) {
            m_pattern.setText(m_cs == Qt::CaseSensitive ? text : text.toLower());
        } else {
            const bool hasDates = !m_cellDates.format().isEmpty() && !m_textDates.format().isEmpty();
            m_date = hasDates ? m_textDates.parse(text) : QDate();
            m_number = m_numbers.read(text, &m_isNumber);
        }
    }
}

bool PreparedMatch::holds(const Cell &cell) const
{
    switch (m_op) {
    case MatchOperator::Contains:
        return m_matcher.foundIn(cell);
    case MatchOperator::EqualTo:
        return m_date.isValid() || m_isNumber ? compare(cell) == 0 : isSameText(cell);
    case MatchOperator::StartsWith:
        return startsWith(cell);
    case MatchOperator::EndsWith:
        return endsWith(cell);
    case MatchOperator::GreaterThan:
        return compare(cell) > 0;
    case MatchOperator::LessThan:
        return compare(cell) < 0;
    case MatchOperator::GreaterThanEqual:
        return compare(cell) >= 0;
    case MatchOperator::LessThanEqual:
        return compare(cell) <= 0;
    case MatchOperator::MatchesRegex:
        return m_regex.isFoundIn(cell.text());
    case MatchOperator::IsEmpty:
        return cell.isEmpty();
    default:
        break;
    }
    const QString text = m_cs == Qt::CaseSensitive ? cell.text() : cell.text().toLower();
    const int longer = std::max(text.size(), m_pattern.size());
    const int allowed = Closeness::largestDistance(MatchOperators::closeness(m_op), longer);
    return longer == 0 || m_pattern.distanceTo(text, allowed + 1) <= allowed;
}

bool PreparedMatch::isSameText(const Cell &cell) const
{
    const int size = cell.size();
    if (m_cs == Qt::CaseSensitive) {
        return size == m_bytes.size() && std::memcmp(cell.bytes(), m_bytes.constData(), static_cast<size_t>(size)) == 0;
    }
    return TextOrder::compareIgnoringCase(cell.bytes(), size, m_bytes.constData(), m_bytes.size()) == 0;
}

bool PreparedMatch::startsWith(const Cell &cell) const
{
    if (m_bytes.isEmpty()) {
        return true;
    }
    if (m_cs == Qt::CaseSensitive && m_wholeCharacters) {
        return cell.size() >= m_bytes.size()
               && std::memcmp(cell.bytes(), m_bytes.constData(), static_cast<size_t>(m_bytes.size())) == 0;
    }
    return cell.text().startsWith(m_text, m_cs);
}

bool PreparedMatch::endsWith(const Cell &cell) const
{
    if (m_bytes.isEmpty()) {
        return true;
    }
    if (m_cs == Qt::CaseSensitive && m_wholeCharacters) {
        const int before = cell.size() - m_bytes.size();
        return before >= 0
               && std::memcmp(cell.bytes() + before, m_bytes.constData(), static_cast<size_t>(m_bytes.size())) == 0;
    }
    return cell.text().endsWith(m_text, m_cs);
}

/// Below, at or above 0 as the cell is less than, equal to or greater than the text.
int PreparedMatch::compare(const Cell &cell) const
{
    if (m_date.isValid()) {
        const QDate date = m_cellDates.parse(cell);
        if (date.isValid()) {
            return (date > m_date) - (date < m_date);
        }
    }
    if (m_isNumber) {
        bool isNumber = false;
        const double number = m_numbers.read(cell, &isNumber);
        if (isNumber && number == m_number && WholeNumber::isShared(number)) {
            return WholeNumber::compareShared(cell, m_text, number, m_numbers);
        }
        if (isNumber) {
            return (number > m_number) - (number < m_number);
        }
    }
    return m_cs == Qt::CaseSensitive
               ? TextOrder::compare(cell.bytes(), cell.size(), m_bytes.constData(), m_bytes.size())
               : TextOrder::compareIgnoringCase(cell.bytes(), cell.size(), m_bytes.constData(), m_bytes.size());
}
