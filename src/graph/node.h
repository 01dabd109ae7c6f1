#pragma once

#include "graph/nodebox.h"
#include "graph/nodeedges.h"
#include "graph/noderesult.h"

#include <QElapsedTimer>
#include <QVariant>
#include <memory>

class NodeDrag;
class NodeLook;

/// A box on the canvas and the table that it last produced: the base of inputs, transforms, outputs, charts and notes.
/// The scene's items are the graph; there is no other model.
class Node : public NodeBox, public NodeResult, public NodeEdges
{
    Q_OBJECT

public:
    static constexpr int unlimited = 0x7FFFFFFF;

    /// An `id` of -1 takes the next free one of the document once the node comes into a scene.
    explicit Node(int id = -1);
    ~Node() override;

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
    virtual bool hasInputPreview() const { return false; }
    QPointF sourcePosition() const override { return pos(); }
    /// With `propagate`, also on everything downstream, whether or not this node changed.
    void setState(NodeState state, bool propagate);
    /// Marks everything downstream stale, deletes all connections and the node itself.
    void deleteNode();

    // Tool tip and information rows (nodetooltip.cpp)
    /// One line for the log.
    QString logLine(bool detail) const;
    virtual QString toolTipHtml(bool detail) const;
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

    // Canvas
    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    /// What hangs on the box: shadow, handles, timing bar, highlight.
    NodeLook &look() { return *m_look; }
    const NodeLook &look() const { return *m_look; }
    /// The notes that move with the node while it is dragged.
    const QSet<Node *> &attachedNotes() const;
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
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    bool sceneEvent(QEvent *event) override;

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
    QElapsedTimer m_lastFractionTime;
    QString m_alias;
    QString m_comment;
    std::unique_ptr<NodeLook> m_look;
    std::unique_ptr<NodeDrag> m_drag;
    quint64 m_walkedRun = 0;
    void run();
    void startProcessing();
    void prepareDownstream();
    void processDownstream(bool releaseInputs);
    bool enterWalk();
    void releaseUpstreamDatasets();
    void applyState(NodeState state);
    void takeNumber();
};
