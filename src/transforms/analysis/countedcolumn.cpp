#include "transforms/analysis/countedcolumn.h"

#include "transforms/options/addedcolumn.h"

QString CountedColumn::newName(const OptionValues &values, const Dataset &input, ColumnIndex column)
{
    const QString name = column.isValid() ? input.columnName(column) : QString();
    return AddedColumn::name(values, QStringLiteral("Count %1").arg(name).trimmed());
}

Dataset CountedColumn::table(const OptionValues &values, const Dataset &input, ColumnIndex column,
    const CellColumn &labels, const CellColumn &counts)
{
    Dataset result;
    result.appendColumn(labels);
    result.appendColumn(counts);
    const QString name = column.isValid() ? input.columnName(column) : QStringLiteral("<None selected>");
    result.setHeader({name, newName(values, input, column)});
    return result;
}
