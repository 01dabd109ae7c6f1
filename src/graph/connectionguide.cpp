#include "graph/connectionguide.h"

#include "graph/arrowhead.h"
#include "graph/colors.h"
#include "graph/graphscene.h"

#include <QPainter>

namespace {

constexpr double headLength = 8.0;
constexpr double aboveAll = 100.0;

} // namespace

ConnectionGuide::ConnectionGuide(const QPointF &start)
    : m_start(start)
    , m_end(start)
{
    setZValue(aboveAll);
    setAcceptedMouseButtons(Qt::NoButton);
}

void ConnectionGuide::setEnd(const QPointF &end)
{
    prepareGeometryChange();
    m_end = end;
}

QRectF ConnectionGuide::boundingRect() const
{
    return QRectF(m_start, m_end).normalized().adjusted(-headLength, -headLength, headLength, headLength);
}

void ConnectionGuide::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const auto *owner = qobject_cast<const GraphScene *>(scene());
    const QColor color = (owner ? owner->colors() : Colors::current()).color(Colors::Arrow);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, 2, Qt::DashLine));
    painter->drawLine(m_start, m_end);
    painter->setPen(QPen(color, 1));
    painter->setBrush(color);
    painter->drawPolygon(arrowHead(m_start, m_end, headLength));
}
