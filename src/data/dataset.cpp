#include "data/dataset.h"

#include <QVarLengthArray>
#include <algorithm>

bool Dataset::s_maximumSpeed = false;

Dataset::Dataset(const Dataset &other)
    : m_columns(other.m_columns), m_rowCount(other.m_rowCount), m_hasHeader(other.m_hasHeader), m_header(other.m_header)
    , m_columnIds(other.m_columnIds), m_columnIndexById(other.m_columnIndexById)
    , m_columnIndexDirty(other.m_columnIndexDirty), m_drilldown(other.m_drilldown), m_issues(other.m_issues)
{
}

Dataset &Dataset::operator=(const Dataset &other)
{
    if (this != &other) {
        *this = Dataset(other);
    }
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
    QVarLengthArray<char, 768> bytes(TextCoding::maxEncodedSize(text.size()));
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
    if (count < before) {
        m_valuePools.resize(qMin(m_valuePools.size(), static_cast<size_t>(count)));
        m_columnIds.erase(m_columnIds.begin() + count, m_columnIds.end());
        if (m_header.size() > count) {
            m_header.erase(m_header.begin() + count, m_header.end());
        }
    }
    padHeader();
    m_columns.resize(count);
    for (int i = before; i < count; ++i) {
        m_columns[i].cells.resize(m_rowCount);
        m_columnIds.append(ColumnId());
        if (m_hasHeader) {
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
        if (hasRows()) {
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
    QVector<int> kept;
    for (int row = 0; row < m_rowCount; ++row) {
        if (!isRowEmpty(RowIndex(row))) {
            kept.append(row);
        }
    }
    const int removed = m_rowCount - kept.size();
    if (removed > 0) {
        for (CellColumn &column : m_columns) {
            column = column.gathered(kept);
        }
        m_rowCount = kept.size();
    }
    return removed;
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

// Header

void Dataset::setHeader(const QStringList &names)
{
    m_header = names;
    m_hasHeader = !names.isEmpty();
}

void Dataset::setHeaderValue(ColumnIndex column, const QString &name)
{
    if (m_header.isEmpty()) {
        m_header = columnNames();
    }
    if (column.isValid() && column.toInt() < m_header.size()) {
        m_header[column.toInt()] = name;
    }
    m_hasHeader = true;
}

void Dataset::setHasHeader(bool on)
{
    if (on == m_hasHeader) {
        return;
    }
    m_hasHeader = on;
    if (!on) {
        if (!m_header.isEmpty()) {
            prependRow(m_header);
            m_header.clear();
        }
    } else if (hasRows()) {
        m_header = row(RowIndex(0));
        removeRow(RowIndex(0));
    }
}

QString Dataset::columnName(ColumnIndex column) const
{
    const int at = column.toInt();
    if (m_hasHeader && at >= 0 && at < m_header.size() && !m_header.at(at).isEmpty()) {
        return m_header.at(at);
    }
    return QString::number(at + 1);
}

QStringList Dataset::columnNames() const
{
    QStringList names;
    names.reserve(columnCount());
    for (int i = 0; i < columnCount(); ++i) {
        names.append(columnName(ColumnIndex(i)));
    }
    return names;
}

ColumnIndex Dataset::columnIndexOfName(const QString &name) const
{
    for (int i = 0; i < columnCount(); ++i) {
        if (columnName(ColumnIndex(i)) == name) {
            return ColumnIndex(i);
        }
    }
    return ColumnIndex();
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
    m_drilldown.insert({row, column}, sourceRow);
}

void Dataset::addDrilldownRows(RowIndex row, ColumnIndex column, const QList<RowIndex> &sourceRows)
{
    for (RowIndex sourceRow : sourceRows) {
        addDrilldownRow(row, column, sourceRow);
    }
}

QList<RowIndex> Dataset::drilldownRows(RowIndex row, ColumnIndex column) const
{
    QList<RowIndex> rows = m_drilldown.values({row, ColumnIndex()});
    if (column.isValid()) {
        rows += m_drilldown.values({row, column});
    }
    return rows;
}

void Dataset::addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId)
{
    m_issues.addCellIssue(row, column, level, ruleId);
}
