#pragma once

#include <QGraphicsView>
#include <QList>
#include <QUrl>

class GraphScene;

/// The view of the canvas: zooms, scrolls and takes dropped files. While it fits the graph it goes on fitting it, until
/// the user zooms.
class GraphPane : public QGraphicsView
{
    Q_OBJECT

public:
    static constexpr double smallestScale = 0.1;
    static constexpr double largestScale = 3.0;

    explicit GraphPane(QWidget *parent = nullptr);

    /// Shows another scene; a kept zoom stays as it is. Null only before the first.
    void setGraph(GraphScene *scene);

    bool isAutoZoom() const { return m_autoZoom; }
    double scale() const { return transform().m11(); }
    bool canZoomIn() const { return scale() < largestScale; }
    bool canZoomOut() const { return scale() > smallestScale; }

public slots:
    void onNodesAdded();
    void onNodesDeleted();
    /// Fits the graph if it is being kept fitted.
    void onAutoZoom();
    void onZoomToFit();
    /// Fits the selected items, within the limits of the zoom.
    void onZoomSelected();
    /// Stops keeping the graph fitted, and leaves the view as it is.
    void onZoomFree();
    void onZoomIn();
    void onZoomOut();
    void onZoomIn(int sensitivity);
    void onZoomOut(int sensitivity);
    void onProcessDroppedPaths(const QList<QUrl> &urls, const QPointF &scenePos);

signals:
    /// The scale changed, or whether the graph is kept fitted.
    void zoomChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    void zoomBy(double factor);
    void fit();

    GraphScene *m_scene = nullptr;
    bool m_autoZoom = true;
};
