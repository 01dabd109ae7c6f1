#pragma once

#include <QList>

class Node;

/// The two orders by canvas position that decide all ties. Nodes less than 1.0 apart count as level; levels are formed
/// from the first node on, so that the result is the same whatever order the list came in.
namespace NodeOrder {

/// By height, level ones from left to right: the order of a transform's inputs.
void sortTopToBottom(QList<Node *> &nodes);
/// By x, level ones from top to bottom: the order in which a run takes its starting points.
void sortLeftToRight(QList<Node *> &nodes);
/// By id: the order in which they were made.
void sortById(QList<Node *> &nodes);

} // namespace NodeOrder
