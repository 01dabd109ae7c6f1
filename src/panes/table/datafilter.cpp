#include "panes/table/datafilter.h"

#include "data/dataset.h"
#include "data/preparedmatch.h"

#include <vector>

namespace {

PreparedMatch containing(const QString &text)
{
    return PreparedMatch(static_cast<int>(MatchOperator::Contains), text, QString(), QString(), false);
}

} // namespace

QVector<int> DataFilter::rowsContaining(const Dataset &dataset, const QString &text)
{
    const PreparedMatch match = containing(text);
    const bool emptyMatches = match.matches(Cell());
    std::vector<char> found(static_cast<size_t>(dataset.rowCount()));
    for (int column = 0; column < dataset.columnCount(); ++column) {
        const Cell *cell = dataset.column(ColumnIndex(column)).cells.constData();
        for (char &isFound : found) {
            isFound = isFound || (cell->isEmpty() ? emptyMatches : match.matches(*cell));
            ++cell;
        }
    }
    QVector<int> rows;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        if (found[static_cast<size_t>(row)]) {
            rows.append(row);
        }
    }
    return rows;
}

QVector<int> DataFilter::columnsContaining(const Dataset &dataset, const QString &text)
{
    const PreparedMatch match = containing(text);
    QVector<int> columns;
    for (int column = 0; column < dataset.columnCount(); ++column) {
        for (int row = 0; row < dataset.rowCount(); ++row) {
            if (match.matches(dataset.cell(RowIndex(row), ColumnIndex(column)))) {
                columns.append(column);
                break;
            }
        }
    }
    return columns;
}

QVector<int> DataFilter::columnsNamed(const Dataset &dataset, const QString &text)
{
    QVector<int> columns;
    for (int column = 0; column < dataset.columnCount(); ++column) {
        if (dataset.columnName(ColumnIndex(column)).contains(text, Qt::CaseInsensitive)) {
            columns.append(column);
        }
    }
    return columns;
}
