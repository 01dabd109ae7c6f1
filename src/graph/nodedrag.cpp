#include "graph/nodedrag.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodelook.h"
#include "graph/nodeplacement.h"
#include "graph/undostep.h"
#include "settings/settings.h"

#include <QGraphicsSceneMouseEvent>

NodeDrag::NodeDrag(Node &node)
    : m_node(node)
{
}

NodeDrag::~NodeDrag() = default;

void NodeDrag::before(QEvent &event)
{
    if (event.type() == QEvent::GraphicsSceneMouseMove) {
        beginMove(static_cast<QGraphicsSceneMouseEvent &>(event));
    }
}

void NodeDrag::after(QEvent &event)
{
    switch (event.type()) {
    case QEvent::GraphicsSceneMousePress:
        attachNotes(static_cast<QGraphicsSceneMouseEvent &>(event));
        break;
    case QEvent::GraphicsSceneMouseMove:
        moveNotes();
        break;
    case QEvent::UngrabMouse:
        // Comes after each release, and also when the mouse is taken away in the middle of a drag.
        finish();
        break;
    case QEvent::GraphicsSceneHoverEnter:
    case QEvent::GraphicsSceneHoverLeave:
        m_node.look().followMouse();
        break;
    default:
        break;
    }
}

void NodeDrag::attachNotes(const QGraphicsSceneMouseEvent &event)
{
    m_attachedNotes.clear();
    const GraphScene *scene = m_node.graphScene();
    if (scene && event.button() == Qt::LeftButton && Settings::current().autoMoveNotes()) {
        m_attachedNotes = NodePlacement::attachedNotes(scene->nodes(true), scene->nodes());
    }
}

void NodeDrag::beginMove(const QGraphicsSceneMouseEvent &event)
{
    const GraphScene *scene = m_node.graphScene();
    const bool drags = event.buttons() & Qt::LeftButton && m_node.flags() & QGraphicsItem::ItemIsMovable;
    if (scene && drags && !m_step) {
        m_step = std::make_unique<UndoStep>(*scene, QStringLiteral("move item(s)"));
    }
    m_from = m_node.pos();
}

void NodeDrag::moveNotes()
{
    for (Node *note : qAsConst(m_attachedNotes)) {
        note->setPos(note->pos() + m_node.pos() - m_from);
    }
}

void NodeDrag::finish()
{
    const GraphScene *scene = m_node.graphScene();
    if (m_step && scene) {
        emit m_node.nodePosChanged(scene->nodes(true) + m_attachedNotes.values());
    }
    m_attachedNotes.clear();
    m_step.reset();
}
