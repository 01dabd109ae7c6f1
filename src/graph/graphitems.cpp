#include "graph/graphitems.h"

#include "graph/connection.h"
#include "graph/connectionlayout.h"
#include "graph/ionode.h"
#include "graph/itemsearch.h"
#include "graph/nodeorder.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int longestAlias = 30;

bool isNode(const QGraphicsItem *item)
{
    return item->type() >= ItemType::Input && item->type() <= ItemType::Chart;
}

/// The items of one kind, in the order of their ids.
template<class Kind>
QList<Kind *> nodesOfType(const GraphItems &scene, ItemType::Type type, bool selectedOnly)
{
    QList<Kind *> found;
    for (Node *node : scene.nodes(selectedOnly)) {
        if (node->type() == type) {
            found.append(static_cast<Kind *>(node));
        }
    }
    return found;
}

} // namespace

GraphItems::GraphItems(std::shared_ptr<DocumentState> document, QObject *parent)
    : QGraphicsScene(parent)
    , m_document(std::move(document))
{
    // A tree of places is slow to change where long lines lie in most of its leaves.
    setItemIndexMethod(NoIndex);
}

void GraphItems::setSnapToGrid(bool on)
{
    m_document->snapToGrid = on;
    update();
}

// What there is

QList<Node *> GraphItems::nodes(bool selectedOnly) const
{
    QList<Node *> found;
    for (QGraphicsItem *item : items()) {
        if (isNode(item) && (!selectedOnly || item->isSelected())) {
            found.append(static_cast<Node *>(item));
        }
    }
    NodeOrder::sortById(found);
    return found;
}

QList<IONode *> GraphItems::inputNodes(bool selectedOnly) const
{
    return nodesOfType<IONode>(*this, ItemType::Input, selectedOnly);
}

QList<TransformNode *> GraphItems::transformNodes(bool selectedOnly) const
{
    return nodesOfType<TransformNode>(*this, ItemType::Transform, selectedOnly);
}

QList<IONode *> GraphItems::outputNodes(bool selectedOnly) const
{
    return nodesOfType<IONode>(*this, ItemType::Output, selectedOnly);
}

QList<Node *> GraphItems::chartNodes(bool selectedOnly) const
{
    return nodesOfType<Node>(*this, ItemType::Chart, selectedOnly);
}

QList<NoteNode *> GraphItems::noteNodes(bool selectedOnly) const
{
    return nodesOfType<NoteNode>(*this, ItemType::Note, selectedOnly);
}

QList<Connection *> GraphItems::connections(bool selectedOnly) const
{
    QList<Connection *> found;
    for (const Node *node : nodes()) {
        for (Connection *connection : node->connections(Direction::Outgoing)) {
            if (!selectedOnly || connection->isSelected()) {
                found.append(connection);
            }
        }
    }
    return found;
}

QList<Node *> GraphItems::nodesInState(NodeState state, bool selectedOnly) const
{
    QList<Node *> found;
    for (Node *node : nodes(selectedOnly)) {
        if (node->state() == state) {
            found.append(node);
        }
    }
    return found;
}

QList<Node *> GraphItems::rootNodes() const
{
    QList<Node *> found;
    for (Node *node : nodes()) {
        if (node->upstreamNodes(false).isEmpty()) {
            found.append(node);
        }
    }
    return found;
}

Node *GraphItems::nodeById(int id) const
{
    for (Node *node : nodes()) {
        if (node->id() == id) {
            return node;
        }
    }
    return nullptr;
}

Node *GraphItems::outputNodeById(int id) const
{
    Node *node = nodeById(id);
    return node && node->type() == ItemType::Output ? node : nullptr;
}

QList<Node *> GraphItems::nodesMatching(const ItemSearch &search) const
{
    QList<Node *> found;
    for (Node *node : nodes()) {
        if (search.matches(*node)) {
            found.append(node);
        }
    }
    NodeOrder::sortById(found);
    return found;
}

QList<Node *> GraphItems::nodeAtPositionOf(const QGraphicsItem *item) const
{
    QList<Node *> found;
    for (QGraphicsItem *other : collidingItems(item)) {
        if (isNode(other)) {
            found.append(static_cast<Node *>(other));
        }
    }
    NodeOrder::sortById(found);
    return found;
}

QString GraphItems::uniqueAlias(const QString &path) const
{
    const QFileInfo info(path);
    const QString name = info.isDir() ? QDir(path).dirName() : info.baseName();
    const QString base = name.left(longestAlias).trimmed();
    QSet<QString> taken;
    for (const Node *node : nodes()) {
        taken.insert(node->alias());
    }
    QString alias = base;
    for (int number = 1; taken.contains(alias); ++number) {
        alias = QStringLiteral("%1%2").arg(base, QString::number(number));
    }
    return alias;
}

// Places

QList<Node *> GraphItems::snapNodes(const QList<Node *> &moving)
{
    return NodePlacement::snap(moving, nodes());
}

QPointF GraphItems::newNodePosition() const
{
    return NodePlacement::newNodeCentre(nodes(true), nodes());
}

bool GraphItems::overlapsAny(const Node *node) const
{
    return NodePlacement::overlapsAny(node, nodes());
}

NoteArrow::Arrow GraphItems::autoNoteArrow(const Node *node) const
{
    return NodePlacement::autoNoteArrow(node, nodes());
}

void GraphItems::layOutConnections()
{
    ConnectionLayout::layOut(nodes());
}

void GraphItems::layOutConnections(const QList<Node *> &some)
{
    ConnectionLayout::layOut(some);
}

void GraphItems::updateSceneRect()
{
    QRectF area;
    for (const Node *node : nodes()) {
        area = area.united(node->mapRectToScene(node->boundingRect()));
    }
    setSceneRect(area);
}
