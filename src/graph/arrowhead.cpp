#include "graph/arrowhead.h"

#include <QLineF>
#include <cmath>

QPolygonF arrowHead(const QPointF &from, const QPointF &tip, double length)
{
    constexpr double angle = 1.0470666666666666;
    const double direction = std::atan2(tip.y() - from.y(), tip.x() - from.x());
    const auto corner = [&](double turn) {
        return tip - length * QPointF(std::cos(direction + turn), std::sin(direction + turn));
    };
    return QVector<QPointF>{tip, corner(angle / 2), corner(-angle / 2)};
}
