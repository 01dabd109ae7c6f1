#include "graph/node.h"
#include "graph/runcontrol.h"

#include <algorithm>

// One run of a node of any kind, and the walk through the graph.

namespace {

constexpr qint64 progressIntervalMs = 250;
constexpr double progressStep = 0.02;

} // namespace

void Node::process(bool recurse, bool releaseInputs)
{
    if (stopRequested) {
        return;
    }
    if (state() == NodeState::Processed) {
        if (!enterWalk()) {
            return;
        }
    } else if (canProcess()) {
        run();
        enterWalk();
        if (releaseInputs) {
            if (maxOutputs() == 0) {
                m_dataset.clear(); // nobody reads it, and the node has been reported
            }
            releaseUpstreamDatasets();
        }
    }
    if (recurse && state() == NodeState::Processed) {
        processDownstream(releaseInputs);
    }
}

void Node::run()
{
    if (!mayRun()) {
        update();
        return;
    }
    startProcessing();
    beforeProcess();
    prepareRun();
    QElapsedTimer timer;
    timer.start();
    setFraction(0.0);
    const bool succeeded = produce();
    m_dataset.assignColumnIds(id());
    m_processingMs = timer.elapsed();
    m_lastProcessed = QDateTime::currentDateTime();
    setState(succeeded ? NodeState::Processed : NodeState::Failed, false);
    emit processingEnd(this);
    m_dataset.releaseValuePools();
    if (maxOutputs() > 0) {
        RunControl::countRows(m_dataset.rowCount());
        prepareDownstream();
    }
    update();
}

/// Clears the old result, goes to Processing and says so.
void Node::startProcessing()
{
    m_dataset.clear();
    m_warnings.clear();
    m_infos.clear();
    setState(NodeState::Processing, false);
    emit processingStart(this);
}

void Node::onProcessed(qreal fractionProcessed)
{
    RunControl::checkMemory();
    if (fractionProcessed < 1.0 && m_lastFractionTime.isValid() && m_lastFractionTime.elapsed() < progressIntervalMs) {
        return;
    }
    if (fractionProcessed <= 0.0 || fractionProcessed >= 1.0 || qAbs(fractionProcessed - fraction()) >= progressStep) {
        setFraction(fractionProcessed);
        update();
        emit processed(this, fractionProcessed);
    }
    m_lastFractionTime.start();
}

void Node::reportProgress(qint64 done, qint64 total, int step)
{
    if (total > 0 && step > 0 && done % step == 0) {
        onProcessed(static_cast<qreal>(done) / static_cast<qreal>(total));
    }
}

/// Lets direct downstream nodes look at the new result.
void Node::prepareDownstream()
{
    for (Node *node : downstreamNodes(true)) {
        node->beforeProcess();
    }
}

void Node::processDownstream(bool releaseInputs)
{
    for (Node *node : downstreamNodes(true)) {
        node->process(true, releaseInputs);
    }
}

/// False when this run has come through this node before, so that it needn't walk on again.
bool Node::enterWalk()
{
    const quint64 run = RunControl::currentRun();
    if (run != 0 && m_walkedRun == run) {
        return false;
    }
    m_walkedRun = run;
    return true;
}

/// Drops the datasets of direct upstream nodes that no stale node waits for.
void Node::releaseUpstreamDatasets()
{
    const auto waits = [](const Node *node) { return node->state() == NodeState::NeedsProcessing; };
    for (Node *source : upstreamNodes(false)) {
        const QList<Node *> consumers = source->downstreamNodes(false);
        if (!source->datasetConst().isEmpty() && std::none_of(consumers.begin(), consumers.end(), waits)) {
            source->clearDataset();
        }
    }
}
