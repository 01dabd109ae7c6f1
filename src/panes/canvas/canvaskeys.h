#pragma once

class GraphPane;
class GraphScene;
class Node;
class QKeyEvent;

/// What keys without Ctrl and Alt do on the canvas: the arrows walk through the graph, a letter opens the menu of
/// transforms or types into a note, the space bar drags the view.
class CanvasKeys
{
public:
    explicit CanvasKeys(GraphPane &pane)
        : m_pane(pane)
    {
    }

    /// True when the key meant something here.
    bool press(const QKeyEvent &event);
    bool release(const QKeyEvent &event);

    /// Where an arrow key leads from `from`: to the first item upstream or downstream, or to the sibling above or
    /// below. Items without inputs count as siblings; from nothing it leads to the first of these. Null for nowhere.
    static Node *neighbour(const GraphScene &scene, const Node *from, int key);

private:
    bool walk(int key);
    bool typeIntoNote(const QKeyEvent &event);
    bool openMenu(const QKeyEvent &event);
    bool startDragging(const QKeyEvent &event);

    GraphPane &m_pane;
    bool m_drags = false;
};
