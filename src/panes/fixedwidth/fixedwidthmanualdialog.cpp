#include "panes/fixedwidth/fixedwidthmanualdialog.h"

#include "inputs/columnwidths.h"
#include "panes/dialogs/helphook.h"
#include "panes/fixedwidth/fixedwidthpreviewwidget.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <algorithm>

namespace {

constexpr QSize firstSize(760, 620);
constexpr int widest = 1000000;
enum Column { Width, StartsAt, EndsAt };

/// A width is edited in a spin box; there may be too many columns for one each.
class WidthDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *box = new QSpinBox(parent);
        box->setRange(1, widest);
        box->setFrame(false);
        box->setAccessibleName(QStringLiteral("Width"));
        return box;
    }
};

} // namespace

FixedWidthManualDialog::FixedWidthManualDialog(const QList<int> &widths, const QStringList &sample, QWidget *parent)
    : QDialog(parent)
    , m_table(new QTableWidget)
    , m_count(new QLabel)
    , m_preview(new FixedWidthPreviewWidget)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(QStringLiteral("Fixed Column Widths[*]"));
    HelpHook::setHelpPage(*this, QStringLiteral("Input_data#fixed-width-files"));
    auto *lower = new QWidget;
    auto *lowerLayout = new QVBoxLayout(lower);
    lowerLayout->setContentsMargins(0, 0, 0, 0);
    auto *caption = new QLabel(QStringLiteral("Preview"));
    caption->setBuddy(m_preview);
    lowerLayout->addWidget(caption);
    lowerLayout->addWidget(m_preview, 1);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(makeTable());
    splitter->addWidget(lower);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_buttons);
    m_preview->setLines(sample);
    connect(m_preview, &FixedWidthPreviewWidget::colClicked, this, &FixedWidthManualDialog::onColClicked);
    connect(m_table, &QTableWidget::cellChanged, this, &FixedWidthManualDialog::onWidthEdited);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &FixedWidthManualDialog::onSelectionChanged);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showWidths(widths, {});
    setWindowModified(false);
    m_table->setFocus();
    keepGeometry(*this, &Settings::fixedWidthWindowGeometry, &Settings::setFixedWidthWindowGeometry, firstSize);
}

QWidget *FixedWidthManualDialog::makeTable()
{
    m_table->setColumnCount(3);
    m_table->setHorizontalHeaderLabels(
        {QStringLiteral("Width"), QStringLiteral("Starts at"), QStringLiteral("Ends at")});
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->setItemDelegateForColumn(Width, new WidthDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(
        QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed);
    m_table->setAccessibleName(QStringLiteral("Columns"));
    auto *upper = new QWidget;
    auto *layout = new QHBoxLayout(upper);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *left = new QVBoxLayout;
    left->addWidget(m_count);
    left->addWidget(m_table, 1);
    layout->addLayout(left, 1);
    layout->addWidget(makeButtons());
    return upper;
}

QPushButton *FixedWidthManualDialog::addButton(const char *text, const char *tip, Edit edit, QWidget &box)
{
    auto *button = new QPushButton(QString::fromLatin1(text));
    button->setToolTip(QString::fromLatin1(tip));
    button->setAutoDefault(false);
    box.layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, edit] {
        const QList<int> selected = selectedColumns();
        const int before = m_widths.size();
        const QList<int> widths = edit(m_widths, selected);
        // What was selected, or what came of it.
        QList<int> now;
        for (int i = 0; i < qMax(1, selected.size() + widths.size() - before); ++i) {
            if (selected.first() + i < widths.size()) {
                now.append(selected.first() + i);
            }
        }
        showWidths(widths, now);
        m_table->setFocus();
    });
    return button;
}

