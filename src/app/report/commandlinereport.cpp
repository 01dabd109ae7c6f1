#include "app/report/commandlinereport.h"

#include "app/report/runlog.h"
#include "graph/graphscene.h"
#include "graph/node.h"

CommandLineReport::CommandLineReport(const GraphScene &scene, int verbosity, RunLog &log, QObject *parent)
    : QObject(parent)
    , m_scene(scene)
    , m_log(log)
    , m_writer(verbosity, log)
{
    if (m_writer.tells(Verbosity::Normal)) {
        connect(&scene, &GraphScene::nodeProcessed, this, &CommandLineReport::onNodeProcessed);
    }
}

void CommandLineReport::onNodeProcessed(Node *node)
{
    m_lines.insert(node, m_writer.lineOf(*node));
}

void CommandLineReport::countRepairs(int warnings, const QList<Node *> &inCircles)
{
    m_tally.warnings += warnings;
    for (const Node *node : inCircles) {
        m_inCircles.insert(node);
    }
}

int CommandLineReport::write(qint64 elapsedMs)
{
    for (const Node *node : reportedNodes(m_scene)) {
        writeNode(*node);
    }
    m_tally.countWrites(m_scene);
    m_writer.time(QStringLiteral("Finished: "));
    if (m_writer.tells(Verbosity::Summary)) {
        m_writer.processed(m_tally);
        m_writer.writtenFiles(m_tally);
        m_writer.overwrites(m_tally);
        m_writer.elapsed(QStringLiteral("Elapsed: %1"), elapsedMs);
        m_writer.results(QStringLiteral("Results: %1"), m_tally, false);
    }
    if (m_log.isOpen() && m_writer.tells(Verbosity::Normal)) {
        m_log.infoToConsole(QStringLiteral("Log: %1").arg(m_log.logPath()));
    }
    return m_tally.errors;
}

void CommandLineReport::writeNode(const Node &node)
{
    const bool isProcessed = node.state() == NodeState::Processed && !m_inCircles.contains(&node);
    if (isProcessed) {
        m_tally.countProcessed(node);
    } else {
        ++m_tally.errors;
    }
    if (m_writer.tells(Verbosity::Normal)) {
        const auto noted = m_lines.constFind(&node);
        const QString line = noted != m_lines.cend() ? *noted : m_writer.lineOf(node);
        isProcessed ? m_log.info(line) : m_log.error(line);
    }
    if (ReportWriter::hasNews(node, isProcessed)) {
        m_tally.warnings += node.warningCount();
        m_writer.messages(node);
    }
}
