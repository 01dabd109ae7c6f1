#include "panes/editors/sortcolumnsparameterwidget.h"

#include "panes/editors/sortcolumnstablewidget.h"
#include "transforms/options/parameter.h"

SortColumnsParameterWidget::SortColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(
        parameter, node, *new SortColumnsTableWidget(parameter.noneText(), parameter.hideSortOrder()), parent)
{
    addEditButtons(QStringLiteral("Add a column. (%1)"), QStringLiteral("Remove selected column(s). (%1)"));
    addMoveButtons(QStringLiteral("Move selected column(s) up."), QStringLiteral("Move selected column(s) down."));
    SortColumnsParameterWidget::refresh();
}

void SortColumnsParameterWidget::refresh()
{
    takeColumns();
    QVector<RecordTableWidget::Record> records;
    for (const SortColumn &column : parameter()->toSortColumns()) {
        records.append({QVariant::fromValue(column.column), column.ascending ? 0 : 1});
    }
    table().setRecords(records);
    onRefreshed();
}

QVariant SortColumnsParameterWidget::value() const
{
    const bool hasOrder = table().fields().size() > 1;
    QList<SortColumn> columns;
    const QVector<RecordTableWidget::Record> records = table().records();
    for (int row = 0; row < records.size(); ++row) {
        const RecordTableWidget::Record &record = records.at(row);
        SortColumn column;
        column.column = record.at(0).value<ColumnId>();
        column.ascending = !hasOrder || record.at(1).toInt() == 0;
        columns.append(column);
    }
    const QList<SortColumn> stored = parameter()->toSortColumns();
    if (!hasOrder) {
        for (int i = 0; i < columns.size() && i < stored.size(); ++i) {
            columns[i].ascending = stored.at(i).ascending || columns.at(i).column != stored.at(i).column;
        }
    }
    return columns == stored ? parameter()->value() : QVariant::fromValue(columns);
}
