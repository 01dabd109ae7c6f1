#pragma once

#include "graph/graphenums.h"

class Connection;
class GraphScene;
class Node;
class TransformNode;

/// Connects, disconnects and removes nodes of a scene.
class GraphEdit
{
public:
    explicit GraphEdit(GraphScene &scene)
        : m_scene(scene)
    {
    }

    QList<Node *> connectableTargets(const Node *from) const;
    void connectNodes(Node *from, Node *to);
    void disconnectSelected(Direction direction);
    int columnOptionsAtRisk(Direction direction) const;
    void deleteSelected();

private:
    bool deleteSelectedConnections();
    void bridge(TransformNode *node);
    void removeDoubleConnections();

    GraphScene &m_scene;
};
