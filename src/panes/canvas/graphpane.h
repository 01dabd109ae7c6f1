#pragma once

#include "panes/canvas/canvasactions.h"
#include "panes/canvas/canvaskeys.h"
#include "panes/canvas/emptycanvas.h"
#include "panes/canvas/keyboardconnection.h"

#include <QGraphicsView>
#include <QList>
#include <QTimer>
#include <QUrl>

class GraphScene;
class QMenu;
class TypeableMenu;

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

    /// Null only before the first.
    GraphScene *graph() const { return m_scene; }
    /// What its context menu offers.
    void setActions(const CanvasActions &actions) { m_actions = actions; }
    /// Offered where the canvas is empty.
    void setExamples(QMenu &menu) { m_emptyCanvas.setExamples(menu); }
    const EmptyCanvas &emptyCanvas() const { return m_emptyCanvas; }
    KeyboardConnection &keyboardConnection() { return m_connection; }
    /// Opens the menu of transforms at what is selected, with `typed` entered.
    void openTransformMenu(const QString &typed);

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
    /// A lens follows the cursor.
    void onMagnifyUnderCursor(bool on);
    /// Lets the keyboard connect the selected item.
    void onConnectByKeyboard();
    /// During a run the canvas shows what has changed a few times a second, not after each item.
    void setRunning(bool on);
    void onProcessDroppedPaths(const QList<QUrl> &urls, const QPointF &scenePos);

signals:
    /// The scale changed, or whether the graph is kept fitted.
    void zoomChanged();
    void zoomButtonClicked();
    /// A key was pressed with one note selected.
    void typedCharInNote(QChar c);
    void statusMessage(const QString &text);
    /// By whoever uses the canvas through its accessible items.
    void runSelectedRequested();
    void optionsRequested();

protected:
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    void zoomBy(double factor);
    void fit();
    bool showToolTip(const QHelpEvent &event);
    /// Opens the context menu there; what lies under it is selected unless it is already.
    void openContextMenu(const QPoint &place);
    /// The middle of what is selected, in the viewport.
    QPoint selectionPoint() const;
    void addTransform(const QString &typeName);

    GraphScene *m_scene = nullptr;
    bool m_autoZoom = true;
    bool m_magnifies = false;
    CanvasActions m_actions;
    CanvasKeys m_keys{*this};
    KeyboardConnection m_connection;
    EmptyCanvas m_emptyCanvas{*this};
    QTimer m_runRepaint;
};
