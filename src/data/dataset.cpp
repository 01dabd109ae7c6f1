#include "data/dataset.h"

#include <QVarLengthArray>
#include <algorithm>
#include <numeric>
#include <utility>

bool Dataset::s_maximumSpeed = false;

Dataset::Dataset(const Dataset &other)
    : m_columns(other.m_columns)
    , m_rowCount(other.m_rowCount)
    , m_hasHeader(other.m_hasHeader)
    , m_header(other.m_header)
    , m_columnIds(other.m_columnIds)
    , m_columnIndexById(other.m_columnIndexById)
    , m_columnIndexDirty(other.m_columnIndexDirty)
    , m_drilldown(other.m_drilldown)
    , m_issues(other.m_issues)
{
}

Dataset &Dataset::operator=(const Dataset &other)
{
    if (this != &other) {
        *this = Dataset(other);
    }
    return *this;
}

Dataset::Dataset(Dataset &&other) noexcept
    : m_columns(std::move(other.m_columns))
    , m_rowCount(std::exchange(other.m_rowCount, 0))
    , m_hasHeader(std::exchange(other.m_hasHeader, false))
    , m_header(std::move(other.m_header))
    , m_columnIds(std::move(other.m_columnIds))
    , m_columnIndexById(std::move(other.m_columnIndexById))
    , m_columnIndexDirty(std::exchange(other.m_columnIndexDirty, true))
    , m_valuePools(std::move(other.m_valuePools))
    , m_drilldown(std::move(other.m_drilldown))
    , m_issues(std::move(other.m_issues))
    , m_arena(std::move(other.m_arena))
{
}

Dataset &Dataset::operator=(Dataset &&other) noexcept
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

void Dataset::clear()
{
    *this = Dataset();
}

const TextArenaPointer &Dataset::arenaFor(CellColumn &column)
{
    if (!m_arena) {
        m_arena = new TextArena;
    }
    column.keep(m_arena);
    return m_arena;
}

Cell Dataset::poolValue(int column, const char *bytes, int size)
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

Cell Dataset::poolValue(int column, const QString &text)
{
    QVarLengthArray<char, 768> bytes(TextCoding::encodedCapacity(text.constData(), text.size()));
    return poolValue(column, bytes.constData(), TextCoding::encode(bytes.data(), text.constData(), text.size()));
}

// Size

void Dataset::setColumnCount(int count)
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

void Dataset::padHeader()
{
    // A table that was told to have a header while it had no row to take it from has an empty list.
    while (m_hasHeader && m_header.size() < columnCount()) {
        m_header.append(QString());
    }
}

void Dataset::setRowCount(int count)
{
    if (!hasColumns()) {
        return;
    }
    m_rowCount = qMax(0, count);
    for (CellColumn &column : m_columns) {
        column.cells.resize(m_rowCount);
    }
}

void Dataset::setSize(int rows, int columns)
{
    if (columns <= 0) {
        clear();
        return;
    }
    setColumnCount(columns);
    setRowCount(rows);
}

void Dataset::reserveRows(int rows)
{
    for (CellColumn &column : m_columns) {
        column.cells.reserve(rows);
    }
}

// Cells and rows

void Dataset::setValue(RowIndex row, ColumnIndex column, const QString &text)
{
    const Cell cell = poolValue(column.toInt(), text);
    m_columns[column.toInt()].cells.data()[row.toInt()] = cell;
}

void Dataset::setColumnValues(ColumnIndex column, const QStringList &values)
{
    for (int row = 0; row < m_rowCount; ++row) {
        setValue(RowIndex(row), column, values.at(row));
    }
}

QStringList Dataset::row(RowIndex row) const
{
    QStringList values;
    values.reserve(columnCount());
    for (const CellColumn &column : m_columns) {
        values.append(column.at(row.toInt()).text());
    }
    return values;
}

void Dataset::setRow(RowIndex row, const QStringList &values)
{
    for (int i = 0; i < columnCount(); ++i) {
        setValue(row, ColumnIndex(i), values.value(i));
    }
}

void Dataset::appendRow(const QStringList &values, bool adjust)
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

void Dataset::prependRow(const QStringList &values, bool adjust)
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

void Dataset::removeRow(RowIndex row)
{
    if (!row.isValid() || row.toInt() >= m_rowCount) {
        return;
    }
    for (CellColumn &column : m_columns) {
        column.cells.remove(row.toInt());
    }
    --m_rowCount;
}

int Dataset::removeEmptyRows()
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

bool Dataset::isRowEmpty(RowIndex row) const
{
    return std::all_of(m_columns.cbegin(), m_columns.cend(),
        [row](const CellColumn &column) { return column.at(row.toInt()).isEmpty(); });
}

QStringList Dataset::columnValues(ColumnIndex column) const
{
    QStringList values;
    values.reserve(m_rowCount);
    const CellColumn &cells = m_columns.at(column.toInt());
    for (int row = 0; row < m_rowCount; ++row) {
        values.append(cells.at(row).text());
    }
    return values;
}

QStringList Dataset::rowValues(RowIndex row, const QList<ColumnIndex> &columns) const
{
    QStringList values;
    values.reserve(columns.size());
    for (ColumnIndex column : columns) {
        values.append(value(row, column));
    }
    return values;
}