QWidget *FixedWidthManualDialog::makeButtons()
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    m_merge = addButton(
        "Merge", "Merge the selected columns into 1 column with the same width.", &ColumnWidths::merged, *box);
    m_split = addButton(
        "Split", "Split the selected column into 2 columns with the same width.",
        [](const QList<int> &widths, const QList<int> &selected) {
            return ColumnWidths::split(widths, selected.first());
        },
        *box);
    m_insertLeft = addButton(
        "Insert Left", "Insert a new column of width 1 to the left of the selected column(s).",
        [](const QList<int> &widths, const QList<int> &selected) {
            return ColumnWidths::inserted(widths, selected.first());
        },
        *box);
    m_insertRight = addButton(
        "Insert Right", "Insert a new column of width 1 to the right of the selected column(s).",
        [](const QList<int> &widths, const QList<int> &selected) {
            return ColumnWidths::inserted(widths, selected.last() + 1);
        },
        *box);
    m_delete = addButton("Delete", "Delete the selected column(s).", &ColumnWidths::removed, *box);
    layout->addStretch(1);
    return box;
}

void FixedWidthManualDialog::showWidths(const QList<int> &widths, const QList<int> &columns)
{
    m_widths = widths;
    {
        const QSignalBlocker blocker(m_table);
        m_table->setRowCount(widths.size());
        QStringList names;
        for (int row = 0; row < widths.size(); ++row) {
            names.append(QStringLiteral("Column %1").arg(row + 1));
            for (int column = Width; column <= EndsAt; ++column) {
                if (!m_table->item(row, column)) {
                    auto *item = new QTableWidgetItem;
                    item->setFlags(column == Width ? item->flags() : item->flags() & ~Qt::ItemIsEditable);
                    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                    m_table->setItem(row, column, item);
                }
            }
            m_table->item(row, Width)->setData(Qt::DisplayRole, widths.at(row));
        }
        m_table->setVerticalHeaderLabels(names);
    }
    showPlaces();
    select(columns);
    onSelectionChanged();
}

void FixedWidthManualDialog::showPlaces()
{
    const QSignalBlocker blocker(m_table);
    const QList<int> starts = ColumnWidths::starts(m_widths);
    for (int row = 0; row < m_widths.size(); ++row) {
        m_table->item(row, StartsAt)->setText(QString::number(starts.at(row) + 1));
        m_table->item(row, EndsAt)->setText(QString::number(starts.at(row + 1)));
    }
    m_count->setText(QStringLiteral("Columns: %1").arg(m_widths.size()));
    m_preview->setWidths(m_widths);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!m_widths.isEmpty());
    m_table->viewport()->update();
    setWindowModified(true);
}

void FixedWidthManualDialog::onWidthEdited(int row, int column)
{
    if (column == Width) {
        m_widths[row] = qBound(1, m_table->item(row, Width)->data(Qt::DisplayRole).toInt(), widest);
        showPlaces();
    }
}

QList<int> FixedWidthManualDialog::selectedColumns() const
{
    QList<int> columns;
    for (const QModelIndex &index : m_table->selectionModel()->selectedRows()) {
        columns.append(index.row());
    }
    std::sort(columns.begin(), columns.end());
    return columns;
}

void FixedWidthManualDialog::select(const QList<int> &columns)
{
    QItemSelection selection;
    for (const int column : columns) {
        selection.select(m_table->model()->index(column, 0), m_table->model()->index(column, EndsAt));
    }
    if (!columns.isEmpty()) {
        m_table->setCurrentCell(columns.last(), Width, QItemSelectionModel::NoUpdate);
    }
    m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void FixedWidthManualDialog::onColClicked(int column, bool shift)
{
    const int from = shift && m_table->currentRow() >= 0 ? m_table->currentRow() : column;
    QList<int> columns;
    for (int c = qMin(from, column); c <= qMax(from, column); ++c) {
        columns.append(c);
    }
    select(columns);
    // The row that further columns are selected from.
    m_table->setCurrentCell(from, Width, QItemSelectionModel::NoUpdate);
    m_table->scrollTo(m_table->model()->index(column, Width));
}

void FixedWidthManualDialog::onSelectionChanged()
{
    const QList<int> columns = selectedColumns();
    m_merge->setEnabled(ColumnWidths::canMerge(columns));
    m_split->setEnabled(ColumnWidths::canSplit(m_widths, columns));
    m_insertLeft->setEnabled(!columns.isEmpty());
    m_insertRight->setEnabled(!columns.isEmpty());
    m_delete->setEnabled(!columns.isEmpty());
    m_preview->setSelected(columns);
    if (!columns.isEmpty()) {
        m_preview->showColumn(columns.first());
    }
}
