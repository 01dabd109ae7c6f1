#pragma once

#include "graph/graphenums.h"

#include <QGraphicsObject>

class Node;

/// A handle on the edge of a node that starts or ends a connection.
class NodeOverlayItem : public QGraphicsObject
{
    Q_OBJECT

public:
    Node *node() const { return m_node; }
    /// What a press on it does.
    void click() { emit clicked(m_node); }

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

signals:
    void clicked(Node *node);

protected:
    /// Belongs to `node`, centred at `point` of its coordinates.
    NodeOverlayItem(Node *node, const QPointF &point);
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;

private:
    Node *m_node;
    bool m_hovered = false;
};

/// Starts a connection, at the right edge.
class ConnectFromNodeOverlayItem final : public NodeOverlayItem
{
    Q_OBJECT

public:
    enum { Type = ItemType::ConnectFromOverlay };
    explicit ConnectFromNodeOverlayItem(Node *node);
    int type() const override { return Type; }
};

/// Ends a connection, at the left edge.
class ConnectToNodeOverlayItem final : public NodeOverlayItem
{
    Q_OBJECT

public:
    enum { Type = ItemType::ConnectToOverlay };
    explicit ConnectToNodeOverlayItem(Node *node);
    int type() const override { return Type; }
};
