#include "panes/table/rowvaluesdialog.h"

#include "data/values.h"
#include "panes/dialogs/helphook.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(500, 500);

/// A row as a table of names and values.
Dataset turned(const Dataset &dataset, RowIndex row)
{
    Dataset result;
    result.setColumnCount(2);
    result.setRowCount(dataset.columnCount());
    result.setColumnValues(ColumnIndex(0), dataset.columnNames());
    result.setColumnValues(ColumnIndex(1), dataset.row(row));
    result.setHeader({QStringLiteral("Column"), QStringLiteral("Value")});
    return result;
}

} // namespace

RowValuesDialog::RowValuesDialog(const Dataset &dataset, RowIndex row, bool showWhitespace, QWidget *parent)
    : QDialog(parent)
    , m_dataset(dataset)
    , m_place(new QLabel)
    , m_view(new DataTableView)
    , m_previous(new QPushButton(QStringLiteral("&Previous")))
    , m_next(new QPushButton(QStringLiteral("&Next")))
{
    setWindowTitle(QStringLiteral("Row Values"));
    HelpHook::setHelpPage(*this, QStringLiteral("Data_table#row-values"));
    m_view->setAccessibleName(windowTitle());
    m_view->table().setShowWhitespace(showWhitespace);
    m_view->setToolTip(QString());
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_previous->setToolTip(QStringLiteral("Show the row before this one."));
    m_next->setToolTip(QStringLiteral("Show the row after this one."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_previous, &QPushButton::clicked, this, [this] { showRow(m_row - 1); });
    connect(m_next, &QPushButton::clicked, this, [this] { showRow(m_row + 1); });
    auto *top = new QHBoxLayout;
    top->addWidget(m_place, 1);
    top->addWidget(m_previous);
    top->addWidget(m_next);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_view);
    layout->addWidget(buttons);
    resize(firstSize);
    showRow(row.toInt());
    m_view->setColumnWidth(0, firstSize.width() / 3);
    m_view->setFocus();
}

void RowValuesDialog::showRow(int row)
{
    m_row = row;
    m_place->setText(
        QStringLiteral("Row %1 of %2").arg(formatInteger(row + 1, true), formatInteger(m_dataset.rowCount(), true)));
    m_view->table().setDataset(turned(m_dataset, RowIndex(row)));
    m_previous->setEnabled(row > 0);
    m_next->setEnabled(row + 1 < m_dataset.rowCount());
}
