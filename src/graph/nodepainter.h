#pragma once

#include "graph/graphenums.h"

class Node;
class QPainter;
class QRectF;

/// The parts of a node's box, in the node's own coordinates.
namespace NodeLayout {

constexpr double cornerRadius = 6.0;
constexpr double borderWidth = 2.0;
constexpr double selectedBorderWidth = 4.0;
constexpr double padding = 3.0;

QRectF border();
/// Line 1 to 3.
QRectF textLine(int line);
QRectF statusIcon();
/// Left of line 1.
QRectF picture();
QRectF progressBar();
/// Below the box.
QRectF comment();

} // namespace NodeLayout

/// Draws nodes; nodes only say what they are.
namespace NodePainter {

void drawBox(QPainter &painter, const Node &node);
void drawPicture(QPainter &painter, const Node &node);
/// Name, size and status.
void drawTexts(QPainter &painter, const Node &node);
void drawComment(QPainter &painter, const Node &node);
void drawProgress(QPainter &painter, const Node &node);
void drawStatusIcon(QPainter &painter, const QRectF &disc, NodeStatusIcon icon);
/// Marks at the sides of the box for more or fewer rows and columns than upstream.
void drawChanges(QPainter &painter, const Node &node, int moreRows, int moreColumns);

} // namespace NodePainter
