#include "graph/nodeedges.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodeorder.h"

#include <QHash>
#include <algorithm>

namespace {

using Neighbours = QList<Node *> (NodeEdges::*)(bool) const;

/// Everything that can be reached from `start` over `neighbours`, without `start` itself.
QSet<Node *> closure(const Node *start, Neighbours neighbours)
{
    QSet<Node *> reached;
    QList<const Node *> pending{start};
    while (!pending.isEmpty()) {
        for (Node *node : (pending.takeLast()->*neighbours)(false)) {
            if (!reached.contains(node)) {
                reached.insert(node);
                pending.append(node);
            }
        }
    }
    return reached;
}

QSet<Node *> ofKind(const QSet<Node *> &nodes, ItemType::Type type)
{
    QSet<Node *> matching;
    for (Node *node : nodes) {
        if (node->type() == type) {
            matching.insert(node);
        }
    }
    return matching;
}

int depthOf(const Node *node, QHash<const Node *, int> &known)
{
    const auto found = known.constFind(node);
    if (found != known.constEnd()) {
        return *found;
    }
    int depth = 0;
    for (const Node *source : node->upstreamNodes(false)) {
        depth = std::max(depth, depthOf(source, known) + 1);
    }
    known.insert(node, depth);
    return depth;
}

} // namespace

// Connections

NodeEdges::~NodeEdges() = default;

void NodeEdges::addConnection(Connection *connection)
{
    m_connections.append(connection);
}

void NodeEdges::removeConnection(Connection *connection)
{
    m_connections.removeOne(connection);
}

QList<Connection *> NodeEdges::connections(Direction which) const
{
    if (which == Direction::Both) {
        return m_connections;
    }
    QList<Connection *> matching;
    for (Connection *connection : m_connections) {
        if (connection->otherEnd(which) == &m_self) {
            matching.append(connection);
        }
    }
    return matching;
}

void NodeEdges::deleteConnections(Direction which)
{
    for (Connection *connection : connections(which)) {
        connection->deleteConnection();
    }
}

// Direct neighbours

QList<Node *> NodeEdges::upstreamNodes(bool sorted) const
{
    QList<Node *> found;
    for (const Connection *connection : m_connections) {
        if (connection->to() == &m_self && connection->from()) {
            found.append(connection->from());
        }
    }
    if (sorted) {
        NodeOrder::sortTopToBottom(found);
    }
    return found;
}

QList<Node *> NodeEdges::downstreamNodes(bool sorted) const
{
    QList<Node *> found;
    for (const Connection *connection : m_connections) {
        if (connection->from() == &m_self && connection->to()) {
            found.append(connection->to());
        }
    }
    if (sorted) {
        NodeOrder::sortTopToBottom(found);
    }
    return found;
}

QList<Node *> NodeEdges::siblings(bool includeSelf) const
{
    QSet<Node *> found;
    for (const Node *source : upstreamNodes(false)) {
        for (Node *node : source->downstreamNodes(false)) {
            found.insert(node);
        }
    }
    found.remove(&m_self);
    QList<Node *> sorted = found.values();
    if (includeSelf) {
        sorted.append(&m_self);
    }
    NodeOrder::sortTopToBottom(sorted);
    return sorted;
}

Node *NodeEdges::previousSibling() const
{
    const QList<Node *> all = siblings(true);
    return all.value(all.indexOf(&m_self) - 1);
}

Node *NodeEdges::nextSibling() const
{
    const QList<Node *> all = siblings(true);
    return all.value(all.indexOf(&m_self) + 1);
}

bool NodeEdges::isDirectlyConnectedTo(const Node *node) const
{
    return std::any_of(m_connections.begin(), m_connections.end(),
        [=](const Connection *connection) { return connection->from() == node && connection->to() == &m_self; });
}

bool NodeEdges::upstreamAllProcessed() const
{
    const QList<Node *> sources = upstreamNodes(false);
    return std::all_of(
        sources.begin(), sources.end(), [](const Node *node) { return node->state() == NodeState::Processed; });
}

// Closures

QSet<Node *> NodeEdges::allUpstream(bool includeSelf) const
{
    QSet<Node *> found = closure(&m_self, &NodeEdges::upstreamNodes);
    if (includeSelf) {
        found.insert(&m_self);
    }
    return found;
}

QSet<Node *> NodeEdges::allDownstream(bool includeSelf) const
{
    QSet<Node *> found = closure(&m_self, &NodeEdges::downstreamNodes);
    if (includeSelf) {
        found.insert(&m_self);
    }
    return found;
}

QSet<Node *> NodeEdges::allUpstreamOfKind(ItemType::Type type, bool includeSelf) const
{
    return ofKind(allUpstream(includeSelf), type);
}

QSet<Node *> NodeEdges::allDownstreamOfKind(ItemType::Type type, bool includeSelf) const
{
    return ofKind(allDownstream(includeSelf), type);
}

QSet<Node *> NodeEdges::outputsFed(bool includeSelf) const
{
    return allDownstreamOfKind(ItemType::Transform, includeSelf);
}

bool NodeEdges::isUpstreamOf(const Node *node) const
{
    return allUpstream(false).contains(const_cast<Node *>(node));
}

bool NodeEdges::canAcceptConnection() const
{
    const GraphScene *owner = m_self.graphScene();
    return owner && connections(Direction::Outgoing).size() < maxOutputs()
           && !owner->connectableTargets(&m_self).isEmpty();
}

int NodeEdges::depth() const
{
    QHash<const Node *, int> known;
    return depthOf(&m_self, known);
}
