#include "app/commandlinereport.h"

#include "app/commandline.h"
#include "app/runlog.h"
#include "charts/chartnode.h"
#include "data/values.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "outputnode/outputnode.h"

#include <QDateTime>

namespace {

QString counted(const char *form, int count)
{
    return QString::fromLatin1(form).arg(formatInteger(count, true));
}

bool isClipboardInput(const Node &node)
{
    const auto *input = qobject_cast<const IONode *>(&node);
    return input && input->medium() == Medium::Clipboard;
}

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

} // namespace

CommandLineReport::CommandLineReport(const GraphScene &scene, int verbosity, RunLog &log, QObject *parent)
    : QObject(parent)
    , m_scene(scene)
    , m_verbosity(verbosity)
    , m_log(log)
{
    if (tells(Verbosity::Normal)) {
        connect(&scene, &GraphScene::nodeProcessed, this, &CommandLineReport::onNodeProcessed);
    }
}

void CommandLineReport::onNodeProcessed(Node *node)
{
    m_lines.insert(node, node->logLine(tells(Verbosity::Extra)));
}

void CommandLineReport::countRepairs(int warnings, const QList<Node *> &inCircles)
{
    m_warnings += warnings;
    for (const Node *node : inCircles) {
        m_inCircles.insert(node);
    }
}

QString CommandLineReport::lineOf(const Node &node) const
{
    const auto line = m_lines.constFind(&node);
    return line != m_lines.cend() ? *line : node.logLine(tells(Verbosity::Extra));
}

int CommandLineReport::write(qint64 elapsedMs)
{
    const QList<OutputNode *> outputs = writingOutputs(m_scene);
    const QList<ChartNode *> charts = writingCharts(m_scene);
    const QStringList processed{counted("%1 Input(s)", writeNodes(m_scene.inputNodes())),
        counted("%1 Transform(s)", writeNodes(m_scene.transformNodes())), counted("%1 Output(s)", writeNodes(outputs)),
        counted("%1 Chart(s)", writeNodes(charts))};
    for (const OutputNode *output : outputs) {
        countOutput(*output);
    }
    for (const ChartNode *chart : charts) {
        for (const QString &path : chart->writtenFiles()) {
            ++m_chartWrites[path];
            ++m_replacements[path];
        }
    }
    if (tells(Verbosity::Normal)) {
        m_log.info(QStringLiteral("Finished: %1").arg(QDateTime::currentDateTime().toString()));
    }
    if (tells(Verbosity::Summary)) {
        writeSummary(processed, elapsedMs);
    }
    if (m_log.isOpen() && tells(Verbosity::Normal)) {
        m_log.infoToConsole(QStringLiteral("Log: %1").arg(m_log.nativePath()));
    }
    return m_errors;
}

template<class Nodes>
int CommandLineReport::writeNodes(const Nodes &nodes)
{
    int processed = 0;
    for (const Node *node : nodes) {
        processed += writeNode(*node) ? 1 : 0;
    }
    return processed;
}

bool CommandLineReport::writeNode(const Node &node)
{
    const bool isProcessed = node.state() == NodeState::Processed && !m_inCircles.contains(&node);
    m_errors += isProcessed ? 0 : 1;
    if (tells(Verbosity::Normal)) {
        isProcessed ? m_log.info(lineOf(node)) : m_log.error(lineOf(node));
    }
    // Text from the clipboard is what the document brings along, but why it can't be read is told.
    if (!isProcessed || !isClipboardInput(node)) {
        m_warnings += node.warningCount();
        writeMessages(node);
    }
    return isProcessed;
}

void CommandLineReport::writeMessages(const Node &node)
{
    if (tells(Verbosity::Maximum)) {
        for (const QString &text : node.infos()) {
            m_log.info(QStringLiteral("    Info: ") + text);
        }
    }
    if (tells(Verbosity::Extra)) {
        for (const QString &text : node.warnings()) {
            m_log.info(QStringLiteral("    Warning: ") + text);
        }
    }
}

void CommandLineReport::countOutput(const OutputNode &output)
{
    const OutputOptions &options = output.options();
    // Sheets of one workbook don't replace each other.
    const bool onlySheet = FileType::isExcel(output.fileType()) && !output.isMultiFile()
                           && options.overwriteScope == OverwriteScope::Sheet;
    for (const QString &path : output.writtenFiles()) {
        ++m_outputWrites[path];
        if (options.writeMode == WriteMode::Overwrite) {
            ++m_replacements[onlySheet ? fileSheetText(path, output.lastSheetName()) : path];
        }
    }
}

void CommandLineReport::writeSummary(const QStringList &processed, qint64 elapsedMs)
{
    m_log.info(QStringLiteral("Processed: %1").arg(processed.join(QStringLiteral(", "))));
    writePaths(QStringLiteral("Outputs written: %1"), m_outputWrites.keys());
    if (!m_chartWrites.isEmpty()) {
        writePaths(QStringLiteral("Charts written: %1"), m_chartWrites.keys());
    }
    writeOverwrites();
    m_log.info(QStringLiteral("Elapsed: %1 second(s)").arg(QString::number(double(elapsedMs) / 1000.0, 'f', 3)));
    QStringList results{counted("%1 error(s)", m_errors)};
    if (tells(Verbosity::Normal)) {
        results.append(counted("%1 warning(s)", m_warnings));
    }
    m_log.info(QStringLiteral("Results: %1").arg(results.join(QStringLiteral(", "))));
}

void CommandLineReport::writePaths(const QString &heading, const QStringList &paths)
{
    m_log.info(heading.arg(formatInteger(paths.size(), true)));
    if (tells(Verbosity::Extra)) {
        for (const QString &path : paths) {
            m_log.info(QStringLiteral("  ") + path);
        }
    }
}

void CommandLineReport::writeOverwrites()
{
    QStringList lines;
    for (auto it = m_replacements.cbegin(); it != m_replacements.cend(); ++it) {
        if (it.value() > 1) {
            lines.append(
                QStringLiteral("  Warning: Overwrote '%1' %2 times").arg(it.key(), formatInteger(it.value(), true)));
        }
    }
    if (lines.isEmpty()) {
        return;
    }
    m_log.info(counted("Overwritten multiple times: %1", lines.size()));
    if (tells(Verbosity::Extra)) {
        for (const QString &line : lines) {
            m_log.info(line);
        }
    }
}
