#pragma once

#include "graph/graphitems.h"

class Colors;
class ConnectionGuide;
class Transform;

/// The graph: nodes, the connections between them, and the runs over them. Adding, connecting and deleting are each
/// one step of undo unless said.
class GraphScene : public GraphItems
{
    Q_OBJECT

public:
    /// A scene of a document of its own.
    explicit GraphScene(QObject *parent = nullptr);
    /// One more scene of a document.
    explicit GraphScene(std::shared_ptr<DocumentState> document, QObject *parent = nullptr);
    ~GraphScene() override;

    // Adding; each gives null or an empty list when nothing was added
    bool canAddTransform(const Transform *transform, int inputs, int transforms, int outputs, int charts, int notes,
        int connections) const;
    TransformNode *addTransform(const Transform *prototype);
    /// A null `scenePos` chooses a free place.
    IONode *addInputFromPath(const QString &path, const QPointF &scenePos = QPointF());
    QList<IONode *> addInputsFromPaths(const QStringList &paths, const QPointF &scenePos = QPointF());
    IONode *addInputFromClipboard(const QString &text, const QPointF &scenePos = QPointF());
    IONode *addOutput(const QString &path, int fileType);
    Node *addChart();
    NoteNode *addNote(const QPointF &pos, NoteArrow::Arrow arrow);
    /// Adds a node that a document brings, at its place; no step of undo, no signal but nodesAdded later.
    void insertNode(Node *node, const QPointF &pos);
    /// Joins two nodes without any check or step of undo, for documents and copies.
    Connection *insertConnection(Node *from, Node *to);

    // Connecting
    QList<Node *> connectableTargets(const Node *from) const;
    /// Shows a rubber band from `node` and handles on everything that it may be connected to.
    void startConnection(Node *node);
    bool isConnecting() const { return m_connectionGuide; }
    /// From the node of startConnection() to `to`.
    void connectNodes(Node *to);
    void endConnection();
    /// Lets the rubber band end there.
    void setConnectionEnd(const QPointF &point);
    void disconnectSelected(Direction direction);
    /// How many column options a disconnection of the selected nodes would reset.
    int columnDependentOptionsDownstream(Direction direction) const;

    // Removing; the caller makes the step of undo
    void deleteSelected();
    void clearAll();

    // Copies
    /// One more scene of this document with all items, which have no data.
    std::unique_ptr<GraphScene> copy() const;
    /// A scene of a document of its own with all items, which have no data: for runs on other files, never shown.
    std::unique_ptr<GraphScene> copyForRun() const;
    /// True when items, options, places and connections are the same.
    bool sameAs(const GraphScene &other) const;
    /// Adds and selects copies of all items of `source`, at `position` or at a free place; the caller makes the step of
    /// undo.
    void pasteScene(const GraphScene &source, const QPointF *position = nullptr);
    /// Copies the selected items with all that is downstream.
    void duplicateBranch();
    /// Another scene takes this one's place: it keeps what undo needs and lets go of data and watched files.
    void goToRest();

    // Runs
    void runTransforms(RunMode mode, bool quiet);
    bool isProcessing() const { return m_processing; }
    void runChangesIfAuto();

    // Places
    /// For a person who turns the grid on: snaps every node and tells of the moves.
    void snapAllNodes();
    void placeAvoidingOverlap(Node *node, const QPointF &centre, bool horizontal);
    /// The colours in use: an override of the preview in the preferences, else those of the program.
    const Colors &colors() const;
    void setColorsOverride(const Colors *colors);
    /// Draws everything anew, after a change of colours or of what is shown.
    void refresh();

public slots:
    void onDuplicateBranch() { duplicateBranch(); }
    void onHighlightTransformNodes(bool on, int transformType);
    void onPosChanged(QList<Node *> nodes);
    void onSourceChanged(Node *node);
    void onProcessingStart(Node *node);
    void onProcessed(Node *node, qreal fractionProcessed);
    void onProcessingEnd(Node *node);
    void onConnectFromSelected();
    void onAddedTransformFromRightClick();

signals:
    void nodesAdded();
    void nodesDeleted();
    void nodesPosChanged();
    void nodeDataChanged(Node *node);
    void nodeParametersChanged(TransformNode *node);
    void completedTransforms();
    void fileOpen(const QString &path);
    void showStatusBarMessage(const QString &text);
    void showWarningMessage(const QString &text);
    void showCriticalMessage(const QString &text);
    void showTempMessage(const QString &text);
    void showLogMessage(const QString &text);
    void nodeProcessed(Node *node);
    void showProgress(int percent);
    void showProgressBusyStart();
    void showProgressBusyEnd();
    void allowUserInteraction(bool allow);
    void doubleClickNode();
    void transformNodeAddedByUser(const QString &typeName);

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;

private:
    friend class Engine;
    bool m_processing = false;
    ConnectionGuide *m_connectionGuide = nullptr;
    Node *m_connectFromNode = nullptr;
    int m_itemsToProcess = 0;
    int m_itemsProcessed = 0;
    const Colors *m_colorsOverride = nullptr;
    bool m_doubleClicked = false;
};
