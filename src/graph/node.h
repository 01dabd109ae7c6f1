#pragma once

#include "data/dataset.h"
#include "data/datasource.h"
#include "graph/graphenums.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QGraphicsObject>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <memory>

class Colors;
class Connection;
class GraphScene;
class NodeLook;
class UndoStep;

/// A box on the canvas and the table that it last produced: the base of inputs, transforms, outputs, charts and notes.
/// The scene's items are the graph; there is no other model. Positions are those of the top left corner.
class Node : public QGraphicsObject, public DataSource
{
    Q_OBJECT

public:
    static constexpr int unlimited = 0x7FFFFFFF;
    static constexpr double boxWidth = 180.0;
    static constexpr double boxHeight = 90.0;

    /// An `id` of -1 takes the next free one of the document once the node comes into a scene.
    explicit Node(int id = -1);
    ~Node() override;
    Q_DISABLE_COPY(Node)

    // Identity and names
    /// A new node of the same kind, options, id, position, comment and, but for transforms, alias; without data or
    /// connections.
    Node *clone() const;
    int id() const override { return m_id; }
    void setId(int id);
    virtual QString name() const = 0;
    virtual QString listName() const { return name(); }
    virtual QString typeName() const { return name(); }
    virtual QString alternativeName() const { return name(); }
    QString kindName() const;
    QString labelWithId() const;
    const QString &alias() const { return m_alias; }
    void setAlias(const QString &text) { m_alias = text.trimmed(); }
    const QString &comment() const { return m_comment; }
    virtual void setComment(const QString &text);
    virtual QString description() const = 0;
    virtual QString helpPage() const = 0;
    /// A flag for whoever reads a document; nothing depends on it.
    void setFlagged(bool on) { m_flagged = on; }
    /// True only in the sample graph of the preferences.
    bool isPreview() const { return m_isPreview; }
    void setPreview(bool on) { m_isPreview = on; }

    // Result
    Dataset &dataset() { return m_dataset; }
    const Dataset &datasetConst() const override { return m_dataset; }
    void clearDataset() { m_dataset.clear(); }
    virtual bool isEmpty() const { return m_dataset.isEmpty(); }
    int rowCount() const { return m_isPreview ? 100000 : m_dataset.rowCount(); }
    int columnCount() const { return m_isPreview ? 100 : m_dataset.columnCount(); }
    virtual bool hasHeader() const { return m_dataset.hasHeader(); }
    QStringList columnNamesList() const { return m_dataset.columnNames(); }
    QString columnName(ColumnIndex column) const { return m_dataset.columnName(column); }
    QString columnsDescription(const QList<ColumnId> &ids, int maxNames) const override;
    /// One line a column: its number and name.
    QStringList columnsSummary() const;
    virtual bool hasInputPreview() const { return false; }

    // State
    virtual NodeState state() const { return m_isPreview ? NodeState::Processed : m_state; }
    /// With `propagate`, also on everything downstream, whether or not this node changed.
    void setState(NodeState state, bool propagate);
    static QString stateText(NodeState state);
    QString stateText() const { return stateText(state()); }
    virtual NodeStatusIcon statusIcon() const;
    bool hasRun() const { return state() == NodeState::Processed || state() == NodeState::Failed; }
    bool isReady() const override { return state() == NodeState::Processed; }
    QPointF sourcePosition() const override { return pos(); }
    qint64 processingMs() const { return m_processingMs; }
    const QDateTime &lastProcessed() const { return m_lastProcessed; }
    double fraction() const { return m_fraction; }
    void setFraction(double value) { m_fraction = value; }

    // Messages
    virtual QStringList warnings() const { return m_warnings; }
    virtual QStringList infos() const { return m_infos; }
    int warningCount() const { return warnings().size(); }
    bool hasWarnings() const { return !warnings().isEmpty(); }
    bool hasInfos() const { return !infos().isEmpty(); }
    QString warningsText(const QString &separator = QStringLiteral("\n")) const { return warnings().join(separator); }
    QString infosText(const QString &separator = QStringLiteral("\n")) const { return infos().join(separator); }
    /// The outcome of the last run in one line.
    virtual QString resultText() const = 0;
    /// "No data", the result or the error.
    QString statusMessage() const;
    /// One line for the log.
    QString logLine(bool detail) const;
    QString sizeText() const;
    virtual QString roundedSizeText() const;
    virtual QString displaySizeText() const { return sizeText(); }

    // Tool tip and information rows
    virtual QString toolTipHtml(bool detail) const;
    /// The dataset as an HTML table of at most `maxChars` characters, cells cut to `maxCellChars`.
    QString dataHtml(bool showHeader, int maxCellChars, int maxChars) const;
    /// Name, status, size and shape of the dataset.
    InfoRows generalRows() const;
    /// Comment, messages and times.
    InfoRows commentRows() const;
    static InfoRows fileRows(const QString &path);
    static InfoRows folderRows(const QString &path, const QString &mask, bool recurse);
    /// What only this kind has to tell.
    virtual InfoRows kindRows() const = 0;
    /// The options with their values.
    virtual InfoRows optionRows() const = 0;
    /// Id, alias, comment, number of connections, state and then what the kind adds: equal rows mean equal nodes.
    virtual QVariantList summaryRow() const;
    QStringList summaryStrings() const;

