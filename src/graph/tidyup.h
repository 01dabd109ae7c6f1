#pragma once

#include <QList>

class GraphScene;
class Node;

/// Tidy up: arranges items on the grid, in layers from left to right.
namespace TidyUp {

/// Arranges `chosen` from where the leftmost and topmost of them is, clear of all others; their attached notes go
/// along. Free notes among them come above the rest. Inputs of transforms keep their order: gives false and moves
/// nothing when that can't be had. The caller makes the step of undo.
bool arrange(GraphScene &scene, QList<Node *> chosen);

} // namespace TidyUp
