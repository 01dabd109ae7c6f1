#include "panes/editors/reorderlistwidget.h"

#include <QHeaderView>
#include <QKeyEvent>

ReorderListWidget::ReorderListWidget(QWidget *parent)
    : RecordTableWidget(parent)
{
    RecordField name;
    name.title = QStringLiteral("Column");
    name.kind = RecordField::Label;
    RecordField id;
    id.kind = RecordField::Label;
    setFields({name, id}, {QString(), QVariant()});
    setColumnHidden(1, true);
    horizontalHeader()->hide();
    setFixed(true);
    setEmptyText(QStringLiteral("No columns"));
}

void ReorderListWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_Home) {
        moveToTop();
    } else if (event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_End) {
        moveToBottom();
    } else {
        RecordTableWidget::keyPressEvent(event);
    }
}
