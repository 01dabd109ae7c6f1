#include "app/batch/batchrun.h"

#include "app/itempaths.h"
#include "app/report/reportsink.h"
#include "app/report/reportwriter.h"
#include "app/report/runtally.h"
#include "charts/chartnode.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

namespace {

/// One text for all spellings of a path, whether or not there is a file yet.
QString identity(const QString &path)
{
    const QFileInfo file(path);
    const QString folder = QFileInfo(file.path()).canonicalFilePath();
    return file.exists() || folder.isEmpty() ? file.canonicalFilePath() : folder + QLatin1Char('/') + file.fileName();
}

} // namespace

BatchRun::BatchRun(
    const GraphScene &document, const BatchRunOptions &options, ReportWriter &writer, QSet<QString> &appendedTo)
    : m_options(options)
    , m_writer(writer)
    , m_appendedTo(appendedTo)
    , m_scene(document.copyForRun())
{
}

BatchRun::~BatchRun() = default;

RunTally BatchRun::run(const BatchPaths &paths)
{
    QElapsedTimer timer;
    timer.start();
    applyPaths(paths);
    if (m_options.clearBeforeAppend) {
        clearOutputs();
    }
    m_nodes = reportedNodes(*m_scene);
    if (m_writer.tells(Verbosity::Normal)) {
        m_writer.sink().info(QStringLiteral("Processing:"));
        connect(m_scene.get(), &GraphScene::nodeProcessed, this, &BatchRun::onNodeProcessed);
    }
    m_scene->runTransforms(RunMode::EverythingReleasing, true);
    RunTally tally;
    count(tally);
    if (m_writer.tells(Verbosity::Summary)) {
        writeSummary(tally, timer.elapsed());
    }
    return tally;
}

void BatchRun::applyPaths(const BatchPaths &paths)
{
    for (Node *node : m_scene->nodes()) {
        if (auto *input = qobject_cast<InputNode *>(node)) {
            prepareInput(*input, paths);
        } else if (auto *output = qobject_cast<OutputNode *>(node)) {
            prepareOutput(*output, paths);
        } else if (auto *chart = qobject_cast<ChartNode *>(node)) {
            const auto path = paths.charts.constFind(chart->alias());
            if (path != paths.charts.cend() && chart->writesFile()) {
                chart->setPath(*path);
            }
        }
    }
}

void BatchRun::prepareInput(InputNode &input, const BatchPaths &paths)
{
    InputOptions options = input.options();
    if (options.watching) { // the copy is gone before its file changes
        options.watching = false;
        input.setOptions(options);
    }
    const auto path = paths.inputs.constFind(input.alias());
    if (path == paths.inputs.cend()) {
        return;
    }
    if (input.medium() == Medium::File) {
        setInputFile(input, *path);
    } else if (input.medium() == Medium::Folder) {
        setInputFolder(input, *path);
    }
}

void BatchRun::prepareOutput(OutputNode &output, const BatchPaths &paths)
{
    const auto path = paths.outputs.constFind(output.alias());
    if (path != paths.outputs.cend() && output.writeMode() != WriteMode::Disabled) {
        setOutputFile(output, *path);
    }
}

void BatchRun::clearOutputs()
{
    QSet<QString> inputs;
    for (const IONode *input : m_scene->inputNodes()) {
        inputs.insert(identity(input->path()));
    }
    for (const OutputNode *output : writingOutputs(*m_scene)) {
        if (output->writeMode() == WriteMode::Append && !output->isMultiFile()) {
            clearBeforeAppend(*output, inputs);
        }
    }
}

void BatchRun::clearBeforeAppend(const OutputNode &output, const QSet<QString> &inputs)
{
    const QString path = absoluteNativePath(output.expandedPath());
    const QString file = identity(path);
    if (path.isEmpty() || m_appendedTo.contains(file)) {
        return;
    }
    m_appendedTo.insert(file);
    if (!QFileInfo::exists(path)) {
        return;
    }
    // What the run reads must not go before it has been read.
    if (!inputs.contains(file) && QFileInfo(path).isFile() && QFile::remove(path)) {
        m_writer.sink().info(QStringLiteral("'%1' already exists, cleared before first append").arg(path));
    } else {
        m_writer.sink().error(QStringLiteral("'%1' already exists, unable to clear before first append").arg(path));
    }
}

void BatchRun::onNodeProcessed(Node *node)
{
    if (m_nodes.contains(node)) {
        reportNode(*node);
    }
}

void BatchRun::reportNode(const Node &node)
{
    m_reported.insert(&node);
    if (!m_writer.tells(Verbosity::Normal)) {
        return;
    }
    const QString line = m_writer.lineOf(node);
    const bool failed = isError(node);
    failed ? m_writer.sink().error(line) : m_writer.sink().info(line);
    if (ReportWriter::hasNews(node, !failed)) {
        m_writer.messages(node);
    }
}

bool BatchRun::isError(const Node &node) const
{
    return node.state() == NodeState::Failed || m_options.inCircles.contains(node.id());
}

void BatchRun::count(RunTally &tally)
{
    for (const Node *node : qAsConst(m_nodes)) {
        const bool failed = isError(*node);
        if (!m_reported.contains(node) && (failed || node->hasRun())) {
            reportNode(*node); // it ended before its run had begun
        }
        if (failed) {
            ++tally.errors;
        } else if (node->state() == NodeState::Processed) {
            tally.countProcessed(*node);
        }
        if (ReportWriter::hasNews(*node, !failed)) {
            tally.warnings += node->warningCount();
        }
    }
    tally.countWrites(*m_scene);
}

void BatchRun::writeSummary(const RunTally &tally, qint64 elapsedMs)
{
    m_writer.processed(tally);
    if (m_writer.tells(Verbosity::Normal)) {
        m_writer.writtenFiles(tally);
    }
    m_writer.elapsed(QStringLiteral("Elapsed: %1"), elapsedMs);
    m_writer.results(QStringLiteral("Results: %1"), tally, true);
}
