#include "panes/canvas/graphpane.h"

#include "graph/colors.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/canvas/canvasaccessible.h"
#include "panes/canvas/canvasmenu.h"
#include "panes/canvas/magnifier.h"
#include "panes/canvas/typeablemenu.h"
#include "settings/product.h"
#include "settings/settings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr double leastFittedWidth = 658.8;
constexpr double leastFittedHeight = 329.4;
constexpr double fitMargin = 24.0;
constexpr int runRepaintMs = 200;

bool isWelcome(const QMimeData *data)
{
    return data->hasUrls() || data->hasText();
}

} // namespace

GraphPane::GraphPane(QWidget *parent)
    // Before the base class can ask for an accessible of its own.
    : QGraphicsView((CanvasAccessible::install(), parent))
{
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    setDragMode(QGraphicsView::RubberBandDrag);
    setAcceptDrops(true);
    setAccessibleName(QStringLiteral("Center pane"));
    connect(&m_runRepaint, &QTimer::timeout, viewport(), QOverload<>::of(&QWidget::update));
    connect(&m_connection, &KeyboardConnection::message, this, &GraphPane::statusMessage);
    connect(&m_connection, &KeyboardConnection::targetChanged, this, [this](Node *target) {
        if (target) {
            ensureVisible(target);
        }
    });
}

void GraphPane::setGraph(GraphScene *scene)
{
    if (m_scene) {
        m_scene->disconnect(this);
    }
    m_connection.cancel();
    m_scene = scene;
    setScene(scene);
    connect(scene, &GraphScene::nodesAdded, this, &GraphPane::onNodesAdded);
    connect(scene, &GraphScene::nodesDeleted, this, &GraphPane::onNodesDeleted);
    connect(scene, &QGraphicsScene::selectionChanged, this, [this] { CanvasAccessible::notifySelection(*this); });
    m_emptyCanvas.update();
}

void GraphPane::setRunning(bool on)
{
    setInteractive(!on);
    setViewportUpdateMode(on ? QGraphicsView::NoViewportUpdate : QGraphicsView::MinimalViewportUpdate);
    if (on) {
        m_runRepaint.start(runRepaintMs);
    } else {
        m_runRepaint.stop();
        viewport()->update();
    }
}

void GraphPane::onNodesAdded()
{
    // Whoever has added something goes on with it: by typing, connecting or walking.
    setFocus();
    onAutoZoom();
    m_emptyCanvas.update();
    viewport()->update();
    CanvasAccessible::notifyItems(*this);
}

void GraphPane::onNodesDeleted()
{
    onAutoZoom();
    m_emptyCanvas.update();
    viewport()->update();
    CanvasAccessible::notifyItems(*this);
}

void GraphPane::onAutoZoom()
{
    if (m_autoZoom) {
        fit();
    }
}

void GraphPane::onZoomToFit()
{
    m_autoZoom = true;
    fit();
    m_emptyCanvas.update();
}

void GraphPane::onZoomFree()
{
    m_autoZoom = false;
    emit zoomChanged();
}

void GraphPane::fit()
{
    if (!m_scene) {
        return;
    }
    m_scene->updateSceneRect();
    QRectF rect = m_scene->sceneRect();
    const double width = qMax(rect.width(), leastFittedWidth);
    const double height = qMax(rect.height(), leastFittedHeight);
    rect = QRectF(rect.center().x() - width / 2, rect.center().y() - height / 2, width, height);
    // Room for the shadows.
    rect.adjust(-fitMargin, -fitMargin, fitMargin, fitMargin);
    fitInView(rect, Qt::KeepAspectRatio);
    emit zoomChanged();
}

void GraphPane::onZoomSelected()
{
    QRectF area;
    for (const Node *node : m_scene->nodes(true)) {
        area = area.united(node->mapRectToScene(node->boundingRect()));
    }
    if (area.isEmpty()) {
        return;
    }
    m_autoZoom = false;
    fitInView(area, Qt::KeepAspectRatio);
    const double target = qBound(smallestScale, scale(), largestScale);
    setTransform(QTransform::fromScale(target, target));
    centerOn(area.center());
    emit zoomChanged();
}

