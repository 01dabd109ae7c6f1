#pragma once

#include "panes/canvas/canvasactions.h"

#include <QPointF>

class GraphScene;
class QMenu;

/// Fills the context menu of the canvas with what fits the selection.
class CanvasMenu
{
public:
    /// `scenePos` is where the menu was asked for.
    CanvasMenu(const CanvasActions &actions, GraphScene &scene, const QPointF &scenePos);

    void fill(QMenu &menu) const;

private:
    void addTransforms(QMenu &menu) const;
    void addNotes(QMenu &menu) const;

    const CanvasActions &m_actions;
    GraphScene &m_scene;
    const QPointF m_scenePos;
};
