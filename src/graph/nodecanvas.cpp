#include "graph/connection.h"
#include "graph/connectionlayout.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodedrag.h"
#include "graph/nodelook.h"
#include "graph/nodepainter.h"
#include "settings/settings.h"

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

QRectF Node::boundingRect() const
{
    const QRectF box = boxRect().adjusted(-margin, -margin, margin, margin);
    return comment().isEmpty() ? box : box.united(NodeLayout::comment());
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
    GraphScene *owner = graphScene();
    if (change == ItemPositionHasChanged) {
        if (owner) {
            owner->boxes().put(this);
        }
        if (!connections(Direction::Both).isEmpty()) {
            ConnectionLayout::layOut({this});
        }
    } else if (change == ItemSceneChange && owner) {
        owner->boxes().remove(this);
    } else if (change == ItemSceneHasChanged) {
        if (owner) {
            owner->boxes().put(this);
        }
        takeNumber();
        m_look->updateShadow();
    }
    return QGraphicsObject::itemChange(change, value);
}

bool Node::sceneEvent(QEvent *event)
{
    m_drag->before(*event);
    const bool handled = QGraphicsObject::sceneEvent(event);
    m_drag->after(*event);
    return handled;
}

const QSet<Node *> &Node::attachedNotes() const
{
    return m_drag->attachedNotes();
}
