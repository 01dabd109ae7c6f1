#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodeorder.h"

#include <QHash>
#include <algorithm>

namespace {

using Neighbours = QList<Node *> (Node::*)(bool) const;

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

QSet<Node *> ofKind(const QSet<Node *> &nodes, int type)
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

void Node::addConnection(Connection *connection)
{
    m_connections.append(connection);
}

void Node::removeConnection(Connection *connection)
{
    m_connections.removeOne(connection);
}

QList<Connection *> Node::connections(Direction which) const
{
    if (which == Direction::Both) {
        return m_connections;
    }
    QList<Connection *> matching;
    for (Connection *connection : m_connections) {
        if (connection->otherEnd(which) == this) {
            matching.append(connection);
        }
    }
    return matching;
}

void Node::deleteConnections(Direction which)
{
    for (Connection *connection : connections(which)) {
        connection->deleteConnection();
    }
}

void Node::deleteNode()
{
    for (Node *node : downstreamNodes(true)) {
        node->setState(NodeState::NeedsProcessing, true);
    }
    deleteConnections(Direction::Both);
    delete this;
}

// Direct neighbours

QList<Node *> Node::upstreamNodes(bool sorted) const
{
    QList<Node *> found;
    for (const Connection *connection : m_connections) {
        if (connection->to() == this && connection->from()) {
            found.append(connection->from());
        }
    }
    if (sorted) {
        NodeOrder::sortTopToBottom(found);
    }
    return found;
}

QList<Node *> Node::downstreamNodes(bool sorted) const
{
    QList<Node *> found;
    for (const Connection *connection : m_connections) {
        if (connection->from() == this && connection->to()) {
            found.append(connection->to());
        }
    }
    if (sorted) {
        NodeOrder::sortTopToBottom(found);
    }
    return found;
}

QList<Node *> Node::siblings(bool includeSelf) const
{
    QSet<Node *> found;
    for (const Node *source : upstreamNodes(false)) {
        for (Node *node : source->downstreamNodes(false)) {
            found.insert(node);
        }
    }
    auto *self = const_cast<Node *>(this);
    found.remove(self);
    QList<Node *> sorted = found.values();
    if (includeSelf) {
        sorted.append(self);
    }
    NodeOrder::sortTopToBottom(sorted);
    return sorted;
}

Node *Node::previousSibling() const
{
    const QList<Node *> all = siblings(true);
    return all.value(all.indexOf(const_cast<Node *>(this)) - 1);
}

Node *Node::nextSibling() const
{
    const QList<Node *> all = siblings(true);
    return all.value(all.indexOf(const_cast<Node *>(this)) + 1);
}

bool Node::isDirectlyConnectedTo(const Node *node) const
{
    return std::any_of(m_connections.begin(), m_connections.end(),
        [=](const Connection *connection) { return connection->from() == node && connection->to() == this; });
}

bool Node::upstreamAllProcessed() const
{
    const QList<Node *> sources = upstreamNodes(false);
    return std::all_of(
        sources.begin(), sources.end(), [](const Node *node) { return node->state() == NodeState::Processed; });
}

// Closures

QSet<Node *> Node::allUpstream(bool includeSelf) const
{
    QSet<Node *> found = closure(this, &Node::upstreamNodes);
    if (includeSelf) {
        found.insert(const_cast<Node *>(this));
    }
    return found;
}

QSet<Node *> Node::allDownstream(bool includeSelf) const
{
    QSet<Node *> found = closure(this, &Node::downstreamNodes);
    if (includeSelf) {
        found.insert(const_cast<Node *>(this));
    }
    return found;
}

QSet<Node *> Node::allUpstreamOfKind(int type, bool includeSelf) const
{
    return ofKind(allUpstream(includeSelf), type);
}

QSet<Node *> Node::allDownstreamOfKind(int type, bool includeSelf) const
{
    return ofKind(allDownstream(includeSelf), type);
}

QSet<Node *> Node::outputsFed(bool includeSelf) const
{
    return allDownstreamOfKind(ItemType::Transform, includeSelf);
}

bool Node::isUpstreamOf(const Node *node) const
{
    return allUpstream(false).contains(const_cast<Node *>(node));
}

bool Node::canAcceptConnection() const
{
    const GraphScene *owner = graphScene();
    return owner && connections(Direction::Outgoing).size() < maxOutputs()
           && !owner->connectableTargets(this).isEmpty();
}

int Node::depth() const
{
    QHash<const Node *, int> known;
    return depthOf(this, known);
}
