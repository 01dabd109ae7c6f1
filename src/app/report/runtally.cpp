#include "app/report/runtally.h"

#include "charts/chartnode.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "outputnode/outputnode.h"

namespace {

void addCounts(QMap<QString, int> &sum, const QMap<QString, int> &counts)
{
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        sum[it.key()] += it.value();
    }
}

void countOutput(const OutputNode &output, RunTally &tally)
{
    const OutputOptions &options = output.options();
    // Sheets of one workbook don't replace each other.
    const bool onlySheet = FileType::isExcel(output.fileType()) && !output.isMultiFile()
                           && options.overwriteScope == OverwriteScope::Sheet;
    for (const QString &path : output.writtenFiles()) {
        ++tally.outputWrites[path];
        if (options.writeMode == WriteMode::Overwrite) {
            ++tally.replacements[onlySheet ? fileSheetText(path, output.lastSheetName()) : path];
        }
    }
}

} // namespace

QList<OutputNode *> writingOutputs(const GraphScene &scene)
{
    QList<OutputNode *> outputs;
    for (IONode *node : scene.outputNodes()) {
        auto *output = qobject_cast<OutputNode *>(node);
        if (output && output->writeMode() != WriteMode::Disabled) {
            outputs.append(output);
        }
    }
    return outputs;
}

QList<ChartNode *> writingCharts(const GraphScene &scene)
{
    QList<ChartNode *> charts;
    for (Node *node : scene.chartNodes()) {
        auto *chart = qobject_cast<ChartNode *>(node);
        if (chart && chart->writesFile() && !chart->path().isEmpty()) {
            charts.append(chart);
        }
    }
    return charts;
}

QList<Node *> reportedNodes(const GraphScene &scene)
{
    QList<Node *> nodes;
    for (IONode *node : scene.inputNodes()) {
        nodes.append(node);
    }
    for (TransformNode *node : scene.transformNodes()) {
        nodes.append(node);
    }
    for (OutputNode *node : writingOutputs(scene)) {
        nodes.append(node);
    }
    for (ChartNode *node : writingCharts(scene)) {
        nodes.append(node);
    }
    return nodes;
}

void RunTally::countProcessed(const Node &node)
{
    switch (node.type()) {
    case ItemType::Input:
        ++inputs;
        break;
    case ItemType::Output:
        ++outputs;
        break;
    case ItemType::Chart:
        ++charts;
        break;
    default:
        ++transforms;
        break;
    }
}

void RunTally::countWrites(const GraphScene &scene)
{
    for (const OutputNode *output : writingOutputs(scene)) {
        countOutput(*output, *this);
    }
    for (const ChartNode *chart : writingCharts(scene)) {
        for (const QString &path : chart->writtenFiles()) {
            ++chartWrites[path];
            ++replacements[path];
        }
    }
}

void RunTally::add(const RunTally &run)
{
    errors += run.errors;
    warnings += run.warnings;
    addCounts(outputWrites, run.outputWrites);
    addCounts(chartWrites, run.chartWrites);
    addCounts(replacements, run.replacements);
}
