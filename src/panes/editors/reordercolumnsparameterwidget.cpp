#include "panes/editors/reordercolumnsparameterwidget.h"

#include "panes/editors/reorderlistwidget.h"
#include "panes/widgets/recordtools.h"
#include "transforms/options/parameter.h"

#include <QToolButton>

ReorderColumnsParameterWidget::ReorderColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RecordParameterWidget(parameter, node, *new ReorderListWidget, parent)
{
    const auto add = [this](const char *icon, const char *name, const char *tip, void (RecordTableWidget::*slot)()) {
        QToolButton *button = tools().add(QLatin1String(icon), QLatin1String(name), QLatin1String(tip));
        connect(button, &QToolButton::clicked, &table(), slot);
    };
    add("go-top", "Move to top", "Move selected column(s) to the top. (Alt+Home)", &RecordTableWidget::moveToTop);
    add("go-up", "Move up", "Move selected column(s) up. (Alt+Up)", &RecordTableWidget::moveUp);
    add("go-down", "Move down", "Move selected column(s) down. (Alt+Down)", &RecordTableWidget::moveDown);
    add("go-bottom", "Move to bottom", "Move selected column(s) to the bottom. (Alt+End)",
        &RecordTableWidget::moveToBottom);
    ReorderColumnsParameterWidget::refresh();
}

QList<ColumnId> ReorderColumnsParameterWidget::presentOrder() const
{
    const QList<ColumnId> there = ColumnList::of(parameter()->node()).ids;
    const QSet<ColumnId> known(there.cbegin(), there.cend());
    QList<ColumnId> order;
    QSet<ColumnId> placed;
    for (const ColumnId id : parameter()->value().value<QList<ColumnId>>() + there) {
        if (known.contains(id) && !placed.contains(id)) {
            order.append(id);
            placed.insert(id);
        }
    }
    return order;
}

void ReorderColumnsParameterWidget::refresh()
{
    const ColumnList columns = ColumnList::of(parameter()->node());
    QHash<ColumnId, QString> names;
    for (int i = 0; i < columns.size(); ++i) {
        names.insert(columns.ids.at(i), columns.names.at(i));
    }
    QVector<RecordTableWidget::Record> records;
    for (const ColumnId id : presentOrder()) {
        records.append({names.value(id), QVariant::fromValue(id)});
    }
    table().setRecords(records);
    onRefreshed();
}

QVariant ReorderColumnsParameterWidget::value() const
{
    QList<ColumnId> order;
    for (const RecordTableWidget::Record &record : table().records()) {
        order.append(record.at(1).value<ColumnId>());
    }
    return order == presentOrder() ? parameter()->value() : QVariant::fromValue(order);
}
