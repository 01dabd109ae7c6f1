#include "app/commandlineitems.h"

#include "charts/chartnode.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"

#include <algorithm>

namespace {

bool writesFile(const Node &node)
{
    const auto *output = qobject_cast<const OutputNode *>(&node);
    const auto *chart = qobject_cast<const ChartNode *>(&node);
    return (output && output->writeMode() != WriteMode::Disabled) || (chart && chart->writesFile());
}

template<class NodeType>
QList<NodeType *> byId(QList<NodeType *> nodes)
{
    std::sort(nodes.begin(), nodes.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
    return nodes;
}

CommandLineItem inputItem(const InputNode &input)
{
    CommandLineItem item;
    item.kind = CommandLineItem::Input;
    item.alias = input.alias();
    item.isFolder = input.medium() == Medium::Folder;
    item.path = item.isFolder ? input.path() : fileSheetText(input.path(), input.sheetName());
    const QSet<Node *> leaves = input.allDownstreamOfKind(ItemType::Output, false)
                                + input.allDownstreamOfKind(ItemType::Chart, false);
    item.isConnected = !leaves.isEmpty();
    item.feedsFile = std::any_of(leaves.cbegin(), leaves.cend(), [](const Node *leaf) { return writesFile(*leaf); });
    return item;
}

CommandLineItem leafItem(const Node &node, CommandLineItem::Kind kind)
{
    CommandLineItem item;
    item.kind = kind;
    item.alias = node.alias();
    item.isConnected = !node.allUpstreamOfKind(ItemType::Input, false).isEmpty();
    return item;
}

CommandLineItem outputItem(const OutputNode &output)
{
    CommandLineItem item = leafItem(output, CommandLineItem::Output);
    item.path = fileSheetText(output.path(), output.sheetName());
    item.writeMode = output.writeMode();
    item.isMultiFile = output.isMultiFile();
    item.lacksFilesColumn = item.isMultiFile && output.storedMultiFileColumn().isEmpty();
    return item;
}

CommandLineItem chartItem(const ChartNode &chart)
{
    CommandLineItem item = leafItem(chart, CommandLineItem::Chart);
    item.path = chart.path();
    item.writeMode = WriteMode::Overwrite;
    item.chartType = ChartChoice::typeLabel(chart.options().type);
    return item;
}

} // namespace

QList<CommandLineItem> commandLineItems(const GraphScene &scene)
{
    QList<CommandLineItem> items;
    for (const IONode *node : byId(scene.inputNodes())) {
        const auto *input = qobject_cast<const InputNode *>(node);
        if (input && input->medium() != Medium::Clipboard) {
            items.append(inputItem(*input));
        }
    }
    for (const IONode *node : byId(scene.outputNodes())) {
        if (const auto *output = qobject_cast<const OutputNode *>(node)) {
            items.append(outputItem(*output));
        }
    }
    for (const Node *node : byId(scene.chartNodes())) {
        const auto *chart = qobject_cast<const ChartNode *>(node);
        if (chart && chart->writesFile()) {
            items.append(chartItem(*chart));
        }
    }
    return items;
}
