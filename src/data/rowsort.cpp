#include "data/dataset.h"
#include "data/rowsorter.h"
#include "data/rowsorting.h"
#include "data/values.h"

#include <algorithm>

namespace {

/// A sort column with what it is sorted as.
struct SortedColumn
{
    ColumnIndex column;
    bool descending = false;
    RowSortKey::Type type = RowSortKey::Text;
    QString dateFormat;
};

QVector<SortedColumn> classified(const Dataset &dataset, const RowSorting &sorting)
{
    constexpr int numberSample = 100;
    QVector<SortedColumn> result;
    for (const int number : sorting.columns) {
        SortedColumn sorted;
        sorted.column = toIndex(ColumnNumber(std::abs(number)));
        sorted.descending = number < 0;
        if (number == 0 || sorted.column.toInt() >= dataset.columnCount()) {
            continue;
        }
        if (sorting.byValue) {
            if (dataset.isColumnDate(sorted.column, sorting.dateFormats, &sorted.dateFormat)) {
                sorted.type = RowSortKey::Date;
            } else if (dataset.isColumnNumeric(sorted.column, true, numberSample)) {
                sorted.type = RowSortKey::Number;
            }
        }
        result.append(sorted);
    }
    return result;
}

QString report(const Dataset &dataset, const QVector<SortedColumn> &columns)
{
    QStringList lines;
    for (const SortedColumn &sorted : columns) {
        const QString as = sorted.type == RowSortKey::Date     ? QStringLiteral("Date (%1)").arg(sorted.dateFormat)
                           : sorted.type == RowSortKey::Number ? QStringLiteral("Numeric")
                                                               : QStringLiteral("Text");
        lines.append(QStringLiteral("Column '%1' sorted %2 as %3")
                         .arg(dataset.columnName(sorted.column),
                             sorted.descending ? QStringLiteral("descending") : QStringLiteral("ascending"), as));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void Dataset::sortRows(const RowSorting &sorting, QString *info)
{
    const QVector<SortedColumn> sortedColumns = classified(*this, sorting);
    if (!hasRows() || sortedColumns.isEmpty()) {
        return;
    }
    std::vector<RowSortKey> keys;
    for (const SortedColumn &sorted : sortedColumns) {
        keys.emplace_back(column(sorted.column), sorted.type, sorted.dateFormat,
            RowSortKey::TextRules{sorting.localeAware, sorting.caseSensitive}, sorted.descending);
    }
    const QVector<int> order = RowSorter(keys).sorted();
    CellColumn ranks;
    if (sorting.addRank) {
        const bool isSplit = sorting.rankBy > 0 && sorting.rankBy <= columnCount();
        ranks = RowRanks(keys, order).ranks(sorting.rankType, isSplit ? &m_columns.at(sorting.rankBy - 1) : nullptr);
    }
    keys.clear(); // lets the old cells go column by column
    if (!std::is_sorted(order.cbegin(), order.cend())) {
        for (CellColumn &cells : m_columns) {
            cells = cells.gathered(order);
        }
    }
    if (sorting.addRank) {
        m_columns.last() = ranks;
    }
    clearValueCaches();
    if (info) {
        *info = report(*this, sortedColumns);
    }
}
