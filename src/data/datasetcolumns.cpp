#include "data/dataset.h"

#include <QSet>
#include <algorithm>

// Whole columns and row selections

void Dataset::appendColumn(const CellColumn &cells, const QString &name, ColumnId id)
{
    if (!hasColumns()) {
        m_rowCount = cells.size();
    }
    padHeader();
    m_columns.append(cells);
    m_columnIds.append(id);
    if (m_hasHeader) {
        m_header.append(name);
    }
    m_columnIndexDirty = true;
}

Dataset Dataset::withRows(const QVector<int> &rows) const
{
    Dataset result;
    result.m_columns.reserve(columnCount());
    for (const CellColumn &column : m_columns) {
        result.m_columns.append(column.gathered(rows));
    }
    result.m_rowCount = hasColumns() ? rows.size() : 0;
    result.m_hasHeader = m_hasHeader;
    result.m_header = m_header;
    result.m_columnIds = m_columnIds;
    return result;
}

void Dataset::appendRowsOf(const Dataset &other)
{
    const int total = m_rowCount + other.m_rowCount;
    for (int i = 0; i < columnCount(); ++i) {
        CellColumn &column = m_columns[i];
        if (i >= other.columnCount()) {
            column.cells.resize(total);
            continue;
        }
        const CellColumn &from = other.m_columns.at(i);
        column.keepAllOf(from);
        column.cells.reserve(total);
        const CellVector cells = from.cells; // holds the cells when a table is appended to itself
        for (int row = 0; row < other.m_rowCount; ++row) {
            column.cells.append(cells.at(row));
        }
    }
    if (hasColumns()) {
        m_rowCount = total;
    }
}

// Columns

void Dataset::insertEmptyColumn(ColumnIndex column)
{
    const int at = column.toInt();
    CellColumn empty;
    empty.cells.resize(m_rowCount);
    padHeader();
    m_columns.insert(at, empty);
    m_columnIds.insert(at, ColumnId());
    if (m_hasHeader) {
        m_header.insert(at, QString());
    }
    if (static_cast<size_t>(at) < m_valuePools.size()) {
        m_valuePools.emplace(m_valuePools.begin() + at);
    }
    m_columnIndexDirty = true;
}

void Dataset::removeColumn(ColumnIndex column)
{
    const int at = column.toInt();
    if (at < 0 || at >= columnCount()) {
        return;
    }
    if (columnCount() == 1) {
        clear();
        return;
    }
    m_columns.removeAt(at);
    m_columnIds.removeAt(at);
    if (at < m_header.size()) {
        m_header.removeAt(at);
    }
    if (static_cast<size_t>(at) < m_valuePools.size()) {
        m_valuePools.erase(m_valuePools.begin() + at);
    }
    m_columnIndexDirty = true;
}

int Dataset::removeEmptyColumns()
{
    int removed = 0;
    for (int i = columnCount() - 1; i >= 0; --i) {
        const CellVector &cells = m_columns.at(i).cells;
        const Cell *first = cells.constData();
        if (std::all_of(first, first + cells.size(), [](const Cell &cell) { return cell.isEmpty(); })) {
            removeColumn(ColumnIndex(i));
            ++removed;
        }
    }
    return removed;
}

// Identity

void Dataset::setColumnId(ColumnIndex column, ColumnId id)
{
    if (column.isValid() && column.toInt() < m_columnIds.size()) {
        m_columnIds[column.toInt()] = id;
        m_columnIndexDirty = true;
    }
}

void Dataset::setColumnIds(const QList<ColumnId> &ids)
{
    m_columnIds = ids;
    m_columnIndexDirty = true;
}

void Dataset::rebuildColumnLookup() const
{
    m_columnIndexById.clear();
    for (int i = 0; i < m_columnIds.size(); ++i) {
        m_columnIndexById.insert(m_columnIds.at(i), ColumnIndex(i));
    }
    m_columnIndexDirty = false;
}

ColumnIndex Dataset::columnIndexOfId(ColumnId id) const
{
    if (id.isNull()) {
        return ColumnIndex();
    }
    if (m_columnIndexDirty) {
        rebuildColumnLookup();
    }
    return m_columnIndexById.value(id);
}

void Dataset::assignColumnIds(int nodeId)
{
    int serial = 0;
    for (ColumnId &id : m_columnIds) {
        if (id.isNull()) {
            id = ColumnId(nodeId, ++serial);
            m_columnIndexDirty = true;
        }
    }
}

void Dataset::clearDuplicateColumnIds()
{
    QSet<ColumnId> seen;
    for (ColumnId &id : m_columnIds) {
        if (!id.isNull() && seen.contains(id)) {
            id = ColumnId();
            m_columnIndexDirty = true;
        } else {
            seen.insert(id);
        }
    }
}

// Drill-down

void Dataset::addDrilldownRow(RowIndex row, ColumnIndex column, RowIndex sourceRow)
{
    m_drilldown.add(row, column, sourceRow);
}

void Dataset::addDrilldownRows(RowIndex row, ColumnIndex column, const QList<RowIndex> &sourceRows)
{
    for (RowIndex sourceRow : sourceRows) {
        addDrilldownRow(row, column, sourceRow);
    }
}

QList<RowIndex> Dataset::drilldownRows(RowIndex row, ColumnIndex column) const
{
    QList<RowIndex> rows = m_drilldown.sourceRows(row, ColumnIndex());
    if (column.isValid()) {
        rows += m_drilldown.sourceRows(row, column);
    }
    return rows;
}

void Dataset::addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId)
{
    m_issues.addCellIssue(row, column, level, ruleId);
}
