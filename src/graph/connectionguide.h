#pragma once

#include "graph/graphenums.h"

#include <QPolygonF>

/// The arrow that follows the mouse while a connection is being drawn.
class ConnectionGuide final : public QGraphicsItem
{
public:
    enum { Type = ItemType::ConnectionGuide };

    /// Starts at `start`, in scene coordinates.
    explicit ConnectionGuide(const QPointF &start);

    int type() const override { return Type; }
    QPointF end() const { return m_end; }
    void setEnd(const QPointF &end);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QPointF m_start;
    QPointF m_end;
};
