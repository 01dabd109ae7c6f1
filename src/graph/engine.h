#pragma once

#include "graph/graphenums.h"

class GraphScene;
class Node;

/// One run over the nodes of a scene: decides which nodes are asked to process, in which order, and tells of it.
/// The nodes themselves know when they are stale and when their inputs are ready.
class Engine
{
public:
    explicit Engine(GraphScene &scene)
        : m_scene(scene)
    {
    }

    void run(RunMode mode, bool quiet);

private:
    void runSelected();
    QList<Node *> selectedWork() const;
    bool runPass(QList<Node *> &work);
    void runRoots(RunMode mode);
    void report(qint64 elapsedMs);
    void log(const QString &line);

    GraphScene &m_scene;
};
