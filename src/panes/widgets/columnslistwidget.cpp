#include "panes/widgets/columnslistwidget.h"

#include <QKeyEvent>

namespace {

constexpr int rowsHinted = 5;
constexpr int leastWidth = 120;

} // namespace

ColumnsListWidget::ColumnsListWidget(QWidget *parent)
    : QListView(parent)
{
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

QSize ColumnsListWidget::sizeHint() const
{
    return {leastWidth, rowsHinted * (fontMetrics().lineSpacing() + 4) + 2 * frameWidth()};
}

void ColumnsListWidget::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (m_paintOverlay) {
        m_paintOverlay(*viewport());
    }
}

void ColumnsListWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space || !currentIndex().isValid()) {
        QListView::keyPressEvent(event);
        return;
    }
    const bool on = currentIndex().data(Qt::CheckStateRole).toInt() != Qt::Checked;
    QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        rows.append(currentIndex());
    }
    for (const QModelIndex &row : rows) {
        if ((row.data(Qt::CheckStateRole).toInt() == Qt::Checked) != on) {
            model()->setData(row, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        }
    }
}
