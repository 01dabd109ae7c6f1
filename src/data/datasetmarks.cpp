#include "data/dataset.h"

void Dataset::addDrilldownRow(RowIndex row, ColumnIndex column, RowIndex sourceRow)
{
    m_drilldown.add(row, column, sourceRow);
}

void Dataset::addDrilldownRows(RowIndex row, ColumnIndex column, const QList<RowIndex> &sourceRows)
{
    for (RowIndex sourceRow : sourceRows) {
        addDrilldownRow(row, column, sourceRow);
    }
}

QList<RowIndex> Dataset::drilldownRows(RowIndex row, ColumnIndex column) const
{
    QList<RowIndex> rows = m_drilldown.sourceRows(row, ColumnIndex());
    if (column.isValid()) {
        rows += m_drilldown.sourceRows(row, column);
    }
    return rows;
}

void Dataset::addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId)
{
    m_issues.addCellIssue(row, column, level, ruleId);
}
