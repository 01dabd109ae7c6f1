#pragma once

#include <QPolygonF>

/// The three corners of an arrow head whose tip is `tip`, on a line that comes from `from`.
QPolygonF arrowHead(const QPointF &from, const QPointF &tip, double length);
