#include "graph/nodeoverlayitem.h"

#include "graph/colors.h"
#include "graph/node.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace {

constexpr double radius = 12.0;
constexpr double aboveNodes = 10.0;

} // namespace

NodeOverlayItem::NodeOverlayItem(Node *node, const QPointF &point)
    : QGraphicsObject(node)
    , m_node(node)
{
    setPos(point);
    setZValue(aboveNodes);
    setAcceptHoverEvents(true);
    setCursor(Qt::PointingHandCursor);
}

QRectF NodeOverlayItem::boundingRect() const
{
    return QRectF(-radius - 1, -radius - 1, 2 * radius + 2, 2 * radius + 2);
}

void NodeOverlayItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setRenderHint(QPainter::Antialiasing);
    const QColor line = m_node->colors().color(Colors::Arrow);
    painter->setPen(QPen(line, 2));
    painter->setBrush(m_hovered ? line : m_node->colors().color(Colors::Background));
    painter->drawEllipse(QPointF(), radius - 1, radius - 1);
    painter->setPen(QPen(m_hovered ? m_node->colors().color(Colors::Background) : line, 2));
    painter->drawPolyline(QVector<QPointF>{{-3, -5}, {4, 0}, {-3, 5}});
}

void NodeOverlayItem::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    // Keeps the press from the node below; the scene acts on it.
    event->accept();
}

void NodeOverlayItem::hoverEnterEvent(QGraphicsSceneHoverEvent *)
{
    m_hovered = true;
    update();
}

void NodeOverlayItem::hoverLeaveEvent(QGraphicsSceneHoverEvent *)
{
    m_hovered = false;
    update();
}

ConnectFromNodeOverlayItem::ConnectFromNodeOverlayItem(Node *node)
    : NodeOverlayItem(node, node->boxRect().topRight() + QPointF(0, Node::boxHeight / 2))
{
    setToolTip(tr("Click to start a connection from this item."));
}

ConnectToNodeOverlayItem::ConnectToNodeOverlayItem(Node *node)
    : NodeOverlayItem(node, node->boxRect().topLeft() + QPointF(0, Node::boxHeight / 2))
{
    setToolTip(tr("Click to connect to this item."));
}
