#include "panes/canvas/graphpane.h"

#include "graph/colors.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QTimer>
#include <QWheelEvent>

namespace {

constexpr double leastFittedWidth = 658.8;
constexpr double leastFittedHeight = 329.4;

bool isWelcome(const QMimeData *data)
{
    return data->hasUrls() || data->hasText();
}

} // namespace

GraphPane::GraphPane(QWidget *parent)
    : QGraphicsView(parent)
{
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    setDragMode(QGraphicsView::RubberBandDrag);
    setAcceptDrops(true);
    setAccessibleName(QStringLiteral("Center pane"));
}

void GraphPane::setGraph(GraphScene *scene)
{
    if (m_scene) {
        m_scene->disconnect(this);
    }
    m_scene = scene;
    setScene(scene);
    connect(scene, &GraphScene::nodesAdded, this, &GraphPane::onNodesAdded);
    connect(scene, &GraphScene::nodesDeleted, this, &GraphPane::onNodesDeleted);
}

void GraphPane::onNodesAdded()
{
    onAutoZoom();
    viewport()->update();
}

void GraphPane::onNodesDeleted()
{
    onAutoZoom();
    viewport()->update();
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
    if (!m_scene->nodes().isEmpty()) {
        return;
    }
    painter->save();
    painter->resetTransform();
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    painter->setFont(font);
    painter->setPen(m_scene->colors().color(Colors::Arrow));
    painter->drawText(viewport()->rect(), Qt::AlignCenter,
        QStringLiteral("ADD YOUR DATA\ndrag files here; or\nclick [%1] or [%2] buttons")
            .arg(QStringLiteral("From File"), QStringLiteral("From Clipboard")));
    painter->restore();
}
