#include "graph/colors.h"
#include "graph/connection.h"
#include "graph/connectionlayout.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodelook.h"
#include "graph/nodepainter.h"
#include "graph/nodeplacement.h"
#include "graph/undostep.h"
#include "settings/settings.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

// How a node looks and feels on the canvas.

namespace {

constexpr double margin = NodeLayout::selectedBorderWidth;

bool showsComment(const Node &node)
{
    return !node.comment().isEmpty() && Settings::current().showComments();
}

} // namespace

// Geometry

QPointF Node::centre() const
{
    return mapToScene(boxRect().center());
}

void Node::setCentre(const QPointF &point)
{
    setPos(point - boxRect().center());
}

QRectF Node::boundingRect() const
{
    const QRectF box = boxRect().adjusted(-margin, -margin, margin, margin);
    return comment().isEmpty() ? box : box.united(NodeLayout::comment());
}

QPainterPath Node::shape() const
{
    QPainterPath path;
    path.addRect(boxRect());
    return path;
}

QPointF Node::connectionPoint(Direction side, double offset) const
{
    return mapToScene(QPointF(side == Direction::Outgoing ? boxWidth : 0, boxHeight * offset));
}

// Painting

void Node::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    NodePainter::drawBox(*painter, *this);
    NodePainter::drawPicture(*painter, *this);
    NodePainter::drawTexts(*painter, *this);
    NodePainter::drawStatusIcon(*painter, NodeLayout::statusIcon(), statusIcon());
    if (state() == NodeState::Processing) {
        NodePainter::drawProgress(*painter, *this);
    }
    if (showsComment(*this)) {
        NodePainter::drawComment(*painter, *this);
    }
}

// Mouse

QVariant Node::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionHasChanged && !m_connections.isEmpty()) {
        ConnectionLayout::layOut({this});
    } else if (change == ItemSceneHasChanged) {
        takeNumber();
        m_look->updateShadow();
    }
    return QGraphicsObject::itemChange(change, value);
}

void Node::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsObject::mousePressEvent(event);
    m_attachedNotes.clear();
    const GraphScene *owner = graphScene();
    if (owner && event->button() == Qt::LeftButton && Settings::current().autoMoveNotes()) {
        m_attachedNotes = NodePlacement::attachedNotes(owner->nodes(true), owner->nodes());
    }
}

void Node::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const GraphScene *owner = graphScene();
    const bool drags = event->buttons() & Qt::LeftButton && flags() & ItemIsMovable;
    if (owner && drags && !m_moveStep) {
        m_moveStep = std::make_unique<UndoStep>(*owner, QStringLiteral("move item(s)"));
    }
    const QPointF before = pos();
    QGraphicsObject::mouseMoveEvent(event);
    for (Node *note : qAsConst(m_attachedNotes)) {
        note->setPos(note->pos() + pos() - before);
    }
}

bool Node::sceneEvent(QEvent *event)
{
    const bool handled = QGraphicsObject::sceneEvent(event);
    // Comes after each release, and also when the mouse is taken away in the middle of a drag.
    if (event->type() == QEvent::UngrabMouse) {
        finishMove();
    }
    return handled;
}

void Node::finishMove()
{
    const GraphScene *owner = graphScene();
    if (m_moveStep && owner) {
        emit nodePosChanged(owner->nodes(true) + m_attachedNotes.values());
    }
    m_attachedNotes.clear();
    m_moveStep.reset();
}

void Node::hoverEnterEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsObject::hoverEnterEvent(event);
    m_look->followMouse();
}

void Node::hoverLeaveEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsObject::hoverLeaveEvent(event);
    m_look->followMouse();
}
