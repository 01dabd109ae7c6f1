#pragma once

#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/verifyrules.h"

/// A rule that is switched on.
inline VerifyRule active(int ruleId, const QVariant &value = QVariant(), int severity = VerifyRule::Warning)
{
    return {ruleId, value, severity, true};
}

/// The option for rules of the table and, by number from 1, of columns.
inline QVariant ruleSet(const QList<VerifyRule> &datasetRules, const QMap<int, VerifyColumn> &columns)
{
    VerifyRuleSet set;
    set.datasetRules = datasetRules;
    for (auto column = columns.cbegin(); column != columns.cend(); ++column) {
        set.columns.insert(ColumnId(1, column.key()), column.value());
    }
    return QVariant::fromValue(set);
}

/// The result of rules on the only column of a table.
inline TransformRun verifyColumn(
    const VerifyColumn &rules, const QStringList &cells, const OptionSettings &options = {})
{
    return runTransform("Verify", OptionSettings{{"Rules", ruleSet({}, {{1, rules}})}} + options, {column(cells)});
}

/// The cells of the first column that are marked.
inline QStringList markedCells(const Dataset &dataset)
{
    QStringList cells;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        if (dataset.issueLevel(RowIndex(row), ColumnIndex(0)) != DatasetIssues::noLevel) {
            cells.append(dataset.value(RowIndex(row), ColumnIndex(0)));
        }
    }
    return cells;
}
