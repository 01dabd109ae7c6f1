#pragma once

#include "data/columntable.h"
#include "settings/choices.h"

class QMimeData;
class QTextStream;
struct ColumnProfile;
struct RowSorting;

/// The one table type: named columns of text cells, with an id for each column and optional drill-down and
/// verification tables. A plain value; copies share their columns until one is written to.
class Dataset : public ColumnTable
{
public:
    /// Reads delimited text pasted by a person: quotes as in CSV, rows before `skipRows` dropped.
    static Dataset fromDelimitedText(
        QTextStream &stream, QChar delimiter, int skipRows, bool trim, bool simplify, bool skipEmptyRows);

    // Selections
    /// Only `columns`, in that order, with their ids and header names; none give an empty table. Drill-down and issues
    /// stay behind.
    Dataset withColumns(const QVector<ColumnIndex> &columns) const;
    /// The same columns, ids and header with only `rows`, in that order; a row of -1 gives empty cells. Drill-down and
    /// issues stay behind.
    Dataset withRows(const QVector<int> &rows) const;
    /// The same without rows.
    Dataset withoutRows() const { return withRows({}); }

    // Contents
    bool columnContains(ColumnIndex column, const QString &text, Qt::CaseSensitivity cs) const;
    bool rowContains(RowIndex row, const QString &text, Qt::CaseSensitivity cs) const;
    bool contains(const QString &text, Qt::CaseSensitivity cs) const;
    bool headerContains(const QString &text, Qt::CaseSensitivity cs) const;
    bool columnEquals(ColumnIndex column, const Dataset *other, ColumnIndex otherColumn) const;
    bool rowEquals(RowIndex row, const Dataset *other, RowIndex otherRow) const;

    // Variables
    /// Names and numbers by which "$(name)" finds a column; names go before numbers, the first of equal names wins.
    QHash<QString, ColumnIndex> columnVariables() const;
    /// `text` with each "$(name)" replaced by that column's value in `row`, longest names first.
    QString substituteVariables(const QHash<QString, ColumnIndex> &variables, RowIndex row, const QString &text) const;
    QString variableForColumn(ColumnIndex column) const;
    QString variableForName(const QString &name) const;

    // Drill-down: for each cell of an aggregate, the input rows that it sums up
    void addDrilldownRow(RowIndex row, ColumnIndex column, RowIndex sourceRow);
    void addDrilldownRows(RowIndex row, ColumnIndex column, const QList<RowIndex> &sourceRows);
    QList<RowIndex> drilldownRows(RowIndex row, ColumnIndex column) const;
    bool hasDrilldown() const { return !m_drilldown.isEmpty(); }
    void clearDrilldown() { m_drilldown.clear(); }

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
    void clearIssues() { m_issues = DatasetIssues(); }

    // Text forms
    /// Lines that end in CR LF, but for the last.
    QString toText(TextForm form) const;
    /// One line of delimited text without its end. Quoting 0 as needed, 1 always, 2 never.
    static QString csvLine(const QStringList &values, QChar delimiter, int quoting);
    QString toHtml() const;
    /// The caller owns the result.
    QMimeData *toMimeData(TextForm form) const;

    // Enumerations and cursor
    QList<ColumnIndex> allColumns() const;
    QList<RowIndex> allRows() const;
    static QList<ColumnIndex> toIndexes(const QList<ColumnNumber> &numbers);
    /// Moves one cell on, to the next row after the last column; false at the end of the data.
    bool nextCell(RowIndex &row, ColumnIndex &column) const;
    bool previousCell(RowIndex &row, ColumnIndex &column) const;

    // Order of the rows
    /// Rows that are equal by all columns keep their order. `info`, if not null, is told what each column was sorted
    /// as.
    void sortRows(const RowSorting &sorting, QString *info = nullptr);

    // Column tests over a sample from the top (see values.h for how a text is read)
    bool isColumnNumeric(ColumnIndex column, bool ignoreCurrency, int maxRows) const;
    bool isColumnBoolean(ColumnIndex column) const;
    bool isColumnTime(ColumnIndex column) const;
    bool isColumnJsonNumber(ColumnIndex column) const;
    /// True when one format fits all of the first `sampleSize` non-empty values; `matchedFormat`, when given, takes the
    /// first format that fits most of them.
    bool isColumnDate(
        ColumnIndex column, const QStringList &formats, QString *matchedFormat, int sampleSize = dateSample) const;
    /// How many values usually tell whether a column holds dates.
    static constexpr int dateSample = 50;
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
};
