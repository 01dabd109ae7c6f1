#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

/// What verification found in a table: a level for each cell, row and column, and the rules that failed there.
/// Levels are 0 information, 1 warning, 2 error; 3 stands for none. Adding is cheap, for millions of fails; the order
/// for looking up is made at the first question.
class DatasetIssues
{
public:
    static constexpr int noLevel = 3;

    /// A rule of the column fails in a cell: counts for the cell, its row and its column.
    void addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId);
    /// The same for many cells of the column, of each row at most one.
    void addCellIssues(const QVector<int> &rows, ColumnIndex column, int level, int ruleId);
    /// A rule of the column fails for the column as a whole, for `count` reasons.
    void addColumnIssue(ColumnIndex column, int level, int ruleId, int count = 1);
    /// A rule of the table fails because of a column.
    void addDatasetColumnIssue(ColumnIndex column, int level, int ruleId);
    /// A rule of the table fails because of a row.
    void addDatasetRowIssue(RowIndex row, int level, int ruleId);

    bool isEmpty() const { return m_fails.isEmpty() && m_columns.isEmpty(); }
    /// The highest level there; an invalid index stands for the whole row or column.
    int level(RowIndex row, ColumnIndex column) const;
    /// How often a rule of this column failed; 0 for a column without fails.
    int columnRuleFails(ColumnIndex column, int ruleId) const
    {
        return m_columns.value(column).columnRules.value(ruleId);
    }
    /// The tool tip of a cell, or of a row's or column's header.
    QString text(RowIndex row, ColumnIndex column) const;

private:
    using RuleCounts = QMap<int, int>;
    struct Fail
    {
        int row;
        int column; ///< -1 for a rule of the table
        qint16 level;
        qint16 ruleId;
    };
    /// The rules that failed in a row or a column, with how often.
    struct Summary
    {
        int level = -1;
        RuleCounts datasetRules;
        RuleCounts columnRules;
    };
    using FailRange = QPair<QVector<Fail>::const_iterator, QVector<Fail>::const_iterator>;

    /// The fails of a cell, or of a whole row for an invalid column.
    FailRange failsAt(RowIndex row, ColumnIndex column) const;
    Summary rowSummary(RowIndex row) const;
    Summary &raised(ColumnIndex column, int level);

    mutable QVector<Fail> m_fails;
    mutable bool m_sorted = true;
    QHash<ColumnIndex, Summary> m_columns;
};
