#include "data/columntable.h"

#include <QSet>
#include <algorithm>

void ColumnTable::appendColumn(const CellColumn &cells, const QString &name, ColumnId id)
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

// Columns

void ColumnTable::addNamedColumn(const CellColumn &cells, const QString &name)
{
    appendColumn(cells);
    if (!name.isEmpty()) {
        setHeaderValue(lastColumn(), name);
    }
}

void ColumnTable::insertEmptyColumn(ColumnIndex column)
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

void ColumnTable::removeColumn(ColumnIndex column)
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

int ColumnTable::removeEmptyColumns()
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

void ColumnTable::setColumnId(ColumnIndex column, ColumnId id)
{
    if (column.isValid() && column.toInt() < m_columnIds.size()) {
        m_columnIds[column.toInt()] = id;
        m_columnIndexDirty = true;
    }
}

void ColumnTable::setColumnIds(const QList<ColumnId> &ids)
{
    m_columnIds = ids;
    m_columnIndexDirty = true;
}

void ColumnTable::rebuildColumnLookup() const
{
    m_columnIndexById.clear();
    for (int i = 0; i < m_columnIds.size(); ++i) {
        m_columnIndexById.insert(m_columnIds.at(i), ColumnIndex(i));
    }
    m_columnIndexDirty = false;
}

ColumnIndex ColumnTable::columnIndexOfId(ColumnId id) const
{
    if (id.isNull()) {
        return ColumnIndex();
    }
    if (m_columnIndexDirty) {
        rebuildColumnLookup();
    }
    return m_columnIndexById.value(id);
}

void ColumnTable::assignColumnIds(int nodeId)
{
    int serial = 0;
    for (ColumnId &id : m_columnIds) {
        if (id.isNull()) {
            id = ColumnId(nodeId, ++serial);
            m_columnIndexDirty = true;
        }
    }
}

void ColumnTable::clearDuplicateColumnIds()
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
