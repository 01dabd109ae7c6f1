#include "graph/tidyup.h"

#include "graph/flowlayout.h"
#include "graph/graphscene.h"
#include "graph/nodeorder.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace {

using Places = QHash<Node *, QPointF>;

/// What moves, and what hangs on it.
struct Parts
{
    QList<Node *> items;                ///< of the flow, from top to bottom
    QList<Node *> freeNotes;            ///< from top to bottom
    QHash<Node *, QList<Node *>> notes; ///< by the item that they point at
};

Parts partsOf(const GraphScene &scene, const QList<Node *> &chosen)
{
    Parts parts;
    const QList<Node *> all = scene.nodes();
    const QSet<Node *> moving(chosen.begin(), chosen.end());
    for (Node *node : all) {
        auto *note = qgraphicsitem_cast<NoteNode *>(node);
        Node *owner = note ? NodePlacement::noteOwner(note, all) : nullptr;
        if (owner && moving.contains(owner) && !qgraphicsitem_cast<NoteNode *>(owner)) {
            parts.notes[owner].append(note);
        } else if (moving.contains(node)) {
            (note ? parts.freeNotes : parts.items).append(node);
        }
    }
    NodeOrder::sortTopToBottom(parts.items);
    NodeOrder::sortTopToBottom(parts.freeNotes);
    return parts;
}

/// Where a note stands from its item, in cells.
QPoint cellsFrom(const NoteNode *note)
{
    const QPointF offset = NodePlacement::noteOffset(note->arrow());
    return QPoint(qRound(offset.x() / NodePlacement::gridWidth), qRound(offset.y() / NodePlacement::gridHeight));
}

/// The cells of an item's notes, from that of the item. Notes on one side stand one behind the other.
QList<QPoint> noteCells(const QList<Node *> &notes)
{
    QList<QPoint> cells;
    for (const Node *node : notes) {
        const QPoint step = cellsFrom(static_cast<const NoteNode *>(node));
        QPoint cell = step;
        while (cells.contains(cell)) {
            cell += step;
        }
        cells.append(cell);
    }
    return cells;
}

QVector<FlowLayout::Item> layoutItems(const Parts &parts)
{
    QHash<const Node *, int> numbers;
    for (Node *node : parts.items) {
        numbers.insert(node, numbers.size());
    }
    QVector<FlowLayout::Item> items;
    for (Node *node : parts.items) {
        FlowLayout::Item item;
        for (const Node *input : node->upstreamNodes(true)) {
            if (numbers.contains(input)) {
                item.inputs.append(numbers.value(input));
            }
        }
        for (const QPoint &cell : noteCells(parts.notes.value(node))) {
            item.left = std::max(item.left, -cell.x());
            item.right = std::max(item.right, cell.x());
            item.above = std::max(item.above, -cell.y());
            item.below = std::max(item.below, cell.y());
        }
        items.append(item);
    }
    return items;
}

QPointF pointOf(const QPoint &cell)
{
    return {cell.x() * NodePlacement::gridWidth, cell.y() * NodePlacement::gridHeight};
}

/// Places from the origin on.
Places arranged(const Parts &parts)
{
    const QVector<QPoint> cells = FlowLayout::arrange(layoutItems(parts));
    int across = 1;
    for (const QPoint &cell : cells) {
        across = std::max(across, cell.x() + 1);
    }
    Places places;
    for (int i = 0; i < parts.freeNotes.size(); ++i) {
        places.insert(parts.freeNotes[i], pointOf(QPoint(i % across, i / across)));
    }
    const QPoint start(0, (parts.freeNotes.size() + across - 1) / across);
    for (int i = 0; i < cells.size(); ++i) {
        Node *item = parts.items[i];
        places.insert(item, pointOf(cells[i] + start));
        const QList<Node *> notes = parts.notes.value(item);
        const QList<QPoint> steps = noteCells(notes);
        for (int n = 0; n < notes.size(); ++n) {
            places.insert(notes[n], pointOf(cells[i] + start + steps[n]));
        }
    }
    return places;
}

QPointF topLeft(const QList<Node *> &nodes)
{
    QPointF corner = nodes.first()->pos();
    for (const Node *node : nodes) {
        corner = {std::min(corner.x(), node->x()), std::min(corner.y(), node->y())};
    }
    return corner;
}

void move(const Places &places, const QPointF &by)
{
    for (auto place = places.begin(); place != places.end(); ++place) {
        if (place.key()->pos() != place.value() + by) {
            place.key()->setPos(place.value() + by);
        }
    }
}

/// The inputs of all that the moved ones feed, in order.
QHash<Node *, QList<Node *>> inputsFed(const QList<Node *> &moved)
{
    QHash<Node *, QList<Node *>> inputs;
    for (const Node *node : moved) {
        for (Node *target : node->downstreamNodes(false)) {
            if (!inputs.contains(target)) {
                inputs.insert(target, target->upstreamNodes(true));
            }
        }
    }
    return inputs;
}

bool isClearOf(const QList<Node *> &moved, const QList<Node *> &others)
{
    return std::none_of(
        moved.begin(), moved.end(), [&](const Node *node) { return NodePlacement::overlapsAny(node, others); });
}

} // namespace

bool TidyUp::arrange(GraphScene &scene, QList<Node *> chosen)
{
    if (chosen.isEmpty()) {
        return true;
    }
    const Places places = arranged(partsOf(scene, chosen));
    const QList<Node *> moved = places.keys();
    QList<Node *> others;
    Places before;
    for (Node *node : scene.nodes()) {
        if (places.contains(node)) {
            before.insert(node, node->pos());
        } else {
            others.append(node);
        }
    }
    const QHash<Node *, QList<Node *>> inputs = inputsFed(moved);
    const QPointF corner = NodePlacement::snapped(topLeft(chosen));
    // Further and further up and down, until the block lies clear of the others and all inputs are in order.
    const int furthest = 2 * scene.nodes().size() + 2;
    for (int attempt = 0; attempt <= furthest; ++attempt) {
        const int rows = attempt % 2 == 0 ? attempt / 2 : -(attempt + 1) / 2;
        move(places, corner + QPointF(0, rows * NodePlacement::gridHeight));
        if (isClearOf(moved, others) && inputsFed(moved) == inputs) {
            scene.onPosChanged(moved);
            return true;
        }
        if (others.isEmpty()) {
            break;
        }
    }
    move(before, QPointF());
    return false;
}
