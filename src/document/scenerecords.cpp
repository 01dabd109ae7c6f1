#include "document/scenerecords.h"

#include "charts/chartnode.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <algorithm>

namespace {

void takeShared(NodeRecord &record, const Node &node)
{
    record.id = node.id();
    record.comment = node.comment();
    record.position = node.pos();
}

InputRecord recordOf(const InputNode &node)
{
    InputRecord record;
    takeShared(record, node);
    record.name = node.name();
    record.alias = node.alias();
    record.options = node.options();
    return record;
}

TransformRecord recordOf(const TransformNode &node)
{
    TransformRecord record;
    takeShared(record, node);
    record.name = node.transform()->typeName();
    const QList<Parameter *> &parameters = node.transform()->parameters();
    for (const Parameter *parameter : parameters) {
        record.parameters.append({parameter->name(), parameter->toDocumentText(), parameter->kind()});
    }
    return record;
}

OutputRecord recordOf(const OutputNode &node)
{
    OutputRecord record;
    takeShared(record, node);
    record.name = node.name();
    record.alias = node.alias();
    record.options = node.options();
    record.multiFileColumn = node.storedMultiFileColumn();
    record.excelFormats = node.storedExcelFormats();
    record.jsonTypes = node.storedJsonTypes();
    return record;
}

ChartRecord recordOf(const ChartNode &node)
{
    ChartRecord record;
    takeShared(record, node);
    record.alias = node.alias();
    record.options = node.options();
    record.xColumn = node.storedXColumn();
    record.yColumns = node.storedYColumns();
    return record;
}

NoteRecord recordOf(const NoteNode &node)
{
    NoteRecord record;
    takeShared(record, node);
    record.color = node.color();
    record.arrow = node.arrow();
    return record;
}

QVector<ConnectionRecord> connectionRecords(const GraphScene &scene, bool selectedOnly)
{
    QVector<ConnectionRecord> records;
    const QList<Connection *> connections = scene.connections(selectedOnly);
    for (const Connection *connection : connections) {
        const bool endsSelected = connection->from()->isSelected() && connection->to()->isSelected();
        if (!selectedOnly || endsSelected) {
            records.append({connection->from()->id(), connection->to()->id()});
        }
    }
    std::sort(records.begin(), records.end(), [](const ConnectionRecord &a, const ConnectionRecord &b) {
        return a.startId != b.startId ? a.startId < b.startId : a.endId < b.endId;
    });
    return records;
}

} // namespace

DocumentRecords recordsOf(const GraphScene &scene, bool selectedOnly)
{
    DocumentRecords records;
    QList<Node *> nodes = scene.nodes(selectedOnly);
    std::sort(nodes.begin(), nodes.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
    for (const Node *node : qAsConst(nodes)) {
        if (auto *input = qobject_cast<const InputNode *>(node)) {
            records.inputs.append(recordOf(*input));
        } else if (auto *transform = qobject_cast<const TransformNode *>(node)) {
            records.transforms.append(recordOf(*transform));
        } else if (auto *output = qobject_cast<const OutputNode *>(node)) {
            records.outputs.append(recordOf(*output));
        } else if (auto *chart = qobject_cast<const ChartNode *>(node)) {
            records.charts.append(recordOf(*chart));
        } else if (auto *note = qobject_cast<const NoteNode *>(node)) {
            records.notes.append(recordOf(*note));
        }
    }
    records.connections = connectionRecords(scene, selectedOnly);
    return records;
}
