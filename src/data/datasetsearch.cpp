#include "data/cellmatcher.h"
#include "data/dataset.h"

#include <algorithm>

bool Dataset::columnContains(ColumnIndex column, const QString &text, Qt::CaseSensitivity cs) const
{
    const CellMatcher matcher(text, cs);
    const CellVector &cells = m_columns.at(column.toInt()).cells;
    const Cell *const first = cells.constData();
    return text.isEmpty()
           || std::any_of(first, first + cells.size(), [&](const Cell &cell) { return matcher.foundIn(cell); });
}

bool Dataset::rowContains(RowIndex row, const QString &text, Qt::CaseSensitivity cs) const
{
    const CellMatcher matcher(text, cs);
    return text.isEmpty() || std::any_of(m_columns.cbegin(), m_columns.cend(), [&](const CellColumn &column) {
        return matcher.foundIn(column.at(row.toInt()));
    });
}

bool Dataset::contains(const QString &text, Qt::CaseSensitivity cs) const
{
    for (int column = 0; column < columnCount(); ++column) {
        if (columnContains(ColumnIndex(column), text, cs)) {
            return true;
        }
    }
    return text.isEmpty();
}

bool Dataset::headerContains(const QString &text, Qt::CaseSensitivity cs) const
{
    return text.isEmpty() || std::any_of(m_header.cbegin(), m_header.cend(), [&](const QString &name) {
        return name.contains(text, cs);
    });
}

bool Dataset::columnEquals(ColumnIndex column, const Dataset *other, ColumnIndex otherColumn) const
{
    if (!other || !column.isValid() || !otherColumn.isValid() || column.toInt() >= columnCount()
        || otherColumn.toInt() >= other->columnCount() || m_rowCount != other->m_rowCount) {
        return false;
    }
    const CellVector &a = m_columns.at(column.toInt()).cells;
    const CellVector &b = other->m_columns.at(otherColumn.toInt()).cells;
    const auto same = [](const Cell &x, const Cell &y) { return x.sameText(y); };
    return a.sharesWith(b) || std::equal(a.constData(), a.constData() + a.size(), b.constData(), same);
}

bool Dataset::rowEquals(RowIndex row, const Dataset *other, RowIndex otherRow) const
{
    if (!other || !row.isValid() || !otherRow.isValid() || row.toInt() >= m_rowCount
        || otherRow.toInt() >= other->m_rowCount || columnCount() != other->columnCount()) {
        return false;
    }
    for (int i = 0; i < columnCount(); ++i) {
        if (!m_columns.at(i).at(row.toInt()).sameText(other->m_columns.at(i).at(otherRow.toInt()))) {
            return false;
        }
    }
    return true;
}

QList<ColumnIndex> Dataset::allColumns() const
{
    QList<ColumnIndex> columns;
    columns.reserve(columnCount());
    for (int i = 0; i < columnCount(); ++i) {
        columns.append(ColumnIndex(i));
    }
    return columns;
}

QList<RowIndex> Dataset::allRows() const
{
    QList<RowIndex> rows;
    rows.reserve(m_rowCount);
    for (int i = 0; i < m_rowCount; ++i) {
        rows.append(RowIndex(i));
    }
    return rows;
}

QList<ColumnIndex> Dataset::toIndexes(const QList<ColumnNumber> &numbers)
{
    QList<ColumnIndex> indexes;
    indexes.reserve(numbers.size());
    for (ColumnNumber number : numbers) {
        indexes.append(toIndex(number));
    }
    return indexes;
}

bool Dataset::nextCell(RowIndex &row, ColumnIndex &column) const
{
    if (!hasRows()) {
        return false;
    }
    if (column < lastColumn() && row < RowIndex(m_rowCount)) {
        column = ColumnIndex(column.toInt() + 1);
        return true;
    }
    if (row < lastRow()) {
        row = RowIndex(row.toInt() + 1);
        column = ColumnIndex(0);
        return true;
    }
    return false;
}

bool Dataset::previousCell(RowIndex &row, ColumnIndex &column) const
{
    if (!hasRows()) {
        return false;
    }
    if (column.toInt() > 0) {
        column = ColumnIndex(column.toInt() - 1);
        return true;
    }
    if (row.toInt() > 0) {
        row = RowIndex(row.toInt() - 1);
        column = lastColumn();
        return true;
    }
    return false;
}
