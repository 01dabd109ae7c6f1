#include "panes/editors/columnstablewidget.h"

ColumnsTableWidget::ColumnsTableWidget(const RecordField &value, QWidget *parent)
    : RecordTableWidget(parent)
{
    RecordField name;
    name.title = QStringLiteral("Column");
    name.kind = RecordField::Label;
    RecordField id;
    id.kind = RecordField::Label;
    setFields({name, value, id}, {QString(), QVariant(), QVariant()});
    setColumnHidden(Id, true);
    setFixed(true);
    setMovable(false);
    setDragDropMode(QAbstractItemView::NoDragDrop);
    setEmptyText(QStringLiteral("No columns"));
}

void ColumnsTableWidget::setValues(const std::function<QVariant(const Record &)> &valueOf)
{
    QVector<Record> all = records();
    QList<int> rows = selectedRows();
    if (rows.size() < 2) {
        rows.clear();
        for (int row = 0; row < all.size(); ++row) {
            rows.append(row);
        }
    }
    for (const int row : qAsConst(rows)) {
        all[row][Value] = valueOf(all.at(row));
    }
    replaceRecords(all, rows.size() == all.size() ? QList<int>() : rows);
}

void ColumnsTableWidget::setValuesFrom(const QStringList &texts)
{
    QVector<Record> all = records();
    const int first = qMax(0, currentRow());
    QList<int> rows;
    for (int i = 0; i < texts.size() && first + i < all.size(); ++i) {
        all[first + i][Value] = texts.at(i);
        rows.append(first + i);
    }
    if (!rows.isEmpty()) {
        replaceRecords(all, rows);
    }
}
