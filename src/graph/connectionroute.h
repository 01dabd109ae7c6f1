#pragma once

#include <QPainterPath>
#include <QRectF>
#include <functional>

/// The lines of connections, in scene coordinates.
namespace ConnectionRoute {

/// Gives the boxes within an area that a line should keep clear of.
using BoxesIn = std::function<QVector<QRectF>(const QRectF &area)>;

/// The curve that leaves `start` and reaches `end` level.
QPainterPath curve(const QPointF &start, const QPointF &end);
/// The curve, or where it would pass over boxes, a line above or below them that is free; the curve again where neither
/// is. `lane`, from 0 to 1, parts lines that go round the same box.
QPainterPath clearOfBoxes(const QPointF &start, const QPointF &end, double lane, const BoxesIn &boxesIn);

} // namespace ConnectionRoute
