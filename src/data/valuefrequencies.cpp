#include "data/valuefrequencies.h"

#include "data/cellcolumn.h"
#include "data/rowkeyindex.h"
#include "data/values.h"

#include <algorithm>
#include <numeric>

ValueFrequencies::ValueFrequencies(const CellColumn &column, const QVector<int> &rows)
    : m_isWhole(false)
    , m_rows(rows)
    , m_valueOfPosition(static_cast<size_t>(rows.size()))
{
    countTexts(column);
}

ValueFrequencies::ValueFrequencies(const CellColumn &column)
    : m_valueOfPosition(static_cast<size_t>(column.size()))
{
    countTexts(column);
}

void ValueFrequencies::countTexts(const CellColumn &column)
{
    constexpr int announced = 32;
    RowKeyIndex index({column.cells.constData()});
    for (int position = 0; position < rowCount(); ++position) {
        if (m_isWhole && position % announced == 0) {
            index.announce(position, std::min(position + announced, rowCount()));
        }
        const int value = index.add(rowAt(position));
        m_valueOfPosition[static_cast<size_t>(position)] = value;
        m_counts.resize(static_cast<size_t>(index.size()), 0);
        ++m_counts[static_cast<size_t>(value)];
    }
    m_firstRows.reserve(m_counts.size());
    for (int value = 0; value < distinct(); ++value) {
        m_firstRows.push_back(index.firstRow(value));
    }
    m_unique = static_cast<int>(std::count(m_counts.cbegin(), m_counts.cend(), 1));
}

int ValueFrequencies::mostFrequent() const
{
    return m_counts.empty()
               ? -1
               : static_cast<int>(std::max_element(m_counts.cbegin(), m_counts.cend()) - m_counts.cbegin());
}

QVector<int> ValueFrequencies::rowsOf(const std::function<bool(int value)> &isWanted, int limit) const
{
    std::vector<char> wanted(m_counts.size());
    for (int value = 0; value < distinct(); ++value) {
        wanted[static_cast<size_t>(value)] = isWanted(value) ? 1 : 0;
    }
    QVector<int> rows;
    for (int position = 0; position < rowCount() && (limit < 0 || rows.size() < limit); ++position) {
        if (wanted[static_cast<size_t>(valueAt(position))] != 0) {
            rows.append(rowAt(position));
        }
    }
    return rows;
}

QVector<int> ValueFrequencies::rowsOf(int value, int limit) const
{
    return rowsOf([value](int other) { return other == value; }, limit);
}

std::vector<int> ValueFrequencies::firstInOrder(Order order, int limit) const
{
    std::vector<int> values(m_counts.size());
    std::iota(values.begin(), values.end(), 0);
    const auto end = values.begin() + std::min(std::max(limit, 0), distinct());
    const bool most = order == Order::MostFrequent;
    std::partial_sort(values.begin(), end, values.end(),
        [this, most](int a, int b) { return count(a) != count(b) ? (count(a) > count(b)) == most : a < b; });
    values.erase(end, values.end());
    return values;
}

QVector<ValueFrequencies::Line> ValueFrequencies::table(const CellColumn &column, Order order, int limit) const
{
    QVector<Line> lines;
    int rest = rowCount();
    for (int value : firstInOrder(order, limit)) {
        const Cell &cell = column.at(firstRow(value));
        const QString text = cell.isEmpty() ? QStringLiteral("(empty)") : cell.text();
        lines.append({value, text, count(value), formatInteger(count(value), true)});
        rest -= count(value);
    }
    const int others = distinct() - lines.size();
    if (others > 0) {
        const QString text = QStringLiteral("(%1 other %2)")
                                 .arg(formatInteger(others, true), QLatin1String(others == 1 ? "value" : "values"));
        lines.append({-1, text, rest, formatInteger(rest, true)});
    }
    return lines;
}
