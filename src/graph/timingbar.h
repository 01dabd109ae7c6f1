#pragma once

#include "graph/graphenums.h"

class Node;

/// A bar over a node: its share of the longest processing time in the scene.
class TimingBar final : public QGraphicsItem
{
public:
    enum { Type = ItemType::TimingBar };

    /// Belongs to `node`; `share` runs from 0 to 1.
    TimingBar(Node *node, double share);

    int type() const override { return Type; }
    double share() const { return m_share; }
    void setShare(double share);
    /// From green for a small share to red for the largest.
    static QColor color(double share);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    double m_share;
};
