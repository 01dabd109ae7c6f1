#include "panes/explore/drilldownduplicatesdialog.h"

#include "data/values.h"
#include "panes/dialogs/prompts.h"
#include "panes/explore/explorehelp.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/table/tableclipboard.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(900, 450);
constexpr int mostValues = 10000;
constexpr int longestText = 1000;
constexpr int countWidth = 10;
enum Column { Count, DuplicateValue };

} // namespace

DrilldownDuplicatesDialog::DrilldownDuplicatesDialog(const Dataset &dataset, ColumnIndex column, Prompts &prompts)
    : QDialog(prompts.window())
    , m_dataset(dataset)
    , m_column(column)
    , m_values(dataset.column(column))
    , m_prompts(prompts)
    , m_tree(new QTreeWidget)
    , m_rows(new QLabel)
    , m_view(new DataTableView)
{
    setWindowTitle(QStringLiteral("Duplicates Drilldown"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    addValues();
    m_view->setPrompts(prompts);
    m_view->setNoDataText(QStringLiteral("Select a duplicate value"));
    m_view->setAccessibleName(QStringLiteral("Rows"));
    auto *sides = new QSplitter;
    sides->setChildrenCollapsible(false);
    sides->addWidget(m_tree);
    sides->addWidget(m_view);
    sides->setStretchFactor(1, 1);
    sides->setSizes({firstSize.width() / 3, firstSize.width() * 2 / 3});
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_copy = buttons->addButton(QStringLiteral("Cop&y"), QDialogButtonBox::ActionRole);
    m_copy->setToolTip(QStringLiteral("Copy the drilldown dataset to the clipboard."));
    ExploreHelp::add(*this, *buttons, QStringLiteral("Drilldown"));
    connect(m_copy, &QPushButton::clicked, this, &DrilldownDuplicatesDialog::onClickedClipboard);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &DrilldownDuplicatesDialog::onItemSelectionChanged);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_rows);
    layout->addWidget(sides, 1);
    layout->addWidget(buttons);
    keepGeometry(*this, &Settings::drilldownDuplicatesWindowGeometry, &Settings::setDrilldownDuplicatesWindowGeometry,
        firstSize);
    onItemSelectionChanged();
    m_tree->setFocus();
}

void DrilldownDuplicatesDialog::addValues()
{
    m_tree->setHeaderLabels({QStringLiteral("Count"), QStringLiteral("Duplicate Value")});
    m_tree->setAccessibleName(QStringLiteral("Duplicate values"));
    m_tree->setToolTip(QStringLiteral("Select a duplicate value to see its rows."));
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setColumnWidth(Count, fontMetrics().averageCharWidth() * countWidth);
    const CellColumn &column = m_dataset.column(m_column);
    QList<QTreeWidgetItem *> items;
    for (const ValueFrequencies::Line &line :
        m_values.table(column, ValueFrequencies::Order::MostFrequent, mostValues)) {
        const QString text = ellipsized(line.text, longestText);
        auto *item = new QTreeWidgetItem({line.countText, text.simplified()});
        item->setData(Count, Qt::UserRole, line.value);
        item->setTextAlignment(Count, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(DuplicateValue, Tips::plain(text));
        // The last line sums up those that there was no room for.
        item->setFlags(line.value < 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        items.append(item);
    }
    m_tree->addTopLevelItems(items);
}

void DrilldownDuplicatesDialog::onItemSelectionChanged()
{
    const QList<QTreeWidgetItem *> selected = m_tree->selectedItems();
    m_copy->setEnabled(!selected.isEmpty());
    if (selected.isEmpty()) {
        m_rows->setText(QStringLiteral("Select a duplicate value"));
        m_view->table().clear();
        return;
    }
    const QVector<int> rows = m_values.rowsOf(selected.first()->data(Count, Qt::UserRole).toInt());
    m_rows->setText(QStringLiteral("%1 rows").arg(formatInteger(rows.size(), true)));
    m_view->table().setDataset(m_dataset.withRows(rows));
}

void DrilldownDuplicatesDialog::onClickedClipboard()
{
    TableClipboard::copyConfirmed(m_prompts, m_view->table().dataset());
}
