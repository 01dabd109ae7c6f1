#include "graph/graphedit.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "graph/undostep.h"
#include "platform/waitcursor.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QPair>
#include <QSet>

namespace {

constexpr int tipMs = 20000;

} // namespace

QList<Node *> GraphEdit::connectableTargets(const Node *from) const
{
    const QSet<Node *> upstream = from->allUpstream(false);
    QList<Node *> targets;
    for (Node *node : m_scene.nodes()) {
        if (node != from && node->connections(Direction::Incoming).size() < node->maxInputs()
            && !node->isDirectlyConnectedTo(from) && !upstream.contains(node)) {
            targets.append(node);
        }
    }
    return targets;
}

void GraphEdit::connectNodes(Node *from, Node *to)
{
    const WaitCursor cursor;
    m_scene.insertConnection(from, to);
    m_scene.layOutConnections({from, to});
    if (auto *target = qgraphicsitem_cast<TransformNode *>(to)) {
        target->setInputsChanged(true);
        emit m_scene.nodeParametersChanged(target);
    } else {
        to->refreshColumnOptions();
    }
    to->validateForOutput();
    m_scene.endConnection();
    to->setState(NodeState::NeedsProcessing, true);
    m_scene.runChangesIfAuto();
}

// Disconnecting

int GraphEdit::columnOptionsAtRisk(Direction direction) const
{
    QSet<Node *> cutOff; // loses all its inputs
    QSet<Node *> affected;
    int count = 0;
    const QList<Node *> selected = m_scene.nodes(true);
    for (Node *node : selected) {
        if (direction != Direction::Outgoing && !node->upstreamNodes(false).isEmpty()) {
            cutOff.insert(node);
            count += node->columnOptionsInUse(nullptr);
        }
    }
    affected = cutOff;
    for (Node *node : selected) {
        if (direction == Direction::Incoming) {
            break;
        }
        for (Node *target : node->downstreamNodes(false)) {
            affected.insert(target);
            count += cutOff.contains(target) ? 0 : target->columnOptionsInUse(node);
        }
    }
    QSet<Node *> below;
    for (const Node *node : qAsConst(affected)) {
        below += node->allDownstream(false);
    }
    below -= affected;
    for (const Node *node : qAsConst(below)) {
        count += node->columnOptionsInUse(nullptr);
    }
    return count;
}

void GraphEdit::disconnectSelected(Direction direction)
{
    const int atRisk = columnOptionsAtRisk(direction);
    const QString question = QStringLiteral(
        "This disconnection may reset %1 column related option(s) downstream. Are you sure you want to do that?\n\n"
        "Note that you can insert a transform by selecting an exiting connection then adding a transform.");
    if (atRisk >= 1 && !m_scene.document()->hooks.confirm(question.arg(atRisk))) {
        return;
    }
    const UndoStep step(m_scene, QStringLiteral("disconnect"));
    for (Node *node : m_scene.nodes(true)) {
        const bool hasInputs = !node->connections(Direction::Incoming).isEmpty();
        if (direction != Direction::Outgoing && hasInputs) {
            node->setState(NodeState::NeedsProcessing, true);
        } else if (direction != Direction::Incoming) {
            for (Node *target : node->downstreamNodes(true)) {
                target->setState(NodeState::NeedsProcessing, true);
            }
        }
        node->deleteConnections(direction);
    }
    m_scene.layOutConnections();
    m_scene.runChangesIfAuto();
}

// Deleting

void GraphEdit::deleteSelected()
{
    m_scene.endConnection();
    const bool onlyConnections = deleteSelectedConnections();
    const QList<TransformNode *> transforms = m_scene.transformNodes(true);
    for (TransformNode *node : transforms) {
        const QList<Node *> sources = node->upstreamNodes(false);
        const bool gives = !node->connections(Direction::Outgoing).isEmpty();
        if (sources.size() == 1 && gives && !sources.first()->isSelected()) {
            bridge(node);
        }
    }
    for (Node *node : m_scene.nodes(true)) {
        node->deleteNode();
    }
    removeDoubleConnections();
    m_scene.layOutConnections();
    m_scene.updateSceneRect();
    m_scene.runChangesIfAuto();
    emit m_scene.nodesDeleted();
    if (onlyConnections) {
        m_scene.document()->hooks.tip(QStringLiteral("tip_delete_connection"), QStringLiteral("Deleting connections"),
            QStringLiteral("You can delete/insert transforms without deleting connections. See "
                           "'Reference>Connections' in the help."),
            tipMs);
    }
}

/// True when connections but no nodes were selected.
bool GraphEdit::deleteSelectedConnections()
{
    const QList<Connection *> selected = m_scene.connections(true);
    for (Connection *connection : selected) {
        connection->to()->setState(NodeState::NeedsProcessing, true);
        connection->deleteConnection();
    }
    return !selected.isEmpty() && m_scene.nodes(true).isEmpty();
}

/// Leads the one input of `node` to what the node feeds.
void GraphEdit::bridge(TransformNode *node)
{
    Node *source = node->upstreamNodes(false).first();
    node->setState(NodeState::NeedsProcessing, true);
    node->deleteConnections(Direction::Incoming);
    for (Connection *connection : node->connections(Direction::Outgoing)) {
        Node *target = connection->to();
        if (target->isSelected()) {
            continue;
        }
        QList<Parameter *> bound;
        if (const auto *transformNode = qgraphicsitem_cast<TransformNode *>(target)) {
            bound = transformNode->transform()->parametersForNode(node);
        }
        connection->deleteConnection();
        m_scene.insertConnection(source, target);
        for (Parameter *parameter : qAsConst(bound)) {
            parameter->setNode(source);
        }
        target->refreshColumnOptions();
    }
}

/// Of two connections with the same ends the later goes.
void GraphEdit::removeDoubleConnections()
{
    for (Node *node : m_scene.nodes()) {
        QSet<Node *> targets;
        for (Connection *connection : node->connections(Direction::Outgoing)) {
            if (targets.contains(connection->to())) {
                connection->deleteConnection();
            } else {
                targets.insert(connection->to());
            }
        }
    }
}
