#include "panes/items/itemwidget.h"

#include "graph/node.h"
#include "graph/undostep.h"

ItemWidget::ItemWidget(Node &node, QWidget *parent)
    : QWidget(parent)
    , m_node(&node)
{
}

ItemWidget::~ItemWidget() = default;

Node *ItemWidget::node() const
{
    return m_node;
}

void ItemWidget::setNodeComment(const QString &text)
{
    if (m_node && text != m_node->comment()) {
        const UndoStep step(*m_node, QStringLiteral("comment changed"));
        m_node->setComment(text);
        emit nodeCommentChanged(m_node);
    }
}