void GraphPane::onZoomIn()
{
    onZoomIn(Settings::current().mouseWheelSensitivity());
}

void GraphPane::onZoomOut()
{
    onZoomOut(Settings::current().mouseWheelSensitivity());
}

void GraphPane::onZoomIn(int sensitivity)
{
    zoomBy(Settings::wheelFactor(sensitivity));
}

void GraphPane::onZoomOut(int sensitivity)
{
    zoomBy(1.0 / Settings::wheelFactor(sensitivity));
}

void GraphPane::zoomBy(double factor)
{
    if (factor > 1.0 ? !canZoomIn() : !canZoomOut()) {
        return;
    }
    m_autoZoom = false;
    const double target = qBound(smallestScale, scale() * factor, largestScale);
    setTransform(QTransform::fromScale(target, target));
    emit zoomChanged();
}

void GraphPane::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    onAutoZoom();
    m_emptyCanvas.update();
}

void GraphPane::wheelEvent(QWheelEvent *event)
{
    const WheelBehaviour behaviour = Settings::current().mouseWheelBehaviour();
    const bool swap = event->modifiers() & Qt::ControlModifier;
    const int delta = event->angleDelta().y();
    if (behaviour == WheelBehaviour::Nothing || !isInteractive()) {
        event->accept();
        return;
    }
    const bool zooms = (behaviour == WheelBehaviour::Scroll) == swap;
    if (!zooms) {
        // The view itself would take Ctrl for something else.
        event->setModifiers(event->modifiers() & ~Qt::ControlModifier);
        QGraphicsView::wheelEvent(event);
        return;
    }
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    if (delta != 0) {
        ((delta > 0) != (behaviour == WheelBehaviour::ZoomOut)) ? onZoomIn() : onZoomOut();
    }
    setTransformationAnchor(QGraphicsView::AnchorViewCenter);
    event->accept();
}

void GraphPane::dragEnterEvent(QDragEnterEvent *event)
{
    if (isInteractive() && isWelcome(event->mimeData())) {
        event->acceptProposedAction();
    }
}

void GraphPane::dragMoveEvent(QDragMoveEvent *event)
{
    if (isInteractive() && isWelcome(event->mimeData())) {
        event->acceptProposedAction();
    }
}

void GraphPane::dropEvent(QDropEvent *event)
{
    if (!isInteractive() || !isWelcome(event->mimeData())) {
        return;
    }
    event->acceptProposedAction();
    const QPointF scenePos = mapToScene(event->pos());
    if (event->mimeData()->hasUrls()) {
        // The drag has to end before any dialog comes.
        const QList<QUrl> urls = event->mimeData()->urls();
        QTimer::singleShot(0, this, [this, urls, scenePos] { onProcessDroppedPaths(urls, scenePos); });
    } else {
        m_scene->addInputFromClipboard(event->mimeData()->text(), scenePos);
    }
}

void GraphPane::onProcessDroppedPaths(const QList<QUrl> &urls, const QPointF &scenePos)
{
    QStringList files;
    for (const QUrl &url : urls) {
        const QString path = url.toLocalFile();
        if (QFileInfo(path).suffix() == QLatin1String(Product::documentSuffix)) {
            emit m_scene->fileOpen(path);
            return;
        }
        if (!path.isEmpty()) {
            files.append(path);
        }
    }
    if (!files.isEmpty()) {
        m_scene->addInputsFromPaths(files, scenePos);
    }
}

void GraphPane::drawForeground(QPainter *painter, const QRectF &)
{
    if (m_scene->nodes().isEmpty()) {
        m_emptyCanvas.paint(*painter);
    }
}

// Keys, menus and tips

void GraphPane::keyPressEvent(QKeyEvent *event)
{
    if (m_connection.handleKey(*event) || m_keys.press(*event)) {
        event->accept();
    } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        openContextMenu(selectionPoint());
    } else {
        QGraphicsView::keyPressEvent(event);
    }
}

