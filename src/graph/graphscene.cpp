#include "graph/graphscene.h"

#include "graph/colors.h"
#include "graph/connection.h"
#include "graph/connectionguide.h"
#include "graph/engine.h"
#include "graph/graphcopy.h"
#include "graph/graphedit.h"
#include "graph/ionode.h"
#include "graph/nodeadder.h"
#include "graph/nodelook.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "graph/undostep.h"
#include "platform/waitcursor.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QAction>
#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <optional>

namespace {

constexpr qint64 pumpIntervalMs = 500;

QElapsedTimer &lastPump()
{
    static QElapsedTimer timer;
    return timer;
}

} // namespace

GraphScene::GraphScene(QObject *parent)
    : GraphScene(std::make_shared<DocumentState>(), parent)
{
}

GraphScene::GraphScene(std::shared_ptr<DocumentState> document, QObject *parent)
    : GraphItems(std::move(document), parent)
{
}

GraphScene::~GraphScene()
{
    clearAll();
}

// Adding

bool GraphScene::canAddTransform(const Transform *transform, int inputs, int transforms, int outputs, int charts,
    int notes, int connectionCount) const
{
    return NodeAdder::canAddTransform(*transform, inputs, transforms, outputs, charts, notes, connectionCount);
}

TransformNode *GraphScene::addTransform(const Transform *prototype)
{
    return NodeAdder(*this).addTransform(*prototype);
}

IONode *GraphScene::addInputFromPath(const QString &path, const QPointF &scenePos)
{
    return addInputsFromPaths({path}, scenePos).value(0);
}

QList<IONode *> GraphScene::addInputsFromPaths(const QStringList &paths, const QPointF &scenePos)
{
    return NodeAdder(*this).addInputs(paths, scenePos);
}

IONode *GraphScene::addInputFromClipboard(const QString &text, const QPointF &scenePos)
{
    return NodeAdder(*this).addClipboardInput(text, scenePos);
}

IONode *GraphScene::addOutput(const QString &path, int fileType)
{
    return NodeAdder(*this).addOutput(path, fileType);
}

Node *GraphScene::addChart()
{
    return NodeAdder(*this).addChart();
}

NoteNode *GraphScene::addNote(const QPointF &pos, NoteArrow::Arrow arrow)
{
    return NodeAdder(*this).addNote(pos, arrow);
}

void GraphScene::insertNode(Node *node, const QPointF &pos)
{
    node->setPos(pos);
    addItem(node);
    node->connectToScene(this);
}

Connection *GraphScene::insertConnection(Node *from, Node *to)
{
    auto *connection = new Connection(from, to);
    addItem(connection);
    return connection;
}

void GraphScene::onAddedTransformFromRightClick()
{
    const auto *action = qobject_cast<const QAction *>(sender());
    const std::unique_ptr<Transform> prototype(action ? Catalogue::create(action->data().toString()) : nullptr);
    if (prototype) {
        addTransform(prototype.get());
    }
}

// Connecting

QList<Node *> GraphScene::connectableTargets(const Node *from) const
{
    return GraphEdit(*const_cast<GraphScene *>(this)).connectableTargets(from);
}

void GraphScene::startConnection(Node *node)
{
    endConnection();
    if (!node->canAcceptConnection()) {
        return;
    }
    m_connectFromNode = node;
    m_connectionGuide = new ConnectionGuide(node->connectionPoint(Direction::Outgoing, 0.5));
    addItem(m_connectionGuide);
    node->setFlag(QGraphicsItem::ItemIsMovable, false);
    node->look().hideConnectFromOverlay();
    clearSelection();
    for (Node *target : connectableTargets(node)) {
        target->look().showConnectToOverlay();
    }
    update();
}

void GraphScene::connectNodes(Node *to)
{
    Node *from = m_connectFromNode;
    if (!from || !connectableTargets(from).contains(to)) {
        endConnection();
        return;
    }
    const UndoStep step(*this, QStringLiteral("add connection"));
    endConnection();
    GraphEdit(*this).connectNodes(from, to);
}

void GraphScene::endConnection()
{
    delete m_connectionGuide;
    m_connectionGuide = nullptr;
    if (!m_connectFromNode) {
        return;
    }
    m_connectFromNode->setFlag(QGraphicsItem::ItemIsMovable);
    m_connectFromNode = nullptr;
    for (Node *node : nodes()) {
        node->look().hideConnectToOverlay();
    }
    update();
}

void GraphScene::onConnectFromSelected()
{
    const QList<Node *> selected = nodes(true);
    if (selected.size() == 1) {
        startConnection(selected.first());
    }
}

