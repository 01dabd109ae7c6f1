#pragma once

#include "data/cellcolumn.h"
#include "data/datasetissues.h"
#include "data/drilldown.h"
#include "data/indexes.h"
#include "data/valuepool.h"

#include <QHash>
#include <QList>
#include <QStringList>

class QMimeData;
class QTextStream;
struct ColumnProfile;

/// The one table type: named columns of text cells, with an id for each column and optional drill-down and
/// verification tables. A plain value; copies share their columns until one is written to.
///
/// Cells are held by column, each in eight bytes with its text as UTF-8 (see Cell), because a table of millions of
/// QStrings costs three times the memory and time. value() makes a QString; loops that only move, compare or write
/// cells use cell() and column() and make none. Indexes are unchecked unless said.
class Dataset
{
public:
    Dataset() = default;
    Dataset(const Dataset &other);
    /// The moved-from table is empty.
    Dataset(Dataset &&other) noexcept;
    Dataset &operator=(const Dataset &other);
    Dataset &operator=(Dataset &&other) noexcept;
    ~Dataset() = default;

    // The whole table
    /// No rows, columns, header, ids, drill-down or issues.
    void clear();
    void clearDrilldown() { m_drilldown.clear(); }
    void clearIssues() { m_issues = DatasetIssues(); }
    /// Reads delimited text pasted by a person: quotes as in CSV, rows before `skipRows` dropped.
    static Dataset fromDelimitedText(
        QTextStream &stream, QChar delimiter, int skipRows, bool trim, bool simplify, bool skipEmptyRows);

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
    /// Room for `rows` rows in every column, so that appending doesn't grow them again.
    void reserveRows(int rows);

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
    /// Appends a row of stored texts, padded with empty cells; wider rows widen the table first. `Stored` has bytes()
    /// and size() of the UTF-8 storage form.
    template<class Stored>
    void appendTexts(const Stored *texts, int count);
    void removeRow(RowIndex row);
    /// Returns the number removed.
    int removeEmptyRows();
    bool isRowEmpty(RowIndex row) const;
    QStringList columnValues(ColumnIndex column) const;
    QStringList rowValues(RowIndex row, const QList<ColumnIndex> &columns) const;

    // Whole columns and row selections, for loops over many rows
    const CellColumn &column(ColumnIndex column) const { return m_columns.at(column.toInt()); }
    /// `cells` has rowCount() cells.
    void setColumn(ColumnIndex column, const CellColumn &cells) { m_columns[column.toInt()] = cells; }
    /// Adds a column at the end; on a table without columns it sets the row count.
    void appendColumn(const CellColumn &cells, const QString &name = QString(), ColumnId id = ColumnId());
    /// appendColumn() of a column that is new here; an empty name leaves the automatic one.
    void addNamedColumn(const CellColumn &cells, const QString &name);
    /// Only `columns`, in that order, with their ids and header names; none give an empty table. Drill-down and issues
    /// stay behind.
    Dataset withColumns(const QVector<ColumnIndex> &columns) const;
    /// The same columns, ids and header with only `rows`, in that order; a row of -1 gives empty cells. Drill-down and
    /// issues stay behind.
    Dataset withRows(const QVector<int> &rows) const;
    /// The same without rows.
    Dataset withoutRows() const { return withRows({}); }
    /// Appends the rows of `other` by position; narrower rows are padded, a wider `other` is cut.
    void appendRowsOf(const Dataset &other);

    // Columns
    void appendEmptyColumn() { insertEmptyColumn(ColumnIndex(columnCount())); }
    void prependEmptyColumn() { insertEmptyColumn(ColumnIndex(0)); }
    void insertEmptyColumn(ColumnIndex column);
    /// Removing the only column clears the table.
    void removeColumn(ColumnIndex column);
    /// Returns the number removed.
    int removeEmptyColumns();
    bool columnContains(ColumnIndex column, const QString &text, Qt::CaseSensitivity cs) const;
    bool rowContains(RowIndex row, const QString &text, Qt::CaseSensitivity cs) const;
    bool contains(const QString &text, Qt::CaseSensitivity cs) const;
    bool headerContains(const QString &text, Qt::CaseSensitivity cs) const;
    bool columnEquals(ColumnIndex column, const Dataset *other, ColumnIndex otherColumn) const;
    bool rowEquals(RowIndex row, const Dataset *other, RowIndex otherRow) const;

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
    /// Names and numbers by which "$(name)" finds a column; names go before numbers, the first of equal names wins.
    QHash<QString, ColumnIndex> columnVariables() const;
    /// `text` with each "$(name)" replaced by that column's value in `row`, longest names first.
    QString substituteVariables(const QHash<QString, ColumnIndex> &variables, RowIndex row, const QString &text) const;
    QString variableForColumn(ColumnIndex column) const;
    QString variableForName(const QString &name) const;

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

    // Drill-down: for each cell of an aggregate, the input rows that it sums up
    void addDrilldownRow(RowIndex row, ColumnIndex column, RowIndex sourceRow);
    void addDrilldownRows(RowIndex row, ColumnIndex column, const QList<RowIndex> &sourceRows);
    QList<RowIndex> drilldownRows(RowIndex row, ColumnIndex column) const;
    bool hasDrilldown() const { return !m_drilldown.isEmpty(); }

