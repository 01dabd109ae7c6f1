#include "panes/explore/comparedside.h"

#include "graph/node.h"
#include "panes/explore/exploreditems.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/elidedlabel.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

ComparedSide::ComparedSide(const QString &name, int itemId, QWidget *parent)
    : QWidget(parent)
    , m_itemId(itemId)
    , m_label(new ElidedLabel)
    , m_keyLabel(new QLabel(
          name == QLatin1String("Left") ? QStringLiteral("&Left key column:") : QStringLiteral("Ri&ght key column:")))
    , m_key(new SingleColumnFilteredWidget)
    , m_view(new DataTableView)
{
    m_label->setAccessibleName(QStringLiteral("%1 item").arg(name));
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_key->setAccessibleName(QStringLiteral("%1 key column:").arg(name));
    m_key->setToolTip(QStringLiteral("Rows of both datasets with the same value in their key columns are compared."));
    m_keyLabel->setBuddy(m_key);
    m_view->setAccessibleName(QStringLiteral("%1 data").arg(name));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    auto *row = new QHBoxLayout;
    row->addWidget(m_keyLabel);
    row->addWidget(m_key, 1);
    layout->addLayout(row);
    layout->addWidget(m_view, 1);
}

void ComparedSide::setItem(int itemId, ColumnId key)
{
    m_itemId = itemId;
    m_key->setColumn(key);
}

void ComparedSide::setKeyShown(bool on)
{
    m_keyLabel->setVisible(on);
    m_key->setVisible(on);
}

bool ComparedSide::read(const ExploredItems &items)
{
    const ColumnId key = m_key->column();
    const Node *node = items.node(m_itemId);
    m_dataset = node ? node->datasetConst() : Dataset();
    if (node) {
        m_label->setWholeText(ExploredItems::label(*node));
        m_key->setColumns(ColumnList::of(node));
        m_key->setColumn(key);
    }
    const bool isTooBig = m_dataset.columnCount() > DataTableModel::mostColumns
                          || m_dataset.rowCount() > DataTableModel::mostRows;
    m_noTableText = !node                    ? QStringLiteral("This item has been deleted.")
                    : m_dataset.hasColumns() ? QString()
                    : node->hasRun()         ? QStringLiteral("This item has no data.")
                                             : QStringLiteral("This item has no data yet.\nRun it to compare it.");
    if (isTooBig) {
        m_noTableText = QStringLiteral("This item has too much data to compare.");
    }
    return m_noTableText.isEmpty();
}

ColumnIndex ComparedSide::keyColumn() const
{
    return m_key->column().isNull() ? ColumnIndex() : m_dataset.columnIndexOfId(m_key->column());
}

void ComparedSide::showText(const QString &text)
{
    m_view->setWait(DataTableView::Wait::None);
    m_view->setNoDataText(text);
    m_view->table().clear();
}

void ComparedSide::letGo()
{
    m_dataset.clear();
    m_view->table().clear();
    m_view->setWait(DataTableView::Wait::Processing);
}
