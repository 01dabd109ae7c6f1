#include "panes/canvas/canvaskeys.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/nodeorder.h"
#include "graph/notenode.h"
#include "panes/canvas/graphpane.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>

namespace {

constexpr int visibleMargin = 50;

bool isArrow(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

bool isPrintable(const QKeyEvent &event)
{
    return !event.text().isEmpty() && event.text().at(0).isPrint();
}

Node *besideRoot(const GraphScene &scene, const Node *from, int step)
{
    QList<Node *> roots = scene.rootNodes();
    NodeOrder::sortTopToBottom(roots);
    const int index = from ? roots.indexOf(const_cast<Node *>(from)) : -1;
    return roots.value(from ? index + step : 0);
}

} // namespace

Node *CanvasKeys::neighbour(const GraphScene &scene, const Node *from, int key)
{
    if (!from) {
        return besideRoot(scene, nullptr, 0);
    }
    const bool isRoot = from->upstreamNodes(false).isEmpty();
    switch (key) {
    case Qt::Key_Left:
        return from->upstreamNodes(true).value(0);
    case Qt::Key_Right:
        return from->downstreamNodes(true).value(0);
    case Qt::Key_Up:
        return isRoot ? besideRoot(scene, from, -1) : from->previousSibling();
    case Qt::Key_Down:
        return isRoot ? besideRoot(scene, from, 1) : from->nextSibling();
    default:
        return nullptr;
    }
}

bool CanvasKeys::press(const QKeyEvent &event)
{
    const bool isPlain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!isPlain || !m_pane.isInteractive()) {
        return false;
    }
    if (isArrow(event.key())) {
        return walk(event.key());
    }
    return typeIntoNote(event) || startDragging(event) || openMenu(event);
}

bool CanvasKeys::walk(int key)
{
    GraphScene &scene = *m_pane.graph();
    const QList<Node *> selected = scene.nodes(true);
    if (scene.isProcessing() || selected.size() > 1) {
        return false;
    }
    Node *next = neighbour(scene, selected.value(0), key);
    if (next) {
        QToolTip::hideText();
        scene.clearSelection();
        next->setSelected(true);
        m_pane.ensureVisible(next, visibleMargin, visibleMargin);
    }
    // Also where nothing lies there: the view shall not scroll away from the item.
    return next || !selected.isEmpty();
}

bool CanvasKeys::typeIntoNote(const QKeyEvent &event)
{
    const GraphScene &scene = *m_pane.graph();
    if (!isPrintable(event) || scene.noteNodes(true).size() != 1 || scene.nodes(true).size() != 1) {
        return false;
    }
    emit m_pane.typedCharInNote(event.text().at(0));
    return true;
}

bool CanvasKeys::openMenu(const QKeyEvent &event)
{
    if (!isPrintable(event)) {
        return false;
    }
    const GraphScene &scene = *m_pane.graph();
    const QChar letter = event.text().at(0).toUpper();
    const bool opens = (letter >= QLatin1Char('A') && letter <= QLatin1Char('Z')) || letter == QLatin1Char(' ');
    const bool hasItem = !scene.nodes(true).isEmpty() || !scene.connections(true).isEmpty();
    if (!opens || !hasItem || scene.isProcessing()) {
        return false;
    }
    m_pane.openTransformMenu(event.text());
    return true;
}

bool CanvasKeys::startDragging(const QKeyEvent &event)
{
    const bool scrolls = m_pane.horizontalScrollBar()->maximum() > m_pane.horizontalScrollBar()->minimum()
                         || m_pane.verticalScrollBar()->maximum() > m_pane.verticalScrollBar()->minimum();
    if (event.key() != Qt::Key_Space || event.isAutoRepeat() || !scrolls) {
        return false;
    }
    m_drags = true;
    m_pane.setInteractive(false);
    m_pane.setDragMode(QGraphicsView::ScrollHandDrag);
    return true;
}

bool CanvasKeys::release(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Space || event.isAutoRepeat() || !m_drags) {
        return false;
    }
    m_drags = false;
    m_pane.setDragMode(QGraphicsView::RubberBandDrag);
    m_pane.setInteractive(!m_pane.graph()->isProcessing());
    return true;
}
