#include "panes/items/datafilterrow.h"

#include "data/values.h"
#include "panes/table/datafilter.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/delayedlineedit.h"
#include "settings/settings.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>

DataFilterRow::DataFilterRow(DataTableView &view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
    , m_text(new DelayedLineEdit)
    , m_by(new QComboBox)
    , m_found(new QLabel)
{
    const QString tip = QStringLiteral("Temporarily hide data rows/columns that do not contain this text.\n"
                                       "Not case sensitive. Does *not* change the dataset.");
    auto *label = new QLabel(QStringLiteral("Filter table by"));
    label->setBuddy(m_text);
    for (QWidget *widget :
        {static_cast<QWidget *>(label), static_cast<QWidget *>(m_text), static_cast<QWidget *>(m_by)}) {
        widget->setToolTip(tip);
    }
    m_text->setClearButtonEnabled(true);
    m_text->setAccessibleName(label->text());
    m_by->addItems({QStringLiteral("Column name"), QStringLiteral("Row data"), QStringLiteral("Column data")});
    m_by->setAccessibleName(QStringLiteral("Filter by"));
    m_by->setCurrentIndex(static_cast<int>(Settings::current().filterDataIndex()));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_by);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_found);
    connect(m_text, &DelayedLineEdit::delayedEditTextChanged, this, &DataFilterRow::onDataFilterTextChanged);
    connect(m_text, &QLineEdit::returnPressed, m_text, &DelayedLineEdit::flush);
    connect(m_by, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DataFilterRow::onDataFilterComboChanged);
}

void DataFilterRow::setFilter(const QString &value, bool rows)
{
    {
        const QSignalBlocker textBlocker(m_text);
        m_text->setText(value);
    }
    const auto by = static_cast<int>(rows ? TableFilter::RowData : TableFilter::ColumnData);
    if (by == m_by->currentIndex()) {
        apply();
    } else {
        m_by->setCurrentIndex(by);
    }
}

void DataFilterRow::onDataFilterTextChanged()
{
    apply();
}

void DataFilterRow::onDataFilterComboChanged(int index)
{
    Settings::current().setFilterDataIndex(static_cast<TableFilter>(index));
    apply();
}

void DataFilterRow::apply()
{
    lift();
    const QString text = m_text->text();
    DataTableModel &table = m_view.table();
    if (!isVisibleTo(parentWidget()) || text.isEmpty() || table.columnCount() == 0) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (static_cast<TableFilter>(m_by->currentIndex()) == TableFilter::RowData) {
        filterRows(text);
    } else {
        filterColumns(text, static_cast<TableFilter>(m_by->currentIndex()) == TableFilter::ColumnName);
    }
    QApplication::restoreOverrideCursor();
}

void DataFilterRow::lift()
{
    m_found->clear();
    if (m_view.table().isFiltered()) {
        m_view.table().showAllRows();
    }
    for (int column = 0; column < m_view.table().columnCount(); ++column) {
        if (m_view.isColumnHidden(column)) {
            m_view.setColumnHidden(column, false);
        }
    }
}

void DataFilterRow::filterRows(const QString &text)
{
    const QVector<int> rows = DataFilter::rowsContaining(m_view.table().dataset(), text);
    m_view.table().setShownRows(rows);
    m_found->setText(
        rows.size() == 1 ? QStringLiteral("1 row") : QStringLiteral("%1 rows").arg(formatInteger(rows.size(), true)));
}

void DataFilterRow::filterColumns(const QString &text, bool byName)
{
    const Dataset &dataset = m_view.table().dataset();
    const QVector<int> columns = byName ? DataFilter::columnsNamed(dataset, text)
                                        : DataFilter::columnsContaining(dataset, text);
    auto next = columns.begin();
    for (int column = 0; column < dataset.columnCount(); ++column) {
        const bool shown = next != columns.end() && *next == column;
        m_view.setColumnHidden(column, !shown);
        if (shown) {
            ++next;
        }
    }
    m_found->setText(columns.size() == 1 ? QStringLiteral("1 column")
                                         : QStringLiteral("%1 columns").arg(formatInteger(columns.size(), true)));
}

void DataFilterRow::focusText()
{
    m_text->setFocus();
    m_text->selectAll();
}

void DataFilterRow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        emit escaped();
        return;
    }
    QWidget::keyPressEvent(event);
}
