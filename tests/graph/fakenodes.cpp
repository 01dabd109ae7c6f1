#include "fakenodes.h"

#include "data/datasource.h"
#include "graph/runcontrol.h"

FakeInput::FakeInput(const Dataset &table, int id)
    : IONode(id)
    , m_table(table)
{
}

FakeInput *FakeInput::clone() const
{
    return new FakeInput(m_table, id());
}

QString FakeInput::resultText() const
{
    return m_failing ? QStringLiteral("Error reading") : QStringLiteral("Read");
}

void FakeInput::process(bool recurse, bool releaseInputs)
{
    if (stopRequested) {
        return;
    }
    if (state() != NodeState::Processed) {
        startProcessing();
        ++m_runs;
        if (!m_failing) {
            m_dataset = m_table;
            m_dataset.assignColumnIds(id());
        }
        setState(m_failing ? NodeState::Failed : NodeState::Processed, false);
        emit processingEnd(this);
        prepareDownstream();
    }
    if (recurse && state() != NodeState::Failed) {
        processDownstream(releaseInputs);
    }
}

void FakeOutput::process(bool, bool releaseInputs)
{
    if (stopRequested || state() == NodeState::Processed || !canProcess()) {
        return;
    }
    startProcessing();
    for (const Node *source : upstreamNodes(true)) {
        m_dataset = source->datasetConst();
    }
    setState(NodeState::Processed, false);
    emit processingEnd(this);
    if (releaseInputs) {
        releaseUpstreamDatasets();
    }
}

Dataset ProbeTransform::run(const QList<DataSource *> &inputs, bool *hasIssues)
{
    ++runs;
    inputIds.clear();
    for (const DataSource *input : inputs) {
        inputIds.append(input->id());
    }
    if (during) {
        during();
    }
    *hasIssues = failing;
    Dataset table = inputs.isEmpty() ? Dataset() : inputs.first()->datasetConst();
    if (addsColumn) {
        table.appendEmptyColumn();
    }
    return table;
}
