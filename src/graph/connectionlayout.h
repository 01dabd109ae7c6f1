#pragma once

#include <QList>

class Node;

/// Spreads the ends of connections over the edges of the boxes and draws the lines anew.
namespace ConnectionLayout {

/// For all connections of these nodes, and those that share an edge with them.
void layOut(const QList<Node *> &nodes);

} // namespace ConnectionLayout
