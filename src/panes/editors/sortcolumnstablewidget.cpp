#include "panes/editors/sortcolumnstablewidget.h"

SortColumnsTableWidget::SortColumnsTableWidget(const QString &noneText, bool hidesOrder, QWidget *parent)
    : RecordTableWidget(parent)
{
    RecordField column;
    column.title = QStringLiteral("Column");
    column.kind = RecordField::Column;
    column.noneText = noneText;
    QVector<RecordField> fields{column};
    Record record{QVariant::fromValue(ColumnId())};
    if (!hidesOrder) {
        RecordField order;
        order.title = QStringLiteral("Order");
        order.kind = RecordField::Choice;
        order.choices = QStringList{QStringLiteral("Ascending"), QStringLiteral("Descending")};
        fields.append(order);
        record.append(0);
    }
    setFields(fields, record);
    setEmptyText(QStringLiteral("Add columns"));
}
