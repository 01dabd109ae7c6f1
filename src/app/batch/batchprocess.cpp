#include "app/batch/batchprocess.h"

#include "app/batch/batchexpansion.h"
#include "app/report/reportsink.h"
#include "data/values.h"
#include "files/filesheet.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "outputs/filenamevariables.h"

#include <QDir>
#include <QElapsedTimer>
#include <algorithm>

namespace {

/// Steps through all combinations of one entry of each list, the last list fastest.
class Combinations
{
public:
    explicit Combinations(const QList<QStringList> &lists)
        : m_lists(lists)
        , m_at(lists.size(), 0)
    {
    }

    const QString &entry(int list) const { return m_lists.at(list).at(m_at.at(list)); }

    /// How many there are; a product that no run gets to the end of need not be exact.
    double count() const
    {
        double product = 1;
        for (const QStringList &list : m_lists) {
            product *= list.size();
        }
        return product;
    }

    /// False behind the last.
    bool advance()
    {
        for (int list = m_at.size() - 1; list >= 0; --list) {
            if (++m_at[list] < m_lists.at(list).size()) {
                return true;
            }
            m_at[list] = 0;
        }
        return false;
    }

private:
    const QList<QStringList> m_lists;
    QVector<int> m_at;
};

} // namespace

BatchProcess::BatchProcess(const GraphScene &document, const BatchSettings &settings, ReportSink &sink)
    : m_document(document)
    , m_settings(settings)
    , m_columns(batchColumns(commandLineItems(document)).columns)
    , m_writer(settings.verbosity, sink)
{
}

void BatchProcess::setInCircles(const QList<Node *> &nodes)
{
    for (const Node *node : nodes) {
        m_options.inCircles.insert(node->id());
    }
}

int BatchProcess::run()
{
    const RunControl::RunScope scope;
    QElapsedTimer timer;
    timer.start();
    stopRequested = false;
    startLog();
    if (m_writer.tells(Verbosity::Normal)) {
        m_writer.sink().info(QStringLiteral("File: %1").arg(QDir::toNativeSeparators(m_document.documentPath())));
    }
    m_writer.time(QStringLiteral("Started: "));
    for (int row = 0; row < m_settings.rowCount() && !m_stopRequested; ++row) {
        runRow(row);
    }
    if (m_stopRequested) {
        m_writer.sink().error(QStringLiteral("Stopped by user"));
    }
    if (m_writer.tells(Verbosity::Normal)) {
        m_writer.sink().info(QString());
    }
    m_writer.time(QStringLiteral("Finished: "));
    if (m_writer.tells(Verbosity::Summary)) {
        writeTotals(timer.elapsed());
    }
    return m_total.errors;
}

void BatchProcess::startLog()
{
    ReportSink &sink = m_writer.sink();
    if (sink.logPath().isEmpty()) {
        if (!m_settings.loggingEnabled) {
            return;
        }
        FileNameVariables::Context context;
        context.documentPath = m_document.documentPath();
        const QString path = FileNameVariables::expanded(m_settings.logPath, context);
        if (!sink.openLog(path, m_settings.logMode == BatchSettings::Overwrite)) {
            sink.error(QStringLiteral("Unable to write to log file '%1'").arg(absoluteNativePath(path)));
            sink.info(QString());
            return;
        }
    }
    sink.info(QStringLiteral("Writing to log file '%1'").arg(sink.logPath()));
    sink.info(QString());
}

void BatchProcess::runRow(int row)
{
    if (m_writer.tells(Verbosity::Summary)) {
        if (row > 0) {
            m_writer.sink().info(QString());
        }
        m_writer.sink().info(QStringLiteral("Batch row: %1").arg(formatInteger(row + 1, true)));
    }
    const QList<QStringList> lists = expandRow(row);
    const bool isEmpty = std::any_of(
        lists.cbegin(), lists.cend(), [](const QStringList &list) { return list.isEmpty(); });
    if (!isEmpty && !lists.isEmpty() && !m_stopRequested) {
        runCombinations(row, lists);
    }
}

QList<QStringList> BatchProcess::expandRow(int row)
{
    QList<QStringList> lists;
    for (const BatchColumn &column : m_columns) {
        if (column.kind != CommandLineItem::Input) {
            continue;
        }
        const QString text = m_settings.values.value({row, column.alias});
        const BatchExpansion expansion = column.isFolder ? expandBatchFolder(text)
                                                         : expandBatchFile(text, [this] { return goesOn(); });
        for (const QString &message : expansion.messages) {
            m_writer.sink().error(message);
        }
        m_total.errors += expansion.errors;
        lists.append(expansion.paths);
    }
    return lists;
}

void BatchProcess::runCombinations(int row, const QList<QStringList> &lists)
{
    BatchPaths paths = rowPaths(row);
    Combinations combinations(lists);
    const double count = combinations.count();
    double done = 0;
    do {
        int list = 0;
        for (const BatchColumn &column : m_columns) {
            if (column.kind == CommandLineItem::Input) {
                paths.inputs.insert(column.alias, combinations.entry(list++));
            }
        }
        if (!goesOn()) {
            return;
        }
        runOnce(paths);
        emit rowProgressed(row, static_cast<int>(100 * ++done / count));
    } while (!m_stopRequested && combinations.advance());
}

BatchPaths BatchProcess::rowPaths(int row) const
{
    BatchPaths paths;
    for (const BatchColumn &column : m_columns) {
        const QString text = m_settings.values.value({row, column.alias});
        if (column.kind == CommandLineItem::Chart) {
            paths.charts.insert(column.alias, text);
        } else if (column.kind == CommandLineItem::Output && column.takesPath) {
            paths.outputs.insert(column.alias, text);
        }
    }
    return paths;
}

void BatchProcess::runOnce(const BatchPaths &paths)
{
    RunTally tally = BatchRun(m_document, m_options, m_writer, m_appendedTo).run(paths);
    ++m_runs;
    m_runsWithErrors += tally.errors > 0 ? 1 : 0;
    m_total.add(tally);
    // The program is about to end, or somebody has stopped the run itself.
    m_stopRequested = m_stopRequested || stopRequested;
}

/// Lets events in; false when they asked to stop.
bool BatchProcess::goesOn()
{
    RunControl::keepAlive();
    return !m_stopRequested;
}

void BatchProcess::writeTotals(qint64 elapsedMs)
{
    m_writer.sink().info(QString());
    if (m_writer.tells(Verbosity::Normal)) {
        m_writer.writtenFiles(m_total);
        m_writer.overwrites(m_total);
    }
    m_writer.elapsed(QStringLiteral("Total elapsed: %1"), elapsedMs);
    const QString runs = QStringLiteral("Total .transform runs: %1, %2 with errors")
                             .arg(formatInteger(m_runs, true), formatInteger(m_runsWithErrors, true));
    m_runsWithErrors > 0 ? m_writer.sink().error(runs) : m_writer.sink().info(runs);
    m_writer.results(QStringLiteral("Total results: %1"), m_total, true);
}
