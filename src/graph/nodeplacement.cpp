#include "graph/nodeplacement.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/nodeorder.h"
#include "graph/nodepainter.h"
#include "graph/notenode.h"

#include <algorithm>
#include <cmath>

namespace {

// Two nodes are taken to lie on the same point of the grid within these.
constexpr double snappedTolerance = 0.2394;
constexpr double horizontalTolerance = 11.8503;
constexpr double verticalTolerance = 11.97;

constexpr double widestRow = 1440.0;
constexpr double roomBeyondEdge = 180.0;
constexpr double noteReach = 1.5; // steps of the grid within which a note belongs to a node

bool isNear(const QPointF &a, const QPointF &b, double x, double y)
{
    return std::abs(a.x() - b.x()) < x && std::abs(a.y() - b.y()) < y;
}

double snappedTo(double value, double step)
{
    const double steps = value / step;
    return static_cast<double>(static_cast<qint64>(steps < 0 ? steps - 0.5 : steps + 0.5)) * step;
}

QRectF boxAt(const Node *node)
{
    return node->boxRect().translated(node->pos());
}

/// The box, with the comment under it.
QRectF areaOf(const Node *node)
{
    const QRectF box = boxAt(node);
    return node->comment().isEmpty() ? box : box.united(NodeLayout::comment().translated(node->pos()));
}

bool isRectFree(const QRectF &rect, const Node *except, const QList<Node *> &all)
{
    return std::none_of(
        all.begin(), all.end(), [&](const Node *other) { return other != except && areaOf(other).intersects(rect); });
}

/// Smallest rectangle round the nodes' centres.
QRectF centres(const QList<Node *> &nodes)
{
    QPointF least = nodes.first()->centre();
    QPointF most = least;
    for (const Node *node : nodes) {
        const QPointF c = node->centre();
        least = {std::min(least.x(), c.x()), std::min(least.y(), c.y())};
        most = {std::max(most.x(), c.x()), std::max(most.y(), c.y())};
    }
    return QRectF(least, most);
}

bool pointsAt(const NoteNode *note, const Node *node)
{
    const QPointF offset = NodePlacement::noteOffset(note->arrow());
    const QPointF towards = node->centre() - note->centre();
    if (offset.x() != 0) {
        const double distance = towards.x() * (offset.x() < 0 ? 1 : -1);
        return distance > 0 && distance < noteReach * NodePlacement::gridWidth
               && std::abs(towards.y()) < Node::boxHeight;
    }
    const double distance = towards.y() * (offset.y() < 0 ? 1 : -1);
    return distance > 0 && distance < noteReach * NodePlacement::gridHeight && std::abs(towards.x()) < Node::boxWidth;
}

} // namespace

// Grid

QPointF NodePlacement::snapped(const QPointF &point)
{
    return {snappedTo(point.x(), gridWidth), snappedTo(point.y(), gridHeight)};
}

QList<Node *> NodePlacement::snap(const QList<Node *> &nodes, const QList<Node *> &all)
{
    QList<QPointF> taken;
    QList<Node *> others = all;
    for (Node *node : nodes) {
        others.removeOne(node);
    }
    const auto isTaken = [&](const QPointF &point) {
        return std::any_of(taken.begin(), taken.end(), [&](const QPointF &p) {
            return isNear(p, point, snappedTolerance, snappedTolerance);
        }) || std::any_of(others.begin(), others.end(), [&](const Node *other) {
            return isNear(other->pos(), point, horizontalTolerance, verticalTolerance);
        });
    };
    QList<Node *> moved;
    for (Node *node : nodes) {
        QPointF point = snapped(node->pos());
        while (isTaken(point)) {
            point.ry() += gridHeight;
        }
        taken.append(point);
        if (point != node->pos()) {
            node->setPos(point);
            moved.append(node);
        }
    }
    return moved;
}

// New nodes

