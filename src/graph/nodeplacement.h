#pragma once

#include "graph/graphenums.h"

#include <QList>
#include <QPointF>
#include <QSet>

class Connection;
class GraphScene;
class Node;
class NoteNode;

/// Where nodes go: the grid, free places, and the notes beside nodes. Places of new nodes are their centres.
namespace NodePlacement {

constexpr double gridWidth = 239.4;
constexpr double gridHeight = 119.7;

/// The point of the grid next to `point`; halves go away from zero.
QPointF snapped(const QPointF &point);
/// Puts `nodes` on points of the grid where no other node of `all` is. Returns those that moved.
QList<Node *> snap(const QList<Node *> &nodes, const QList<Node *> &all);

/// One column right of the rightmost of `selected`; without any, below all of `all`; without any, the origin.
QPointF newNodeCentre(const QList<Node *> &selected, const QList<Node *> &all);
/// Between the ends of a connection that a node is put into.
QPointF insertionCentre(const Connection &connection);
/// Right of the rightmost node.
QPointF newInputCentre(const QList<Node *> &all);

/// True when another node of `all` lies where `node` is.
bool overlapsAny(const Node *node, const QList<Node *> &all);
/// Puts `node` at `centre` or, when that is taken, at the next free place to the right or below.
void placeAvoidingOverlap(Node *node, const QPointF &centre, bool horizontal, const GraphScene &scene);

/// The node that a note's arrow points at from beside, or null.
Node *noteOwner(const NoteNode *note, const QList<Node *> &all);
/// The notes whose arrow points from beside at one of `nodes`; none of `nodes` itself.
QSet<Node *> attachedNotes(const QList<Node *> &nodes, const QList<Node *> &all);
/// How far a note with this arrow lies from what it points at.
QPointF noteOffset(NoteArrow::Arrow arrow);
/// The arrow of a note that stands above, right, below or left of `node`, the first of these that is free.
NoteArrow::Arrow autoNoteArrow(const Node *node, const QList<Node *> &all);

} // namespace NodePlacement
