#include "panes/table/datatableview.h"

#include "panes/table/datatablemodel.h"
#include "settings/settings.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>

DataTableView::DataTableView(QWidget *parent)
    : QTableView(parent)
    , m_model(new DataTableModel(this))
{
    setModel(m_model);
    setAccessibleName(QStringLiteral("Data"));
    setFont(Settings::current().dataFont());
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * Settings::current().dataFontVerticalPadding());
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    setMinimumSize(verticalHeader()->sizeHint().width() + 1, horizontalHeader()->sizeHint().height() + 1);
}

void DataTableView::setWait(Wait wait)
{
    if (wait != m_wait) {
        m_wait = wait;
        viewport()->update();
    }
}

void DataTableView::setNoDataText(const QString &text)
{
    m_noDataText = text;
    viewport()->update();
}

QString DataTableView::emptyText() const
{
    switch (m_wait) {
    case Wait::AwaitingUpdate:
        return QStringLiteral("Awaiting update");
    case Wait::RunToUpdate:
        return QStringLiteral("Run to update");
    case Wait::Processing:
        return QStringLiteral("Processing...");
    case Wait::None:
        break;
    }
    if (m_model->isTooBig()) {
        return m_model->tooBigText();
    }
    if (m_model->columnCount() == 0) {
        return m_noDataText;
    }
    return m_model->rowCount() == 0 ? QStringLiteral("No rows") : QString();
}

void DataTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    const QString text = emptyText();
    if (!text.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, text);
    }
}

void DataTableView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTableView::selectionChanged(selected, deselected);
    emit selectedDataCellsChanged();
}
