#include "inputs/datasetstack.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

// Below, copying the texts costs less than keeping the table's arena.
constexpr int smallTable = 100;

} // namespace

void DatasetStack::append(const Dataset &item)
{
    if (item.rowCount() > std::numeric_limits<int>::max() / 2 - m_rowCount) {
        throw std::bad_alloc();
    }
    if (m_isEmpty) {
        start(item);
    }
    widen(item);
    try {
        for (size_t i = 0; i < m_columns.size(); ++i) {
            appendColumn(static_cast<int>(i), item);
        }
    } catch (const std::bad_alloc &) {
        // Columns of different lengths would put the next tables' cells into wrong rows.
        dropUnfinishedRows();
        throw;
    }
    m_rowCount += item.rowCount();
}

void DatasetStack::dropUnfinishedRows()
{
    for (CellColumn &column : m_columns) {
        if (m_rowCount == 0) {
            column = CellColumn();
        } else {
            column.cells.resize(qMin(m_rowCount, column.size()));
        }
    }
}

void DatasetStack::start(const Dataset &item)
{
    m_isEmpty = false;
    m_hasHeader = item.hasHeader();
    m_firstNames = item.columnNames();
    for (int i = 0; i < item.columnCount(); ++i) {
        m_header.append(item.header().value(i));
    }
    m_columns.resize(static_cast<size_t>(item.columnCount()));
    m_arena = new TextArena;
}

void DatasetStack::widen(const Dataset &item)
{
    while (static_cast<int>(m_columns.size()) < item.columnCount()) {
        const int width = static_cast<int>(m_columns.size());
        const int at = m_keepLastColumn && width > 0 ? width - 1 : width;
        CellColumn column;
        column.cells.resize(m_rowCount);
        m_columns.insert(m_columns.begin() + at, column);
        m_header.insert(at, item.header().value(at));
    }
}

/// The column of an item that goes below a column of the stack, -1 for none.
int DatasetStack::sourceColumn(int column, int itemColumns) const
{
    const int fixed = m_keepLastColumn ? 1 : 0;
    if (column < itemColumns - fixed) {
        return column;
    }
    return fixed == 1 && column == static_cast<int>(m_columns.size()) - 1 ? itemColumns - 1 : -1;
}

void DatasetStack::appendColumn(int column, const Dataset &item)
{
    CellColumn &target = m_columns[static_cast<size_t>(column)];
    const int source = sourceColumn(column, item.columnCount());
    const int rows = item.rowCount();
    if (rows == 0) {
        return;
    }
    if (source < 0) {
        Cell *out = target.cells.extend(rows);
        std::fill(out, out + rows, Cell());
        return;
    }
    const CellColumn &from = item.column(ColumnIndex(source));
    const Cell *in = from.cells.constData();
    if (rows <= smallTable) {
        const auto copied = [this](const Cell &cell) {
            return cell.isInline() ? cell : m_arena->storeLong(cell.bytes(), cell.size());
        };
        std::transform(in, in + rows, target.cells.extend(rows), copied);
        target.keep(m_arena);
    } else if (m_rowCount == 0) {
        target = from;
    } else {
        std::copy(in, in + rows, target.cells.extend(rows));
        // Nobody else has them, so there is no need to look for them among those that are there.
        target.arenas += from.arenas;
    }
}

Dataset DatasetStack::take()
{
    Dataset result;
    for (CellColumn &column : m_columns) {
        result.appendColumn(column);
    }
    if (m_hasHeader) {
        result.setHeader(m_header);
    }
    m_columns.clear();
    m_rowCount = 0;
    m_isEmpty = true;
    return result;
}