    // Connections and neighbours (nodetraversal.cpp)
    virtual int maxInputs() const = 0;
    virtual int maxOutputs() const = 0;
    void addConnection(Connection *connection);
    virtual void removeConnection(Connection *connection);
    QList<Connection *> connections(Direction which) const;
    void deleteConnections(Direction which);
    /// Marks everything downstream stale, deletes all connections and the node itself.
    void deleteNode();
    /// Direct neighbours; sorted from top to bottom, equal heights from left to right.
    QList<Node *> upstreamNodes(bool sorted) const;
    QList<Node *> downstreamNodes(bool sorted) const;
    QList<Node *> siblings(bool includeSelf) const;
    Node *previousSibling() const;
    Node *nextSibling() const;
    QSet<Node *> allUpstream(bool includeSelf) const;
    QSet<Node *> allDownstream(bool includeSelf) const;
    QSet<Node *> upstreamTree() const { return allUpstream(true); }
    /// `type` is a value of ItemType.
    QSet<Node *> allUpstreamOfKind(int type, bool includeSelf) const;
    QSet<Node *> allDownstreamOfKind(int type, bool includeSelf) const;
    /// The transforms on the paths from here.
    QSet<Node *> outputsFed(bool includeSelf) const;
    /// True when `node` lies upstream of this node.
    bool isUpstreamOf(const Node *node) const;
    /// True when a connection runs from `node` to this one.
    bool isDirectlyConnectedTo(const Node *node) const;
    /// True when this node may give another connection and some node could take it.
    bool canAcceptConnection() const;
    /// Length of the longest path upstream.
    int depth() const;
    bool upstreamAllProcessed() const;

    // Running
    virtual bool canProcess() const = 0;
    /// Makes the result when it is stale and all inputs are ready. With `recurse`, goes on downstream; with
    /// `releaseInputs`, drops upstream datasets that nobody waits for.
    void process(bool recurse, bool releaseInputs);
    /// Reports done/total at every `step`-th call; a `total` of 0 does nothing.
    void reportProgress(qint64 done, qint64 total, int step);
    virtual void beforeProcess() {}
    /// Lets column options look for lost columns by name, here and downstream.
    virtual void refreshColumnOptions();
    /// For a copy with another id, whose inputs are copies too: the columns that `original`'s options name are looked
    /// up by their places as soon as the inputs are known.
    virtual void takeColumnsAsText(const Node &original);
    /// The scene is live no more: lets go of data and of what it watches.
    virtual void goToRest();
    virtual void remapColumnIds(const QHash<ColumnId, ColumnId> &) {}
    /// Called after a connection to this node; for kinds that have to look at their new input.
    virtual void validateForOutput() {}
    /// How many options name columns; with `source`, only those that name columns of that node.
    virtual int columnOptionsInUse(const Node *source) const;
    virtual void connectToScene(GraphScene *scene);
    GraphScene *graphScene() const;

    // Canvas
    QPointF centre() const;
    void setCentre(const QPointF &point);
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    QRectF boxRect() const { return QRectF(0, 0, boxWidth, boxHeight); }
    virtual QColor borderColor() const = 0;
    virtual QColor boxColor() const = 0;
    virtual QColor textColor() const = 0;
    int gradientEffect() const;
    /// The colours of the scene, or of the program while in none.
    const Colors &colors() const;
    /// Name of the picture on the box, empty for none.
    virtual QString imageName() const { return QString(); }
    /// Where a connection touches the box; `offset` runs from 0 at the top to 1 at the bottom.
    QPointF connectionPoint(Direction side, double offset) const;
    /// What hangs on the box: shadow, handles, timing bar, highlight.
    NodeLook &look() { return *m_look; }
    const NodeLook &look() const { return *m_look; }
    QSet<Node *> attachedNotes() const { return m_attachedNotes; }
    virtual bool acceptsDrops() const { return true; }

public slots:
    /// The single entry of progress, 0 to 1: guards the memory ceiling, repaints and lets the window breathe.
    void onProcessed(qreal fractionProcessed);

signals:
    void nodePosChanged(QList<Node *> nodes);
    void processingStart(Node *node);
    void processingEnd(Node *node);
    void processed(Node *node, qreal fraction);

protected:
    Dataset m_dataset;
    NodeState m_state = NodeState::NeedsProcessing;
    qint64 m_processingMs = 0;
    QDateTime m_lastProcessed;
    QStringList m_warnings;
    QStringList m_infos;

    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    bool sceneEvent(QEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;

    // What of a run and of a copy differs between kinds (noderun.cpp has the rest)
    /// False ends a run before it has begun; says why and sets the state.
    virtual bool mayRun() { return true; }
    /// The old result is gone and the options know the inputs: time to look for lost columns.
    virtual void prepareRun() {}
    /// Makes the result in m_dataset. False when it failed; messages tell why.
    virtual bool produce() = 0;
    /// A new node of this kind with these options and this id.
    virtual Node *cloneKind() const = 0;

    /// Lets this node's column options look for lost columns by name. Kinds that nothing is downstream of need only
    /// refreshColumnOptions().
    virtual void allowReconnect() { refreshColumnOptions(); }

private:
    int m_id;
    bool m_flagged = false;
    bool m_isPreview = false;
    double m_fraction = 0.0;
    QElapsedTimer m_lastFractionTime;
    QString m_alias;
    QString m_comment;
    QList<Connection *> m_connections;
    QSet<Node *> m_attachedNotes;
    std::unique_ptr<NodeLook> m_look;
    std::unique_ptr<UndoStep> m_moveStep;
    quint64 m_walkedRun = 0;
    friend class Connection;
    void run();
    void startProcessing();
    void prepareDownstream();
    void processDownstream(bool releaseInputs);
    bool enterWalk();
    void releaseUpstreamDatasets();
    void applyState(NodeState state);
    void finishMove();
    void takeNumber();
};
