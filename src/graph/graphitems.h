#pragma once

#include "graph/boxindex.h"
#include "graph/documentstate.h"
#include "graph/graphenums.h"

#include <QGraphicsScene>
#include <QStringList>
#include <memory>

class Connection;
class IONode;
class Node;
class NoteNode;
class TransformNode;
struct ItemSearch;

/// The items of a scene and their places, and the document that they are of.
class GraphItems : public QGraphicsScene
{
public:
    // The document
    /// What other scenes of the same document share.
    const std::shared_ptr<DocumentState> &document() const { return m_document; }
    const QString &documentPath() const { return m_document->path; }
    void setDocumentPath(const QString &path) { m_document->path = path; }
    bool isAutoRunOn() const { return m_document->autoRunOn; }
    void setAutoRunOn(bool on) { m_document->autoRunOn = on; }
    bool snapToGrid() const { return m_document->snapToGrid; }
    /// Moves nothing.
    void setSnapToGrid(bool on);

    // What there is
    QList<Node *> nodes(bool selectedOnly = false) const;
    QList<IONode *> inputNodes(bool selectedOnly = false) const;
    QList<TransformNode *> transformNodes(bool selectedOnly = false) const;
    QList<IONode *> outputNodes(bool selectedOnly = false) const;
    QList<Node *> chartNodes(bool selectedOnly = false) const;
    QList<NoteNode *> noteNodes(bool selectedOnly = false) const;
    QList<Connection *> connections(bool selectedOnly = false) const;
    QList<Node *> nodesInState(NodeState state, bool selectedOnly = false) const;
    /// Nodes with no upstream node.
    QList<Node *> rootNodes() const;
    Node *nodeById(int id) const;
    Node *outputNodeById(int id) const;
    /// In the order in which they were made.
    QList<Node *> nodesMatching(const ItemSearch &search) const;
    /// Nodes that collide with an item.
    QList<Node *> nodeAtPositionOf(const QGraphicsItem *item) const;
    /// `path`'s name, shortened and numbered until no node has it.
    QString uniqueAlias(const QString &path) const;

    // Places
    /// Puts the nodes on free points of the grid; returns those that moved.
    QList<Node *> snapNodes(const QList<Node *> &nodes);
    /// Centre of the next new node.
    QPointF newNodePosition() const;
    bool overlapsAny(const Node *node) const;
    /// The arrow of a note that stands beside `node` where nothing else is: above, right, below, left in turn.
    NoteArrow::Arrow autoNoteArrow(const Node *node) const;
    void layOutConnections();
    void layOutConnections(const QList<Node *> &nodes);
    void updateSceneRect();
    /// Kept by the nodes themselves.
    BoxIndex &boxes() { return m_boxes; }

protected:
    explicit GraphItems(std::shared_ptr<DocumentState> document, QObject *parent);

private:
    const std::shared_ptr<DocumentState> m_document;
    BoxIndex m_boxes;
};
