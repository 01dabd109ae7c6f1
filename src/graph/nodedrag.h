#pragma once

#include <QPointF>
#include <QSet>
#include <memory>

class Node;
class QEvent;
class QGraphicsSceneMouseEvent;
class UndoStep;

/// What the mouse does with a node beyond what every item of a scene does: a drag takes notes along that touch the box,
/// is one step of undo, and is told of when it ends.
class NodeDrag
{
public:
    explicit NodeDrag(Node &node);
    ~NodeDrag();
    NodeDrag(const NodeDrag &) = delete;
    NodeDrag &operator=(const NodeDrag &) = delete;

    // Each event comes before and after the item has taken it
    void before(QEvent &event);
    void after(QEvent &event);
    /// The notes that move with the node.
    const QSet<Node *> &attachedNotes() const { return m_attachedNotes; }

private:
    void attachNotes(const QGraphicsSceneMouseEvent &event);
    void beginMove(const QGraphicsSceneMouseEvent &event);
    void moveNotes();
    void finish();

    Node &m_node;
    QSet<Node *> m_attachedNotes;
    std::unique_ptr<UndoStep> m_step;
    QPointF m_from; ///< before the event that is being taken
};
