#pragma once

#include "data/cellcolumn.h"
#include "data/datasetissues.h"
#include "data/drilldown.h"
#include "data/indexes.h"
#include "data/valuepool.h"

#include <QHash>
#include <QList>
#include <QStringList>

/// What a table holds, and how that is changed: named columns of text cells, with an id for each column. Dataset is the
/// table that everybody uses; it adds what can be asked about one.
///
/// Cells are held by column, each in eight bytes with its text as UTF-8 (see Cell), because a table of millions of
/// QStrings costs three times the memory and time. value() makes a QString; loops that only move, compare or write
/// cells use cell() and column() and make none. Indexes are unchecked unless said.
class ColumnTable
{
public:
    ColumnTable() = default;
    ColumnTable(const ColumnTable &other);
    /// The moved-from table is empty.
    ColumnTable(ColumnTable &&other) noexcept;
    ColumnTable &operator=(const ColumnTable &other);
    ColumnTable &operator=(ColumnTable &&other) noexcept;

    /// No rows, columns, header, ids, drill-down or issues.
    void clear();

    // Size
    int rowCount() const { return m_rowCount; }
    int columnCount() const { return m_columns.size(); }
    bool isEmpty() const { return m_rowCount == 0; }
    bool hasColumns() const { return !m_columns.isEmpty(); }
    bool hasRows() const { return m_rowCount > 0; }
    RowIndex lastRow() const { return RowIndex(m_rowCount - 1); }
    ColumnIndex lastColumn() const { return ColumnIndex(columnCount() - 1); }
    /// New columns have empty cells, null ids and, with a header, their 0-based position as name; 0 clears.
    void setColumnCount(int count);
    /// Adds empty rows or drops rows at the end; nothing without columns.
    void setRowCount(int count);
    void setSize(int rows, int columns);

    // Cells and rows
    QString value(RowIndex row, ColumnIndex column) const { return cell(row, column).text(); }
    const Cell &cell(RowIndex row, ColumnIndex column) const { return m_columns.at(column.toInt()).at(row.toInt()); }
    void setValue(RowIndex row, ColumnIndex column, const QString &text);
    /// Stores a cell whose text lies in the cell or in an arena that this column keeps already.
    void setCell(RowIndex row, ColumnIndex column, Cell cell)
    {
        m_columns[column.toInt()].cells.data()[row.toInt()] = cell;
    }
    /// `values` has an entry for each row.
    void setColumnValues(ColumnIndex column, const QStringList &values);
    QStringList row(RowIndex row) const;
    void setRow(RowIndex row, const QStringList &values);
    /// With `adjust`, cut or padded to the width; without, a row of another width is dropped unless it is the first,
    /// which sets the width.
    void appendRow(const QStringList &values, bool adjust = true);
    /// As appendRow, but without `adjust` a row of another width is always dropped.
    void prependRow(const QStringList &values, bool adjust = true);
    void removeRow(RowIndex row);
    /// Returns the number removed.
    int removeEmptyRows();
    bool isRowEmpty(RowIndex row) const;
    QStringList columnValues(ColumnIndex column) const;
    QStringList rowValues(RowIndex row, const QList<ColumnIndex> &columns) const;

    // Whole columns, for loops over many rows
    const CellColumn &column(ColumnIndex column) const { return m_columns.at(column.toInt()); }
    /// `cells` has rowCount() cells.
    void setColumn(ColumnIndex column, const CellColumn &cells) { m_columns[column.toInt()] = cells; }
    /// Adds a column at the end; on a table without columns it sets the row count.
    void appendColumn(const CellColumn &cells, const QString &name = QString(), ColumnId id = ColumnId());
    /// appendColumn() of a column that is new here; an empty name leaves the automatic one.
    void addNamedColumn(const CellColumn &cells, const QString &name);

    // Columns
    void appendEmptyColumn() { insertEmptyColumn(ColumnIndex(columnCount())); }
    void prependEmptyColumn() { insertEmptyColumn(ColumnIndex(0)); }
    void insertEmptyColumn(ColumnIndex column);
    /// Removing the only column clears the table.
    void removeColumn(ColumnIndex column);
    /// Returns the number removed.
    int removeEmptyColumns();

    // Header and names
    bool hasHeader() const { return m_hasHeader; }
    const QStringList &header() const { return m_header; }
    /// An empty list takes the header away.
    void setHeader(const QStringList &names);
    void setHeaderValue(ColumnIndex column, const QString &name);
    /// Turns the first row into the header or the header into the first row.
    void setHasHeader(bool on);
    /// The header name, or the 1-based column number where there is none.
    QString columnName(ColumnIndex column) const;
    QStringList columnNames() const;
    ColumnIndex columnIndexOfName(const QString &name) const;

    // Identity
    ColumnId columnId(ColumnIndex column) const { return m_columnIds.value(column.toInt()); }
    const QList<ColumnId> &columnIds() const { return m_columnIds; }
    void setColumnId(ColumnIndex column, ColumnId id);
    /// `ids` has an entry for each column.
    void setColumnIds(const QList<ColumnId> &ids);
    ColumnIndex columnIndexOfId(ColumnId id) const;
    /// Gives columns with a null id the ids (nodeId, 1), (nodeId, 2) and so on.
    void assignColumnIds(int nodeId);
    /// Second and later occurrences of an id become null.
    void clearDuplicateColumnIds();

    /// Drops what only serves while the table is being built.
    void releaseValuePools() { m_valuePools.clear(); }
    /// Whether equal texts of a column share their characters while a table is built; process-wide.
    static void setMaximumSpeed(bool on) { s_maximumSpeed = on; }
    static bool maximumSpeed() { return s_maximumSpeed; }

protected:
    ~ColumnTable() = default;
    void padHeader();

    QVector<CellColumn> m_columns;
    int m_rowCount = 0;
    bool m_hasHeader = false;
    QStringList m_header;
    QList<ColumnId> m_columnIds;
    Drilldown m_drilldown;
    DatasetIssues m_issues;

private:
    friend class DatasetAppender;
    const TextArenaPointer &arenaFor(CellColumn &column);
    Cell poolValue(int column, const char *bytes, int size);
    Cell poolValue(int column, const QString &text);
    void rebuildColumnLookup() const;

    mutable QHash<ColumnId, ColumnIndex> m_columnIndexById;
    mutable bool m_columnIndexDirty = true;
    std::vector<ValuePool> m_valuePools;
    /// Texts written through this object; never shared with a copy, which would keep them alive.
    TextArenaPointer m_arena;
    static bool s_maximumSpeed;
};
