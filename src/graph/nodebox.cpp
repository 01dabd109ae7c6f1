#include "graph/nodebox.h"

#include "graph/colors.h"
#include "graph/graphscene.h"

#include <QPainterPath>

GraphScene *NodeBox::graphScene() const
{
    return qobject_cast<GraphScene *>(scene());
}

QPointF NodeBox::centre() const
{
    return mapToScene(boxRect().center());
}

void NodeBox::setCentre(const QPointF &point)
{
    setPos(point - boxRect().center());
}

QPainterPath NodeBox::shape() const
{
    QPainterPath path;
    path.addRect(boxRect());
    return path;
}

QPointF NodeBox::connectionPoint(Direction side, double offset) const
{
    return mapToScene(QPointF(side == Direction::Outgoing ? boxWidth : 0, boxHeight * offset));
}

const Colors &NodeBox::colors() const
{
    const GraphScene *owner = graphScene();
    return owner ? owner->colors() : Colors::current();
}

int NodeBox::gradientEffect() const
{
    return colors().gradientEffect();
}
