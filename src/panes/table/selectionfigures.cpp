#include "panes/table/selectionfigures.h"

#include "data/numberreader.h"
#include "data/values.h"
#include "panes/table/datatablemodel.h"

namespace {

constexpr int longestValue = 100;
constexpr int decimals = 3;

} // namespace

SelectionFigures::SelectionFigures(const DataTableModel &table, const QVector<CellRange> &ranges, int mostCells)
{
    for (const CellRange &range : ranges) {
        m_selected += range.cellCount();
    }
    m_isRead = m_selected > 0 && m_selected <= mostCells;
    if (!m_isRead) {
        return;
    }
    for (const CellRange &range : ranges) {
        add(table, range);
    }
    const RowIndex first = table.rowOf(ranges.first().top);
    if (m_selected == 1 && first.isValid()) {
        const CellRange &range = ranges.first();
        m_value = ellipsized(table.dataset().value(first, ColumnIndex(range.left)), longestValue);
    }
}

void SelectionFigures::add(const DataTableModel &table, const CellRange &range)
{
    const NumberReader reader(false, false);
    for (int row = range.top; row <= range.bottom; ++row) {
        const RowIndex place = table.rowOf(row);
        if (!place.isValid()) {
            m_empty += range.right - range.left + 1;
            continue;
        }
        for (int column = range.left; column <= range.right; ++column) {
            const Cell &cell = table.dataset().cell(place, ColumnIndex(column));
            if (cell.isEmpty()) {
                ++m_empty;
                continue;
            }
            bool isNumber = false;
            const double number = reader.read(cell, &isNumber);
            if (isNumber) {
                m_min = m_numeric == 0 ? number : qMin(m_min, number);
                m_max = m_numeric == 0 ? number : qMax(m_max, number);
                m_sum += number;
                ++m_numeric;
            }
        }
    }
}

QString SelectionFigures::text() const
{
    if (m_selected == 0) {
        return QString();
    }
    if (m_isRead && m_selected == 1) {
        return m_value;
    }
    QStringList parts;
    const auto addPart = [&parts](const QString &label, const QString &value) {
        parts.append(QStringLiteral("%1: %2").arg(label, value));
    };
    addPart(QStringLiteral("Selected"), formatInteger(m_selected, true));
    if (m_isRead) {
        addPart(QStringLiteral("Empty"), formatInteger(m_empty, true));
        addPart(QStringLiteral("Numeric"), formatInteger(m_numeric, true));
    }
    if (m_numeric > 0) {
        addPart(QStringLiteral("Sum"), formatReal(m_sum, true, decimals, true));
        addPart(QStringLiteral("Average"), formatReal(m_sum / m_numeric, true, decimals, true));
        addPart(QStringLiteral("Min"), formatReal(m_min, true, decimals, true));
        addPart(QStringLiteral("Max"), formatReal(m_max, true, decimals, true));
    }
    return parts.join(QLatin1Char(' '));
}
