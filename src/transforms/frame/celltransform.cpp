#include "transforms/frame/celltransform.h"

#include "transforms/frame/cellworker.h"
#include "transforms/frame/messages.h"
#include "transforms/options/optionvalues.h"

CellRule CellRule::byRow(Row rowRule)
{
    CellRule rule;
    rule.row = std::move(rowRule);
    return rule;
}

QString CellTransform::outcome(qint64 changed, qint64 unchanged) const
{
    return Messages::changed(changed, unchanged);
}

Dataset CellTransform::compute(const OptionValues &values, const Inputs &inputs)
{
    Dataset result = *inputs.first();
    const QVector<ColumnIndex> columns = values.columns(columnsKey());
    const CellRule rule = columns.isEmpty() ? CellRule() : this->rule(values, result);
    if (rule.isNothing()) {
        setResultText(Messages::noChanges());
        return result;
    }
    std::vector<CellWorker> workers;
    workers.reserve(static_cast<size_t>(columns.size()));
    for (ColumnIndex column : columns) {
        workers.emplace_back(rule, result.column(column));
    }
    processColumns(workers, columns, result);
    qint64 changed = 0;
    for (const CellWorker &worker : workers) {
        changed += worker.changedCount();
    }
    if (rule.warnings) {
        warningList() += rule.warnings();
    }
    setResultText(outcome(changed, qint64(result.rowCount()) * columns.size() - changed));
    return result;
}
