#pragma once

#include "graph/graphenums.h"

#include <QList>
#include <QSet>

class Connection;
class Node;

/// The connections of a node, and its neighbours over them.
class NodeEdges
{
public:
    /// `self` is the node whose edges these are.
    explicit NodeEdges(Node &self)
        : m_self(self)
    {
    }
    virtual ~NodeEdges();
    NodeEdges(const NodeEdges &) = delete;
    NodeEdges &operator=(const NodeEdges &) = delete;

    virtual int maxInputs() const = 0;
    virtual int maxOutputs() const = 0;
    void addConnection(Connection *connection);
    virtual void removeConnection(Connection *connection);
    QList<Connection *> connections(Direction which) const;
    void deleteConnections(Direction which);

    /// Direct neighbours; sorted from top to bottom, equal heights from left to right.
    QList<Node *> upstreamNodes(bool sorted) const;
    QList<Node *> downstreamNodes(bool sorted) const;
    QList<Node *> siblings(bool includeSelf) const;
    Node *previousSibling() const;
    Node *nextSibling() const;
    QSet<Node *> allUpstream(bool includeSelf) const;
    QSet<Node *> allDownstream(bool includeSelf) const;
    QSet<Node *> upstreamTree() const { return allUpstream(true); }
    QSet<Node *> allUpstreamOfKind(ItemType::Type type, bool includeSelf) const;
    QSet<Node *> allDownstreamOfKind(ItemType::Type type, bool includeSelf) const;
    /// The transforms on the paths from here.
    QSet<Node *> outputsFed(bool includeSelf) const;
    /// True when `node` lies upstream of this node.
    bool isUpstreamOf(const Node *node) const;
    /// True when a connection runs from `node` to this one.
    bool isDirectlyConnectedTo(const Node *node) const;
    /// True when this node may give another connection and some node could take it.
    bool canAcceptConnection() const;
    /// Length of the longest path upstream.
    int depth() const;
    bool upstreamAllProcessed() const;

private:
    friend class Connection;

    Node &m_self;
    QList<Connection *> m_connections;
};