void GraphScene::disconnectSelected(Direction direction)
{
    GraphEdit(*this).disconnectSelected(direction);
}

int GraphScene::columnDependentOptionsDownstream(Direction direction) const
{
    return GraphEdit(*const_cast<GraphScene *>(this)).columnOptionsAtRisk(direction);
}

// Removing

void GraphScene::deleteSelected()
{
    GraphEdit(*this).deleteSelected();
}

void GraphScene::clearAll()
{
    const QSignalBlocker blocker(this);
    m_connectionGuide = nullptr;
    m_connectFromNode = nullptr;
    clear();
    update();
}

// Runs

void GraphScene::runTransforms(RunMode mode, bool quiet)
{
    if (m_processing) {
        return;
    }
    std::optional<WaitCursor> cursor;
    const QScopedValueRollback<bool> processing(m_processing, true);
    emit allowUserInteraction(false);
    cursor.emplace();
    Engine(*this).run(mode, quiet);
    emit allowUserInteraction(true);
}

void GraphScene::runChangesIfAuto()
{
    // A run under way must keep the stop that the user asked of it.
    if (!isAutoRunOn() || m_processing) {
        return;
    }
    stopRequested = false;
    runTransforms(RunMode::Changes, false);
    stopRequested = false;
}

void GraphScene::onSourceChanged(Node *node)
{
    if (!m_processing) {
        node->setState(NodeState::NeedsProcessing, true);
        runChangesIfAuto();
    }
}

void GraphScene::onProcessingStart(Node *node)
{
    emit nodeDataChanged(node);
    emit showStatusBarMessage(QStringLiteral("Processing '%1'").arg(node->name()));
}

void GraphScene::onProcessed(Node *, qreal fractionProcessed)
{
    QElapsedTimer &last = lastPump();
    if (last.isValid() && last.elapsed() < pumpIntervalMs && fractionProcessed < 1.0 && fractionProcessed > 0.0) {
        return;
    }
    last.start();
    RunControl::keepAlive();
}

void GraphScene::onProcessingEnd(Node *node)
{
    node->onProcessed(1.0);
    emit nodeDataChanged(node);
    ++m_itemsProcessed;
    const bool inRange = m_itemsToProcess >= 1 && m_itemsProcessed <= m_itemsToProcess;
    emit showProgress(inRange ? m_itemsProcessed * 100 / m_itemsToProcess : 100);
    emit nodeProcessed(node);
}

// Copies

std::unique_ptr<GraphScene> GraphScene::copy() const
{
    return GraphCopy::sceneCopy(*this);
}

std::unique_ptr<GraphScene> GraphScene::copyForRun() const
{
    return GraphCopy::sceneForRun(*this);
}

bool GraphScene::sameAs(const GraphScene &other) const
{
    return GraphCopy::areSame(*this, other);
}

void GraphScene::pasteScene(const GraphScene &source, const QPointF *position)
{
    GraphCopy::paste(*this, source, position);
}

void GraphScene::duplicateBranch()
{
    GraphCopy::duplicateBranch(*this);
}

void GraphScene::goToRest()
{
    endConnection();
    clearSelection();
    for (Node *node : nodes()) {
        node->goToRest();
    }
}

// Places

void GraphScene::snapAllNodes()
{
    const QList<Node *> moved = snapNodes(nodes());
    if (!moved.isEmpty()) {
        onPosChanged(moved);
    }
}

void GraphScene::placeAvoidingOverlap(Node *node, const QPointF &centre, bool horizontal)
{
    NodePlacement::placeAvoidingOverlap(node, centre, horizontal, *this);
}

void GraphScene::onPosChanged(QList<Node *> moved)
{
    if (snapToGrid()) {
        snapNodes(moved);
    }
    QList<Node *> fed;
    for (const Node *node : qAsConst(moved)) {
        for (Node *target : node->downstreamNodes(true)) {
            if (!fed.contains(target)) {
                fed.append(target);
            }
        }
    }
    bool changed = false;
    for (Node *node : qAsConst(fed)) {
        auto *target = qgraphicsitem_cast<TransformNode *>(node);
        if (target && target->upstreamNodes(false).size() >= 2 && target->updateInputOrder()) {
            emit nodeParametersChanged(target);
            target->setState(NodeState::NeedsProcessing, true);
            changed = true;
        }
    }
    updateSceneRect();
    // All of them: a box may have come into the way of any, or left it.
    layOutConnections();
    if (changed) {
        runChangesIfAuto();
    }
    emit nodesPosChanged();
}
