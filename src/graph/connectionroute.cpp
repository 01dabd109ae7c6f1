#include "graph/connectionroute.h"

#include <QLineF>
#include <algorithm>
#include <cmath>

namespace {

constexpr double leastBend = 30.0;
constexpr double besideBox = 8.0;      // where the level part of a way round begins and ends
constexpr double leastOffBox = 8.0;    // between the level part and the box
constexpr double spreadOfLanes = 12.0; // rows of the grid lie 30 apart
constexpr double leastClimb = 20.0;    // the width in which a line gets to another height
constexpr int mostTries = 4;

/// Whether a line passes through a rectangle, by cutting it at each edge in turn.
bool passesThrough(const QLineF &line, const QRectF &rect)
{
    double from = 0.0;
    double to = 1.0;
    const auto cut = [&](double start, double delta, double low, double high) {
        if (std::abs(delta) < 1e-9) {
            return start > low && start < high;
        }
        const double a = (low - start) / delta;
        const double b = (high - start) / delta;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
        return from < to;
    };
    return cut(line.x1(), line.dx(), rect.left(), rect.right()) && cut(line.y1(), line.dy(), rect.top(), rect.bottom());
}

/// What encloses the boxes that the path passes over; null for none.
QRectF passedOver(const QPainterPath &path, const ConnectionRoute::BoxesIn &boxesIn)
{
    // A level line has a rectangle without height, which meets nothing.
    const QVector<QRectF> boxes = boxesIn(path.controlPointRect().adjusted(-1, -1, 1, 1));
    if (boxes.isEmpty()) {
        return QRectF();
    }
    QRectF enclosing;
    const QList<QPolygonF> polygons = path.toSubpathPolygons();
    for (const QRectF &box : boxes) {
        for (const QPolygonF &polygon : polygons) {
            for (int i = 1; i < polygon.size(); ++i) {
                if (passesThrough(QLineF(polygon.at(i - 1), polygon.at(i)), box)) {
                    enclosing = enclosing.united(box);
                    break;
                }
            }
        }
    }
    return enclosing;
}

void bendTo(QPainterPath &path, const QPointF &end)
{
    const QPointF start = path.currentPosition();
    const QPointF half((end.x() - start.x()) / 2, 0);
    path.cubicTo(start + half, end - half, end);
}

/// Past the obstacle at the height `y`; empty where there isn't the room to get there and back.
QPainterPath wayRound(const QPointF &start, const QPointF &end, const QRectF &obstacle, double y)
{
    const double left = std::max(obstacle.left() - besideBox, start.x() + leastClimb);
    const double right = std::min(obstacle.right() + besideBox, end.x() - leastClimb);
    if (left > right) {
        return QPainterPath();
    }
    QPainterPath path(start);
    bendTo(path, QPointF(left, y));
    path.lineTo(right, y);
    bendTo(path, end);
    return path;
}

/// Goes round more and more of what is in the way; empty when that ends nowhere.
QPainterPath freeWay(const QPointF &start, const QPointF &end, QRectF obstacle, bool above, double off,
    const ConnectionRoute::BoxesIn &boxesIn)
{
    for (int i = 0; i < mostTries; ++i) {
        const QPainterPath path = wayRound(
            start, end, obstacle, above ? obstacle.top() - off : obstacle.bottom() + off);
        const QRectF met = path.isEmpty() ? QRectF() : passedOver(path, boxesIn);
        if (met.isNull()) {
            return path;
        }
        obstacle = obstacle.united(met);
    }
    return QPainterPath();
}

} // namespace

QPainterPath ConnectionRoute::curve(const QPointF &start, const QPointF &end)
{
    const QPointF bend(std::max(leastBend, std::abs(end.x() - start.x()) / 2), 0);
    QPainterPath line(start);
    line.cubicTo(start + bend, end - bend, end);
    return line;
}

QPainterPath ConnectionRoute::clearOfBoxes(
    const QPointF &start, const QPointF &end, double lane, const BoxesIn &boxesIn)
{
    const QPainterPath straight = curve(start, end);
    const QRectF obstacle = passedOver(straight, boxesIn);
    if (obstacle.isNull()) {
        return straight;
    }
    const double off = leastOffBox + lane * spreadOfLanes;
    const double middle = (start.y() + end.y()) / 2;
    // Comments stand below the boxes, so a line goes above when both are as far.
    const bool aboveIsNearer = middle - obstacle.top() <= obstacle.bottom() - middle;
    for (const bool above : {aboveIsNearer, !aboveIsNearer}) {
        const QPainterPath path = freeWay(start, end, obstacle, above, off, boxesIn);
        if (!path.isEmpty()) {
            return path;
        }
    }
    return straight;
}
