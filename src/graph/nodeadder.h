#pragma once

#include "graph/graphenums.h"

#include <QStringList>

class Connection;
class GraphScene;
class IONode;
class Node;
class NoteNode;
class Transform;
class TransformNode;

/// Adds nodes to a scene as a person asks for them: places, connects and selects them and starts the run.
class NodeAdder
{
public:
    explicit NodeAdder(GraphScene &scene)
        : m_scene(scene)
    {
    }

    static bool canAddTransform(
        const Transform &transform, int inputs, int transforms, int outputs, int charts, int notes, int connections);
    TransformNode *addTransform(const Transform &prototype);
    QList<IONode *> addInputs(const QStringList &paths, const QPointF &scenePos);
    IONode *addClipboardInput(const QString &text, const QPointF &scenePos);
    IONode *addOutput(const QString &path, int fileType);
    Node *addChart();
    NoteNode *addNote(const QPointF &pos, NoteArrow::Arrow arrow);

private:
    bool canAddToSelection(const Transform &transform) const;
    QString refusal(const Transform &transform) const;
    QString requirement(const Transform &transform) const;
    TransformNode *buildTransform(const Transform &prototype);
    QList<Node *> makeRoom(const QPointF &centre, Node *target);
    void finishTransform(TransformNode *node);
    IONode *makeInput(const QString &path);
    void placeInput(IONode *node, const QPointF &centre);
    void addLeaf(Node *node, Node *source);
    void warnOfExcelLimits(const IONode &output);
    void focusCanvas();

    GraphScene &m_scene;
};
