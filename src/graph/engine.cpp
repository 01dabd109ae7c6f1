#include "graph/engine.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodeorder.h"
#include "graph/nodetext.h"
#include "graph/runcontrol.h"
#include "platform/waitcursor.h"
#include "settings/settings.h"
#include "transforms/frame/documentcontext.h"

#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <algorithm>

namespace {

QString nowText()
{
    return QDateTime::currentDateTime().toString();
}

} // namespace

void Engine::run(RunMode mode, bool quiet)
{
    const RunControl::RunScope scope;
    DocumentContext::setPath(m_scene.documentPath());
    RunControl::keepAlive();
    log(QStringLiteral("Started: %1").arg(nowText()));
    QElapsedTimer timer;
    timer.start();
    m_scene.m_itemsToProcess = 0;
    m_scene.m_itemsProcessed = 0;
    emit m_scene.showProgress(0);
    if (mode == RunMode::Selected) {
        runSelected();
    } else {
        runRoots(mode);
    }
    const qint64 elapsed = timer.elapsed();
    RunControl::storeRowCount();
    log(QStringLiteral("Finished: %1").arg(nowText()));
    emit m_scene.completedTransforms();
    emit m_scene.showProgress(100);
    if (m_scene.m_itemsProcessed >= 1) {
        report(elapsed);
    }
    m_scene.refresh();
    if (!quiet && Settings::current().beepAfterProcessing()) {
        QApplication::beep();
    }
}

void Engine::runSelected()
{
    for (Node *node : m_scene.nodes(true)) {
        node->setState(NodeState::NeedsProcessing, true);
    }
    QList<Node *> work = selectedWork();
    m_scene.m_itemsToProcess = work.size();
    NodeOrder::sortLeftToRight(work);
    while (!work.isEmpty()) {
        if (stopRequested) {
            log(QStringLiteral("  Stopped by user"));
            break;
        }
        if (!runPass(work)) {
            break;
        }
    }
}

QList<Node *> Engine::selectedWork() const
{
    QList<Node *> work;
    QSet<Node *> known;
    const auto append = [&](Node *node) {
        if (!known.contains(node)) {
            known.insert(node);
            work.append(node);
        }
    };
    for (Node *node : m_scene.nodes(true)) {
        append(node);
        for (Node *source : node->allUpstream(false)) {
            if (source->state() == NodeState::Failed) {
                source->setState(NodeState::NeedsProcessing, false);
            }
            if (source->state() == NodeState::NeedsProcessing) {
                append(source);
            }
        }
    }
    return work;
}

bool Engine::runPass(QList<Node *> &work)
{
    const int before = work.size();
    const QList<Node *> pass = work;
    for (Node *node : pass) {
        const QList<Node *> sources = node->upstreamNodes(false);
        const bool waits = std::any_of(sources.begin(), sources.end(),
            [](const Node *source) { return source->state() == NodeState::NeedsProcessing; });
        if (!waits) {
            node->process(false, false);
            work.removeOne(node);
        }
    }
    return work.size() < before;
}

void Engine::runRoots(RunMode mode)
{
    QList<Node *> nodes = m_scene.nodes();
    if (mode != RunMode::Changes) {
        for (Node *node : qAsConst(nodes)) {
            node->setState(NodeState::NeedsProcessing, false);
        }
    }
    m_scene.m_itemsToProcess = static_cast<int>(std::count_if(
        nodes.cbegin(), nodes.cend(), [](const Node *node) { return node->state() != NodeState::Processed; }));
    NodeOrder::sortLeftToRight(nodes);
    for (Node *node : qAsConst(nodes)) {
        if (!node->upstreamNodes(false).isEmpty()) {
            continue;
        }
        node->process(true, mode == RunMode::EverythingReleasing);
        if (stopRequested) {
            log(QStringLiteral("  Stopped by user"));
            break;
        }
    }
}

void Engine::report(qint64 elapsedMs)
{
    const QString summary = QStringLiteral("%1 item(s) processed in %2")
                                .arg(formatInteger(m_scene.m_itemsProcessed, true), NodeText::duration(elapsedMs));
    emit m_scene.showTempMessage(summary);
    log(summary);
    const QList<Node *> nodes = m_scene.nodes();
    const auto warned = std::count_if(nodes.begin(), nodes.end(), [](const Node *node) { return node->hasWarnings(); });
    if (warned > 0) {
        log(QStringLiteral("%1 item(s) with warnings").arg(warned));
    }
    QStringList states;
    for (NodeState state : {NodeState::Processed, NodeState::NeedsProcessing, NodeState::Failed}) {
        const int count = m_scene.nodesInState(state).size();
        states.append(QStringLiteral("%1: %2").arg(Node::stateText(state), formatInteger(count, true)));
    }
    log(QStringLiteral("%1\n").arg(states.join(QStringLiteral(", "))));
}

void Engine::log(const QString &line)
{
    emit m_scene.showLogMessage(line);
}
