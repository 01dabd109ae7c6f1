#pragma once

class BoxShadow;
class ConnectFromNodeOverlayItem;
class ConnectToNodeOverlayItem;
class Node;
class QTimer;
class TimingBar;

/// What hangs on a node's box: its shadow, the handles that connections start and end at, the timing bar and the
/// highlight. Its items are children of the node, so the node lets go of it while it still is one.
class NodeLook
{
public:
    explicit NodeLook(Node &node);
    ~NodeLook();
    NodeLook(const NodeLook &) = delete;
    NodeLook &operator=(const NodeLook &) = delete;

    /// Takes the shadow's colour from Node::colors().
    void updateShadow();
    /// Emphasises the box, as for a selected connection.
    bool isHighlighted() const { return m_isHighlighted; }
    void setHighlighted(bool on);

    // A handle needs a scene to tell of a press on it
    void showConnectFromOverlay();
    void showConnectToOverlay();
    void hideConnectFromOverlay();
    void hideConnectToOverlay();
    /// The mouse has come or gone: after a moment the handle follows.
    void followMouse();

    /// `share` of the longest time in the scene, 0 to 1.
    void showTimingBar(double share);
    void hideTimingBar();

private:
    void updateConnectFromOverlay();

    Node &m_node;
    BoxShadow *m_shadow;
    ConnectFromNodeOverlayItem *m_connectFrom = nullptr;
    ConnectToNodeOverlayItem *m_connectTo = nullptr;
    TimingBar *m_timingBar = nullptr;
    QTimer *m_hoverTimer = nullptr;
    bool m_isHighlighted = false;
};
