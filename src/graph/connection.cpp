#include "graph/connection.h"

#include "graph/arrowhead.h"
#include "graph/colors.h"
#include "graph/connectionroute.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodelook.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <algorithm>

namespace {

constexpr double headLength = 12.0;
constexpr double grabWidth = 12.0;
constexpr double straightEnd = 10.0; // keeps the last bit of the line level, so that the head lies on it

} // namespace

Connection::Connection(Node *from, Node *to)
    : m_from(from)
    , m_to(to)
{
    setFlag(ItemIsSelectable);
    setAcceptHoverEvents(true);
    setZValue(std::max(from->zValue(), to->zValue()));
    from->addConnection(this);
    to->addConnection(this);
}

Connection::~Connection()
{
    // Nodes that are still there must not keep a dangling pointer.
    for (Node *node : {m_from, m_to}) {
        if (node) {
            node->m_connections.removeOne(this);
        }
    }
}

void Connection::deleteConnection()
{
    if (m_from) {
        m_from->removeConnection(this);
    }
    if (m_to) {
        m_to->removeConnection(this);
    }
    delete this;
}

void Connection::forget(const Node *node)
{
    if (m_from == node) {
        m_from = nullptr;
    }
    if (m_to == node) {
        m_to = nullptr;
    }
}

QPainterPath Connection::route() const
{
    if (!m_from || !m_to) {
        return QPainterPath();
    }
    const QPointF start = m_from->connectionPoint(Direction::Outgoing, m_fromOffset);
    const QPointF end = m_to->connectionPoint(Direction::Incoming, m_toOffset) - QPointF(straightEnd, 0);
    GraphScene *owner = m_from->graphScene();
    if (!owner) {
        return ConnectionRoute::curve(start, end);
    }
    return ConnectionRoute::clearOfBoxes(
        start, end, m_fromOffset, [=](const QRectF &area) { return owner->boxes().boxesIn(area, m_from, m_to); });
}

void Connection::setRoute(const QPainterPath &line)
{
    if (line.isEmpty()) {
        return;
    }
    const QPointF end = line.currentPosition();
    const QPolygonF head = arrowHead(end, end + QPointF(straightEnd, 0), headLength);
    if (line != path() || head != m_arrowHead) {
        prepareGeometryChange();
        m_arrowHead = head;
        setPath(line);
    }
}

QPointF Connection::middle() const
{
    return path().isEmpty() ? QPointF() : path().pointAtPercent(0.5);
}

QRectF Connection::boundingRect() const
{
    return path()
        .boundingRect()
        .united(m_arrowHead.boundingRect())
        .adjusted(-grabWidth, -grabWidth, grabWidth, grabWidth);
}

QPainterPath Connection::shape() const
{
    QPainterPathStroker stroker;
    stroker.setWidth(grabWidth);
    QPainterPath area = stroker.createStroke(path());
    area.addPolygon(m_arrowHead);
    return area;
}

QColor Connection::lineColor() const
{
    const Colors &colors = m_from ? m_from->colors() : Colors::current();
    if (isSelected() || m_hovered) {
        const QColor ofScheme = colors.color(Colors::Selection);
        return ofScheme.isValid() ? ofScheme : QGuiApplication::palette().color(QPalette::Highlight);
    }
    QColor color = colors.color(Colors::Arrow);
    if (m_from && m_from->state() != NodeState::Processed) {
        color.setAlphaF(color.alphaF() / 2);
    }
    return color;
}

void Connection::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QColor color = lineColor();
    const double width = (m_from ? m_from->colors() : Colors::current()).connectionThickness();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(color, width));
    painter->drawPath(path());
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawPolygon(m_arrowHead);
}

void Connection::setHovered(bool on)
{
    m_hovered = on;
    for (Node *node : {m_from, m_to}) {
        if (node) {
            node->look().setHighlighted(on);
        }
    }
    update();
}

void Connection::hoverEnterEvent(QGraphicsSceneHoverEvent *)
{
    setHovered(true);
}

void Connection::hoverLeaveEvent(QGraphicsSceneHoverEvent *)
{
    setHovered(false);
}
