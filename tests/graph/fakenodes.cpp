#include "fakenodes.h"

#include "data/datasource.h"

FakeInput::FakeInput(const Dataset &table, int id)
    : IONode(id)
    , m_table(table)
{
}

Node *FakeInput::cloneKind() const
{
    return new FakeInput(m_table, id());
}

QString FakeInput::resultText() const
{
    return m_failing ? QStringLiteral("Error reading") : QStringLiteral("Read");
}

bool FakeInput::produce()
{
    ++m_runs;
    if (!m_failing) {
        m_dataset = m_table;
    }
    return !m_failing;
}

bool FakeOutput::produce()
{
    for (const Node *source : upstreamNodes(true)) {
        m_dataset = source->datasetConst();
    }
    return true;
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