    // Issues found by verification
    DatasetIssues &issues() { return m_issues; }
    const DatasetIssues &issues() const { return m_issues; }
    void addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId);
    void addColumnIssue(ColumnIndex column, int level, int ruleId) { m_issues.addColumnIssue(column, level, ruleId); }
    void addDatasetColumnIssue(ColumnIndex column, int level, int ruleId)
    {
        m_issues.addDatasetColumnIssue(column, level, ruleId);
    }
    void addDatasetRowIssue(RowIndex row, int level, int ruleId) { m_issues.addDatasetRowIssue(row, level, ruleId); }
    bool hasIssues() const { return !m_issues.isEmpty(); }
    int issueLevel(RowIndex row, ColumnIndex column) const { return m_issues.level(row, column); }
    QString issueText(RowIndex row, ColumnIndex column) const { return m_issues.text(row, column); }

    // Text forms
    /// 0 comma separated, quoted where required; 1 tab separated; 2 cells joined with nothing between.
    QString toText(int format) const;
    /// One line of delimited text without its end. Quoting 0 as needed, 1 always, 2 never.
    static QString csvLine(const QStringList &values, QChar delimiter, int quoting);
    QString toHtml() const;
    /// The caller owns the result.
    QMimeData *toMimeData(int format) const;

    // Enumerations and cursor
    QList<ColumnIndex> allColumns() const;
    QList<RowIndex> allRows() const;
    static QList<ColumnIndex> toIndexes(const QList<ColumnNumber> &numbers);
    /// Moves one cell on, to the next row after the last column; false at the end of the data.
    bool nextCell(RowIndex &row, ColumnIndex &column) const;
    bool previousCell(RowIndex &row, ColumnIndex &column) const;

    // Order of the rows
    /// Sorts the rows by `columns`, the 1-based numbers of the key columns in order of importance, negative for
    /// descending; rows that are equal by all keep their order. With `intelligent`, columns of dates under one of
    /// `dateFormats` and of numbers go by value where both cells have one, all else by text. With `addRank` the last
    /// column takes ranks of `rankType` (RowRanks::Type), for each text of column number `rankBy` on its own, 0 for
    /// none. `info`, which may be null, is told what each column was sorted as.
    void sortRows(const QList<int> &columns, const QStringList &dateFormats, bool addRank, int rankType, int rankBy,
        bool localeAware, bool caseSensitive, bool intelligent, QString *info);

    // Column tests over a sample from the top (see values.h for how a text is read)
    bool isColumnNumeric(ColumnIndex column, bool ignoreCurrency, int maxRows) const;
    bool isColumnBoolean(ColumnIndex column) const;
    bool isColumnTime(ColumnIndex column) const;
    bool isColumnJsonNumber(ColumnIndex column) const;
    /// True when one format fits all of the first `sampleSize` non-empty values; `matchedFormat`, when given, takes the
    /// first format that fits most of them.
    bool isColumnDate(ColumnIndex column, const QStringList &formats, QString *matchedFormat, int sampleSize) const;
    enum ColumnType { Text = 0, Numeric = 1, Boolean = 2, Date = 3, Time = 4 };
    ColumnType columnType(
        ColumnIndex column, const QStringList &formats, QString *matchedFormat, bool ignoreCurrency) const;

    // What a person is told about a column
    /// Reads all values of a column, or those of `rows`. Dates are looked for under the best of `dateFormats`; an empty
    /// list looks for none. The list of numbers is kept only when `withNumbers`.
    void columnProfile(
        ColumnProfile &profile, ColumnIndex column, const QStringList &dateFormats, bool withNumbers) const;
    void columnProfile(ColumnProfile &profile, ColumnIndex column, const QVector<int> &rows,
        const QStringList &dateFormats, bool withNumbers) const;
    /// For each column its first `rowLimit` values in brackets, each of at most `textLimit` characters.
    QStringList columnPreviews(int rowLimit, int textLimit) const;

    /// Drops what only serves while the table is being built.
    void releaseValuePools() { m_valuePools.clear(); }
    /// Whether equal texts of a column share their characters while a table is built; process-wide.
    static void setMaximumSpeed(bool on) { s_maximumSpeed = on; }
    static bool maximumSpeed() { return s_maximumSpeed; }

private:
    friend class DatasetAppender;
    const TextArenaPointer &arenaFor(CellColumn &column);
    Cell poolValue(int column, const char *bytes, int size);
    Cell poolValue(int column, const QString &text);
    void padHeader();
    void rebuildColumnLookup() const;

    QVector<CellColumn> m_columns;
    int m_rowCount = 0;
    bool m_hasHeader = false;
    QStringList m_header;
    QList<ColumnId> m_columnIds;
    mutable QHash<ColumnId, ColumnIndex> m_columnIndexById;
    mutable bool m_columnIndexDirty = true;
    std::vector<ValuePool> m_valuePools;
    Drilldown m_drilldown;
    DatasetIssues m_issues;
    TextArenaPointer
        m_arena; // texts written through this object; never shared with a copy, which would keep them alive

    static bool s_maximumSpeed;
};

template<class Stored>
void Dataset::appendTexts(const Stored *texts, int count)
{
    if (count > columnCount()) {
        setColumnCount(count);
    }
    CellColumn *columns = m_columns.data();
    for (int i = 0; i < count; ++i) {
        columns[i].cells.append(poolValue(i, texts[i].bytes(), texts[i].size()));
    }
    for (int i = count; i < m_columns.size(); ++i) {
        columns[i].cells.append(Cell());
    }
    ++m_rowCount;
}
