#include "data/columntable.h"

#include <QVarLengthArray>
#include <algorithm>
#include <numeric>
#include <utility>

bool ColumnTable::s_maximumSpeed = false;

ColumnTable::ColumnTable(const ColumnTable &other)
    : m_columns(other.m_columns)
    , m_rowCount(other.m_rowCount)
    , m_hasHeader(other.m_hasHeader)
    , m_header(other.m_header)
    , m_columnIds(other.m_columnIds)
    , m_drilldown(other.m_drilldown)
    , m_issues(other.m_issues)
    , m_columnIndexById(other.m_columnIndexById)
    , m_columnIndexDirty(other.m_columnIndexDirty)
{
}

ColumnTable &ColumnTable::operator=(const ColumnTable &other)
{
    if (this != &other) {
        *this = ColumnTable(other);
    }
    return *this;
}

ColumnTable::ColumnTable(ColumnTable &&other) noexcept
    : m_columns(std::move(other.m_columns))
    , m_rowCount(std::exchange(other.m_rowCount, 0))
    , m_hasHeader(std::exchange(other.m_hasHeader, false))
    , m_header(std::move(other.m_header))
    , m_columnIds(std::move(other.m_columnIds))
    , m_drilldown(std::move(other.m_drilldown))
    , m_issues(std::move(other.m_issues))
    , m_columnIndexById(std::move(other.m_columnIndexById))
    , m_columnIndexDirty(std::exchange(other.m_columnIndexDirty, true))
    , m_valuePools(std::move(other.m_valuePools))
    , m_arena(std::move(other.m_arena))
{
}

ColumnTable &ColumnTable::operator=(ColumnTable &&other) noexcept
{
    m_columns = std::move(other.m_columns);
    m_rowCount = std::exchange(other.m_rowCount, 0);
    m_hasHeader = std::exchange(other.m_hasHeader, false);
    m_header = std::move(other.m_header);
    m_columnIds = std::move(other.m_columnIds);
    m_columnIndexById = std::move(other.m_columnIndexById);
    m_columnIndexDirty = std::exchange(other.m_columnIndexDirty, true);
    m_valuePools = std::move(other.m_valuePools);
    m_drilldown = std::move(other.m_drilldown);
    m_issues = std::move(other.m_issues);
    m_arena = std::move(other.m_arena);
    return *this;
}

void ColumnTable::clear()
{
    *this = ColumnTable();
}

const TextArenaPointer &ColumnTable::arenaFor(CellColumn &column)
{
    if (!m_arena) {
        m_arena = new TextArena;
    }
    column.keep(m_arena);
    return m_arena;
}

Cell ColumnTable::poolValue(int column, const char *bytes, int size)
{
    if (size <= Cell::inlineCapacity) {
        return Cell::inlined(bytes, size);
    }
    const TextArenaPointer &arena = arenaFor(m_columns[column]);
    if (s_maximumSpeed) {
        return arena->store(bytes, size);
    }
    if (static_cast<size_t>(column) >= m_valuePools.size()) {
        m_valuePools.resize(static_cast<size_t>(column) + 1);
    }
    ValuePool &pool = m_valuePools[static_cast<size_t>(column)];
    Cell cell = pool.find(bytes, size);
    if (cell.isEmpty()) {
        cell = arena->store(bytes, size);
        pool.enter(cell);
    }
    return cell;
}

Cell ColumnTable::poolValue(int column, const QString &text)
{
    QVarLengthArray<char, 768> bytes(TextCoding::encodedCapacity(text.constData(), text.size()));
    return poolValue(column, bytes.constData(), TextCoding::encode(bytes.data(), text.constData(), text.size()));
}

// Size

void ColumnTable::setColumnCount(int count)
{
    if (count <= 0) {
        clear();
        return;
    }
    const int before = columnCount();
    padHeader();
    if (count < before) {
        m_valuePools.resize(qMin(m_valuePools.size(), static_cast<size_t>(count)));
        m_columnIds.erase(m_columnIds.begin() + count, m_columnIds.end());
        if (m_header.size() > count) {
            m_header.erase(m_header.begin() + count, m_header.end());
        }
    }
    m_columns.resize(count);
    for (int i = before; i < count; ++i) {
        m_columns[i].cells.resize(m_rowCount);
        m_columnIds.append(ColumnId());
        if (m_hasHeader && m_header.size() <= i) {
            m_header.append(QString::number(i));
        }
    }
    m_columnIndexDirty = true;
}

