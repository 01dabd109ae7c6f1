#pragma once

#include "graph/graphenums.h"

#include <QGraphicsPathItem>
#include <QPolygonF>

class Node;

/// An arrow from the node that gives a table to the node that takes it.
class Connection : public QGraphicsPathItem
{
public:
    enum { Type = ItemType::Connection };

    /// Enters itself with both nodes; whoever makes it adds it to their scene.
    Connection(Node *from, Node *to);
    ~Connection() override;
    Q_DISABLE_COPY(Connection)

    int type() const override { return Type; }
    Node *from() const { return m_from; }
    Node *to() const { return m_to; }
    /// The node at the start for Outgoing, at the end for Incoming.
    Node *otherEnd(Direction which) const { return which == Direction::Outgoing ? m_from : m_to; }
    /// Takes itself from both nodes and deletes itself.
    virtual void deleteConnection();
    /// `node` is going; the end that it was has none any more.
    void forget(const Node *node);

    /// How far down each node's edge the ends sit, from 0 at the top to 1 at the bottom.
    double fromOffset() const { return m_fromOffset; }
    double toOffset() const { return m_toOffset; }
    void setFromOffset(double offset) { m_fromOffset = offset; }
    void setToOffset(double offset) { m_toOffset = offset; }
    /// The line between the nodes' present places, clear of the boxes of others.
    QPainterPath route() const;
    /// Takes a line that route() gave, with its head.
    void setRoute(const QPainterPath &line);
    /// The middle of the line, in scene coordinates.
    QPointF middle() const;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;

private:
    void setHovered(bool on);
    QColor lineColor() const;

    bool m_hovered = false;
    Node *m_from;
    Node *m_to;
    QPolygonF m_arrowHead;
    double m_fromOffset = 0.5;
    double m_toOffset = 0.5;
};
