#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QMultiHash>
#include <QString>

/// What verification found in a table: a level for each cell, row and column, and the rules that failed there.
/// Levels are 0 information, 1 warning, 2 error; 3 stands for none.
class DatasetIssues
{
public:
    static constexpr int noLevel = 3;

    void addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId);
    void addColumnIssue(ColumnIndex column, int level, int ruleId);
    void addDatasetColumnIssue(ColumnIndex column, int level, int ruleId);
    void addDatasetRowIssue(RowIndex row, int level, int ruleId);

    bool isEmpty() const { return m_levels.isEmpty(); }
    /// An invalid index stands for the whole row or column.
    int level(RowIndex row, ColumnIndex column) const { return m_levels.value({row, column}, noLevel); }
    /// The tool tip of a cell, or of a row's or column's header.
    QString text(RowIndex row, ColumnIndex column) const;

private:
    using RuleCounts = QHash<int, int>;
    void raise(RowIndex row, ColumnIndex column, int level);

    QHash<CellKey, int> m_levels;
    QHash<RowIndex, RuleCounts> m_rowDatasetRuleFails;
    QHash<ColumnIndex, RuleCounts> m_columnDatasetRuleFails;
    QHash<RowIndex, RuleCounts> m_rowColumnRuleFails;
    QHash<ColumnIndex, RuleCounts> m_columnColumnRuleFails;
    QMultiHash<CellKey, int> m_cellRuleFails;
};
