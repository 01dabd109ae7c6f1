#include "panes/items/itempane.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/items/itemwidget.h"
#include "panes/items/panelfactory.h"

#include <QCloseEvent>
#include <QLabel>
#include <QStackedLayout>

ItemPane::ItemPane(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QStackedLayout(this))
    , m_hint(new QLabel(QStringLiteral("Select 1 item in the Center pane to view")))
{
    setObjectName(QStringLiteral("m_itemPane"));
    setAccessibleName(QStringLiteral("Right pane"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setEnabled(false);
    m_layout->addWidget(m_hint);
}

ItemPane::~ItemPane() = default;

void ItemPane::showSelection(const GraphScene &scene)
{
    const QList<Node *> selected = scene.nodes(true);
    showNode(selected.size() == 1 ? selected.first() : nullptr);
}

void ItemPane::showNode(Node *node)
{
    if (m_itemWidget && node && m_itemWidget->node() == node) {
        return;
    }
    letGo();
    if (!node) {
        return;
    }
    m_itemWidget = PanelFactory::instance().make(*node);
    connect(m_itemWidget, &ItemWidget::nodeCommentChanged, this, &ItemPane::nodeCommentChanged);
    m_layout->addWidget(m_itemWidget);
    m_layout->setCurrentWidget(m_itemWidget);
    m_itemWidget->refresh();
}

void ItemPane::letGo()
{
    ItemWidget *old = m_itemWidget;
    m_itemWidget = nullptr;
    m_layout->setCurrentWidget(m_hint);
    if (old) {
        // What it takes into the item may change what is selected.
        old->apply();
        old->hide();
        old->deleteLater();
    }
}

void ItemPane::refresh(Node *node)
{
    if (m_itemWidget && m_itemWidget->node() == node) {
        m_itemWidget->refresh();
    }
}

void ItemPane::refresh()
{
    if (m_itemWidget) {
        m_itemWidget->refresh();
    }
}

void ItemPane::setInteraction(bool allow)
{
    setEnabled(allow);
    if (m_itemWidget) {
        allow ? m_itemWidget->refresh() : m_itemWidget->letGoOfData();
    }
}

void ItemPane::onTypedCharInNote(QChar c)
{
    if (m_itemWidget) {
        m_itemWidget->typeText(c);
    }
}

void ItemPane::closeEvent(QCloseEvent *event)
{
    emit closed();
    event->accept();
}
