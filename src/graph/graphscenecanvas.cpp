#include "graph/colors.h"
#include "graph/connectionguide.h"
#include "graph/graphscene.h"
#include "graph/nodelook.h"
#include "graph/nodeoverlayitem.h"
#include "graph/nodeplacement.h"
#include "graph/transformnode.h"
#include "transforms/frame/transform.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

// How the scene looks and what the mouse does in it.

namespace {

constexpr double gridDot = 3.0;

} // namespace

const Colors &GraphScene::colors() const
{
    return m_colorsOverride ? *m_colorsOverride : Colors::current();
}

void GraphScene::setColorsOverride(const Colors *colorsOverride)
{
    m_colorsOverride = colorsOverride;
    refresh();
}

void GraphScene::refresh()
{
    for (Node *node : nodes()) {
        node->look().updateShadow();
        node->update();
    }
    update();
}

void GraphScene::onHighlightTransformNodes(bool on, int transformType)
{
    for (TransformNode *node : transformNodes()) {
        if (node->transform()->typeId() == transformType) {
            node->look().setHighlighted(on);
        }
    }
}

void GraphScene::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, colors().color(Colors::Background));
    if (!snapToGrid()) {
        return;
    }
    QColor dot = colors().color(Colors::Arrow);
    dot.setAlphaF(0.4);
    const QPointF first = NodePlacement::snapped(rect.topLeft());
    for (double x = first.x(); x <= rect.right() + gridDot; x += NodePlacement::gridWidth) {
        for (double y = first.y(); y <= rect.bottom() + gridDot; y += NodePlacement::gridHeight) {
            painter->fillRect(QRectF(x - gridDot / 2, y - gridDot / 2, gridDot, gridDot), dot);
        }
    }
}

// Mouse

void GraphScene::setConnectionEnd(const QPointF &point)
{
    if (m_connectionGuide) {
        m_connectionGuide->setEnd(point);
    }
}

void GraphScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mousePressEvent(event);
    const bool connecting = isConnecting();
    const int wanted = connecting ? ItemType::ConnectToOverlay : ItemType::ConnectFromOverlay;
    NodeOverlayItem *pressed = nullptr;
    for (QGraphicsItem *item : items(event->scenePos())) {
        if (item->type() == wanted) {
            pressed = static_cast<NodeOverlayItem *>(item);
            break;
        }
    }
    if (pressed) {
        pressed->click();
    }
    if (connecting) {
        endConnection();
    }
}

void GraphScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mouseMoveEvent(event);
    setConnectionEnd(event->scenePos());
}

void GraphScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mouseDoubleClickEvent(event);
    m_doubleClicked = true;
}

void GraphScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    QGraphicsScene::mouseReleaseEvent(event);
    if (m_doubleClicked) {
        m_doubleClicked = false;
        if (nodes(true).size() == 1) {
            emit doubleClickNode();
        }
    }
}