void ColumnTable::padHeader()
{
    // A table that was told to have a header while it had no row to take it from has an empty list.
    while (m_hasHeader && m_header.size() < columnCount()) {
        m_header.append(QString());
    }
}

void ColumnTable::setRowCount(int count)
{
    if (!hasColumns()) {
        return;
    }
    m_rowCount = qMax(0, count);
    for (CellColumn &column : m_columns) {
        column.cells.resize(m_rowCount);
    }
}

void ColumnTable::setSize(int rows, int columns)
{
    if (columns <= 0) {
        clear();
        return;
    }
    setColumnCount(columns);
    setRowCount(rows);
}

// Cells and rows

void ColumnTable::setValue(RowIndex row, ColumnIndex column, const QString &text)
{
    const Cell cell = poolValue(column.toInt(), text);
    m_columns[column.toInt()].cells.data()[row.toInt()] = cell;
}

void ColumnTable::setColumnValues(ColumnIndex column, const QStringList &values)
{
    for (int row = 0; row < m_rowCount; ++row) {
        setValue(RowIndex(row), column, values.at(row));
    }
}

QStringList ColumnTable::row(RowIndex row) const
{
    QStringList values;
    values.reserve(columnCount());
    for (const CellColumn &column : m_columns) {
        values.append(column.at(row.toInt()).text());
    }
    return values;
}

void ColumnTable::setRow(RowIndex row, const QStringList &values)
{
    for (int i = 0; i < columnCount(); ++i) {
        setValue(row, ColumnIndex(i), values.value(i));
    }
}

void ColumnTable::appendRow(const QStringList &values, bool adjust)
{
    if (!adjust && values.size() != columnCount()) {
        if (hasRows() || values.isEmpty()) {
            return;
        }
        setColumnCount(values.size());
    }
    if (!hasColumns()) {
        return;
    }
    for (int i = 0; i < columnCount(); ++i) {
        const Cell cell = i < values.size() ? poolValue(i, values.at(i)) : Cell();
        m_columns[i].cells.append(cell);
    }
    ++m_rowCount;
}

void ColumnTable::prependRow(const QStringList &values, bool adjust)
{
    if (!hasColumns() || (!adjust && values.size() != columnCount())) {
        return;
    }
    for (int i = 0; i < columnCount(); ++i) {
        const Cell cell = i < values.size() ? poolValue(i, values.at(i)) : Cell();
        m_columns[i].cells.insert(0, cell);
    }
    ++m_rowCount;
}

void ColumnTable::removeRow(RowIndex row)
{
    if (!row.isValid() || row.toInt() >= m_rowCount) {
        return;
    }
    for (CellColumn &column : m_columns) {
        column.cells.remove(row.toInt());
    }
    --m_rowCount;
}

int ColumnTable::removeEmptyRows()
{
    // By column, among the rows that were empty so far: one look at a cell of most rows, and in the order of memory.
    QVector<int> empty(m_rowCount);
    std::iota(empty.begin(), empty.end(), 0);
    for (const CellColumn &column : qAsConst(m_columns)) {
        const Cell *cells = column.cells.constData();
        const auto end = std::remove_if(empty.begin(), empty.end(), [cells](int row) { return !cells[row].isEmpty(); });
        empty.erase(end, empty.end());
    }
    if (empty.isEmpty()) {
        return 0;
    }
    QVector<int> kept;
    kept.reserve(m_rowCount - empty.size());
    for (int row = 0, next = 0; row < m_rowCount; ++row) {
        if (next < empty.size() && empty.at(next) == row) {
            ++next;
        } else {
            kept.append(row);
        }
    }
    for (CellColumn &column : m_columns) {
        column = column.gathered(kept);
    }
    m_rowCount = kept.size();
    return empty.size();
}

bool ColumnTable::isRowEmpty(RowIndex row) const
{
    return std::all_of(m_columns.cbegin(), m_columns.cend(),
        [row](const CellColumn &column) { return column.at(row.toInt()).isEmpty(); });
}

QStringList ColumnTable::columnValues(ColumnIndex column) const
{
    QStringList values;
    values.reserve(m_rowCount);
    const CellColumn &cells = m_columns.at(column.toInt());
    for (int row = 0; row < m_rowCount; ++row) {
        values.append(cells.at(row).text());
    }
    return values;
}

QStringList ColumnTable::rowValues(RowIndex row, const QList<ColumnIndex> &columns) const
{
    QStringList values;
    values.reserve(columns.size());
    for (ColumnIndex column : columns) {
        values.append(value(row, column));
    }
    return values;
}