QPointF NodePlacement::newNodeCentre(const QList<Node *> &selected, const QList<Node *> &all)
{
    if (!selected.isEmpty()) {
        const QRectF area = centres(selected);
        return {area.right() + gridWidth, area.center().y()};
    }
    if (!all.isEmpty()) {
        const QRectF area = centres(all);
        return {area.left(), area.bottom() + gridHeight};
    }
    return QPointF();
}

QPointF NodePlacement::insertionCentre(const Connection &connection)
{
    const QPointF from = connection.from()->centre();
    // A node of several inputs takes them by height, so the new one stays as high as the one that it replaces there.
    const bool keepHeight = connection.to()->connections(Direction::Incoming).size() > 1;
    return {from.x() + gridWidth, keepHeight ? from.y() : (from.y() + connection.to()->centre().y()) / 2};
}

QPointF NodePlacement::newInputCentre(const QList<Node *> &all)
{
    if (all.isEmpty()) {
        return QPointF();
    }
    const Node *rightmost = *std::max_element(
        all.begin(), all.end(), [](const Node *a, const Node *b) { return a->centre().x() < b->centre().x(); });
    return rightmost->centre() + QPointF(gridWidth, 0);
}

bool NodePlacement::overlapsAny(const Node *node, const QList<Node *> &all)
{
    return !isRectFree(areaOf(node), node, all);
}

void NodePlacement::placeAvoidingOverlap(Node *node, const QPointF &centre, bool horizontal, const GraphScene &scene)
{
    const QList<Node *> all = scene.nodes();
    const QRectF area = scene.sceneRect();
    node->setCentre(centre);
    if (scene.snapToGrid()) {
        node->setPos(snapped(node->pos()));
    }
    const double start = node->x();
    while (overlapsAny(node, all)) {
        const double next = node->x() + gridWidth;
        if (!horizontal) {
            node->setY(node->y() + gridHeight);
        } else if (area.width() > widestRow || next > area.right() + roomBeyondEdge) {
            node->setPos(start, node->y() + gridHeight);
        } else {
            node->setX(next);
        }
    }
}

// Notes

QPointF NodePlacement::noteOffset(NoteArrow::Arrow arrow)
{
    switch (arrow) {
    case NoteNode::Up:
        return {0, gridHeight};
    case NoteNode::Right:
        return {-gridWidth, 0};
    case NoteNode::Down:
        return {0, -gridHeight};
    case NoteNode::Left:
        return {gridWidth, 0};
    case NoteNode::NoArrow:
        break;
    }
    return {};
}

Node *NodePlacement::noteOwner(const NoteNode *note, const QList<Node *> &all)
{
    if (note->arrow() == NoteNode::NoArrow) {
        return nullptr;
    }
    Node *nearest = nullptr;
    const auto distance = [=](const Node *node) { return (node->centre() - note->centre()).manhattanLength(); };
    for (Node *node : all) {
        if (node != note && pointsAt(note, node) && (!nearest || distance(node) < distance(nearest))) {
            nearest = node;
        }
    }
    return nearest;
}

QSet<Node *> NodePlacement::attachedNotes(const QList<Node *> &nodes, const QList<Node *> &all)
{
    QSet<Node *> attached;
    for (Node *node : all) {
        const auto *note = qgraphicsitem_cast<NoteNode *>(node);
        if (note && !nodes.contains(node) && nodes.contains(noteOwner(note, all))) {
            attached.insert(node);
        }
    }
    return attached;
}

NoteArrow::Arrow NodePlacement::autoNoteArrow(const Node *node, const QList<Node *> &all)
{
    const NoteArrow::Arrow arrows[] = {NoteNode::Down, NoteNode::Left, NoteNode::Up, NoteNode::Right};
    for (const NoteArrow::Arrow arrow : arrows) {
        if (isRectFree(boxAt(node).translated(noteOffset(arrow)), node, all)) {
            return arrow;
        }
    }
    return arrows[0];
}
