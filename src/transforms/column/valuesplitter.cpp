#include "transforms/column/valuesplitter.h"

#include <string_view>

ValueSplitter::ValueSplitter(By by, const QString &pattern, bool keepEmpty)
    : m_by(by)
    , m_delimiter(pattern)
    , m_behavior(keepEmpty ? Qt::KeepEmptyParts : Qt::SkipEmptyParts)
{
    setText(m_delimiterBytes, pattern);
    if (by == Regex) {
        m_expression = TextRegex(pattern);
    } else if (by == Lengths) {
        parseLengths(pattern);
    }
}

void ValueSplitter::parseLengths(const QString &list)
{
    int stars = 0;
    for (const QString &part : list.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString token = part.trimmed();
        const bool skipped = token.startsWith(QLatin1Char('-'));
        const QString size = skipped ? token.mid(1) : token;
        bool isNumber = false;
        const int length = size.toInt(&isNumber);
        if (size == QLatin1String("*")) {
            ++stars;
            m_pieces.append({rest, skipped});
        } else if (isNumber && length > 0 && size.at(0).isDigit()) {
            m_pieces.append({length, skipped});
        } else {
            m_faults.append(QStringLiteral("unexpected token '%1'").arg(token));
        }
    }
    if (stars > 1) {
        m_faults.prepend(QStringLiteral("Only 1 '*' or '-*' allowed"));
    }
}

QStringList ValueSplitter::split(const QString &text) const
{
    switch (m_by) {
    case Text:
        return m_delimiter.isEmpty() ? QStringList{text} : text.split(m_delimiter, m_behavior);
    case Regex:
        return m_delimiter.isEmpty() ? QStringList{text} : m_expression.split(text, m_behavior);
    default:
        return splitByLengths(text);
    }
}

void ValueSplitter::splitBytes(const char *bytes, int size, std::vector<Span> &spans) const
{
    spans.clear();
    const std::string_view text(bytes, static_cast<size_t>(size));
    const std::string_view delimiter(m_delimiterBytes.constData(), static_cast<size_t>(m_delimiterBytes.size()));
    size_t begin = 0;
    for (;;) {
        const size_t found = text.find(delimiter, begin);
        const size_t end = found == std::string_view::npos ? text.size() : found;
        if (end > begin || m_behavior == Qt::KeepEmptyParts) {
            spans.push_back({static_cast<int>(begin), static_cast<int>(end)});
        }
        if (found == std::string_view::npos) {
            return;
        }
        begin = found + delimiter.size();
    }
}

QStringList ValueSplitter::splitByLengths(const QString &text) const
{
    if (!m_faults.isEmpty() || m_pieces.isEmpty()) {
        return {text};
    }
    // What stands behind the star is counted from the end, but never takes what pieces before the star took.
    const int count = m_pieces.size();
    QVector<int> begins(count);
    QVector<int> ends(count);
    int front = 0;
    int next = 0;
    for (; next < count && m_pieces.at(next).length != rest; ++next) {
        begins[next] = front;
        front = qMin<int>(text.size(), front + qMin(m_pieces.at(next).length, text.size()));
        ends[next] = front;
    }
    int back = text.size();
    for (int last = count - 1; last > next; --last) {
        ends[last] = back;
        back = qMax(front, back - qMin(m_pieces.at(last).length, text.size()));
        begins[last] = back;
    }
    if (next < count) {
        begins[next] = front;
        ends[next] = back;
    }
    // Empty pieces stay, or the pieces behind them would move into other columns.
    QStringList parts;
    for (int piece = 0; piece < count; ++piece) {
        if (!m_pieces.at(piece).skipped) {
            parts.append(text.mid(begins.at(piece), ends.at(piece) - begins.at(piece)));
        }
    }
    return parts;
}