void GraphPane::keyReleaseEvent(QKeyEvent *event)
{
    if (m_keys.release(*event)) {
        event->accept();
    } else {
        QGraphicsView::keyReleaseEvent(event);
    }
}

void GraphPane::onConnectByKeyboard()
{
    setFocus();
    m_connection.start(*m_scene);
}

QPoint GraphPane::selectionPoint() const
{
    const QList<Node *> nodes = m_scene->nodes(true);
    const QList<Connection *> connections = m_scene->connections(true);
    if (!nodes.isEmpty()) {
        return mapFromScene(nodes.first()->centre());
    }
    return connections.isEmpty() ? viewport()->rect().center() : mapFromScene(connections.first()->middle());
}

void GraphPane::openTransformMenu(const QString &typed)
{
    auto *menu = new TypeableMenu(*m_scene, typed, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // The menu has to be gone before the run begins.
    connect(menu, &TypeableMenu::transformChosen, this, &GraphPane::addTransform, Qt::QueuedConnection);
    menu->popup(viewport()->mapToGlobal(selectionPoint()));
}

void GraphPane::addTransform(const QString &typeName)
{
    const std::unique_ptr<Transform> prototype(Catalogue::create(typeName));
    if (prototype) {
        m_scene->addTransform(prototype.get());
    }
}

void GraphPane::contextMenuEvent(QContextMenuEvent *event)
{
    if (isInteractive()) {
        openContextMenu(event->reason() == QContextMenuEvent::Keyboard ? selectionPoint() : event->pos());
    }
    event->accept();
}

void GraphPane::openContextMenu(const QPoint &place)
{
    if (!isInteractive() || m_scene->isProcessing()) {
        return;
    }
    m_connection.cancel();
    QGraphicsItem *item = itemAt(place);
    const bool canBeSelected = item && item->flags() & QGraphicsItem::ItemIsSelectable;
    if (!canBeSelected || !item->isSelected()) {
        m_scene->clearSelection();
        if (canBeSelected) {
            item->setSelected(true);
        }
    }
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("CanvasMenu"));
    const QPointF scenePos = mapToScene(place);
    CanvasMenu(m_actions, *m_scene, scenePos).fill(menu);
    if (m_actions.paste) {
        m_actions.paste->setData(scenePos);
    }
    menu.exec(viewport()->mapToGlobal(place));
    if (m_actions.paste) {
        m_actions.paste->setData(QVariant());
    }
}

bool GraphPane::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        return showToolTip(*static_cast<QHelpEvent *>(event));
    }
    if (event->type() == QEvent::Leave && m_magnifies) {
        viewport()->update();
    }
    return QGraphicsView::viewportEvent(event);
}

bool GraphPane::showToolTip(const QHelpEvent &event)
{
    const CanvasTips tips = Settings::current().showCenterPaneTips();
    const Node *node = nullptr;
    for (QGraphicsItem *item = itemAt(event.pos()); item && !node; item = item->parentItem()) {
        node = qobject_cast<Node *>(item->toGraphicsObject());
    }
    if (!node || tips == CanvasTips::Off) {
        QToolTip::hideText();
        return true;
    }
    const QRect area = mapFromScene(node->mapRectToScene(node->boxRect())).boundingRect();
    QToolTip::showText(event.globalPos(), node->toolTipHtml(tips == CanvasTips::Detailed), viewport(), area);
    return true;
}

// Magnifier

void GraphPane::onMagnifyUnderCursor(bool on)
{
    m_magnifies = on;
    viewport()->setMouseTracking(true);
    viewport()->update();
}

void GraphPane::mouseMoveEvent(QMouseEvent *event)
{
    QGraphicsView::mouseMoveEvent(event);
    if (m_magnifies) {
        viewport()->update();
    }
}

void GraphPane::paintEvent(QPaintEvent *event)
{
    QGraphicsView::paintEvent(event);
    const QPoint cursor = viewport()->mapFromGlobal(QCursor::pos());
    if (m_magnifies && viewport()->rect().contains(cursor)) {
        QPainter painter(viewport());
        Magnifier::paint(*this, painter, cursor);
    }
}
