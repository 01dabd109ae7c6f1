#include "transforms/verify/datasetrules.h"

#include "data/dataset.h"
#include "transforms/frame/messages.h"

namespace {

void checkNames(const Dataset &dataset, bool caseSensitive, RuleOutcome &outcome)
{
    QHash<QString, QVector<int>> columns;
    QStringList names;
    for (const QString &columnName : dataset.columnNames()) {
        const QString name = caseSensitive ? columnName : columnName.toLower();
        columns[name].append(names.size());
        names.append(name);
    }
    QStringList details;
    for (int column = 0; column < names.size(); ++column) {
        const QVector<int> &same = columns[names.at(column)];
        if (same.size() < 2) {
            continue;
        }
        outcome.columns.append(column);
        if (same.first() == column) {
            details.append(QLatin1Char('\'') + names.at(column) + QLatin1String("'x") + Messages::count(same.size()));
        }
    }
    outcome.fails.count = outcome.columns.size();
    outcome.fails.detail = details.join(QLatin1Char(','));
}

void checkSize(int size, bool fails, const char *unit, RuleOutcome &outcome)
{
    if (fails) {
        outcome.fails.count = 1;
        outcome.fails.detail = Messages::count(size) + QLatin1String(unit);
    }
}

QVector<int> emptyRows(const Dataset &dataset)
{
    QVector<int> rows;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        if (dataset.isRowEmpty(RowIndex(row))) {
            rows.append(row);
        }
    }
    return rows;
}

void checkRows(const Dataset &dataset, RuleOutcome &outcome)
{
    outcome.fails.rows = emptyRows(dataset);
    outcome.fails.count = outcome.fails.rows.size();
    if (outcome.fails.count > 0) {
        outcome.fails.detail = QLatin1String("input row(s)=") + VerifyReport::rowList(outcome.fails.rows);
    }
}

} // namespace

RuleOutcome checkDatasetRule(const VerifyRule &rule, const Dataset &dataset, bool caseSensitive)
{
    RuleOutcome outcome;
    outcome.rule = rule;
    const int limit = rule.value.toInt();
    const int rows = dataset.rowCount();
    const int columns = dataset.columnCount();
    switch (rule.ruleId) {
    case 0:
        checkNames(dataset, caseSensitive, outcome);
        break;
    case 1:
        checkSize(columns, columns < limit, " column(s)", outcome);
        break;
    case 2:
        checkSize(columns, columns > limit, " column(s)", outcome);
        break;
    case 3:
        checkSize(rows, rows < limit, " row(s)", outcome);
        break;
    case 4:
        checkSize(rows, rows > limit, " row(s)", outcome);
        break;
    case 5:
        checkRows(dataset, outcome);
        break;
    default:
        break;
    }
    return outcome;
}
