#include "graph/nodelook.h"

#include "graph/boxshadow.h"
#include "graph/colors.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodeoverlayitem.h"
#include "graph/timingbar.h"

#include <QTimer>

namespace {

constexpr int hoverDelayMs = 150;

} // namespace

NodeLook::NodeLook(Node &node)
    : m_node(node)
    , m_shadow(new BoxShadow(&node))
{
    node.setGraphicsEffect(m_shadow);
}

NodeLook::~NodeLook()
{
    hideConnectFromOverlay();
    hideConnectToOverlay();
    hideTimingBar();
    delete m_hoverTimer;
}

void NodeLook::updateShadow()
{
    const QColor color = m_node.colors().color(Colors::Shadow);
    m_shadow->setEnabled(color.isValid());
    if (color.isValid()) {
        m_shadow->setColor(color);
    }
}

void NodeLook::setHighlighted(bool on)
{
    if (on != m_isHighlighted) {
        m_isHighlighted = on;
        m_node.update();
    }
}

// Handles

void NodeLook::showConnectFromOverlay()
{
    GraphScene *scene = m_node.graphScene();
    if (!m_connectFrom && scene) {
        m_connectFrom = new ConnectFromNodeOverlayItem(&m_node);
        QObject::connect(m_connectFrom, &NodeOverlayItem::clicked, scene, &GraphScene::startConnection);
    }
}

void NodeLook::showConnectToOverlay()
{
    GraphScene *scene = m_node.graphScene();
    if (!m_connectTo && scene) {
        m_connectTo = new ConnectToNodeOverlayItem(&m_node);
        QObject::connect(m_connectTo, &NodeOverlayItem::clicked, scene, &GraphScene::connectNodes);
    }
}

void NodeLook::hideConnectFromOverlay()
{
    delete m_connectFrom;
    m_connectFrom = nullptr;
}

void NodeLook::hideConnectToOverlay()
{
    delete m_connectTo;
    m_connectTo = nullptr;
}

void NodeLook::followMouse()
{
    if (!m_hoverTimer) {
        m_hoverTimer = new QTimer(&m_node);
        m_hoverTimer->setSingleShot(true);
        QObject::connect(m_hoverTimer, &QTimer::timeout, &m_node, [this] { updateConnectFromOverlay(); });
    }
    m_hoverTimer->start(hoverDelayMs);
}

void NodeLook::updateConnectFromOverlay()
{
    const GraphScene *scene = m_node.graphScene();
    const bool isFree = scene && !scene->isConnecting() && !scene->isProcessing();
    if (isFree && m_node.isUnderMouse() && m_node.canAcceptConnection()) {
        showConnectFromOverlay();
    } else {
        hideConnectFromOverlay();
    }
}

// Timing bar

void NodeLook::showTimingBar(double share)
{
    if (m_timingBar) {
        m_timingBar->setShare(share);
    } else {
        m_timingBar = new TimingBar(&m_node, share);
    }
}

void NodeLook::hideTimingBar()
{
    delete m_timingBar;
    m_timingBar = nullptr;
}
