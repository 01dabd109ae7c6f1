#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <memory>

class ChartNode;
class GraphScene;
class InputNode;
class Node;
class OutputNode;
class ReportWriter;
struct RunTally;

/// The files of one run of a batch, by alias.
struct BatchPaths
{
    QHash<QString, QString> inputs; ///< files, with sheets in brackets, and folders
    QHash<QString, QString> outputs;
    QHash<QString, QString> charts;
};

/// What holds for all runs of a batch.
struct BatchRunOptions
{
    bool clearBeforeAppend = false;
    /// Ids of items that count as errors, whatever becomes of them.
    QSet<int> inCircles;
};

/// One run of a batch, on a copy of the document's scene.
class BatchRun : public QObject
{
    Q_OBJECT

public:
    /// Files in `appendedTo` aren't cleared any more; those that are appended to join them.
    BatchRun(
        const GraphScene &document, const BatchRunOptions &options, ReportWriter &writer, QSet<QString> &appendedTo);
    ~BatchRun() override;

    /// Runs, reports, and gives the figures.
    RunTally run(const BatchPaths &paths);

private slots:
    void onNodeProcessed(Node *node);

private:
    void applyPaths(const BatchPaths &paths);
    void prepareInput(InputNode &input, const BatchPaths &paths);
    void prepareOutput(OutputNode &output, const BatchPaths &paths);
    void clearOutputs();
    void clearBeforeAppend(const OutputNode &output, const QSet<QString> &inputs);
    void reportNode(const Node &node);
    void count(RunTally &tally);
    bool isError(const Node &node) const;
    void writeSummary(const RunTally &tally, qint64 elapsedMs);

    const BatchRunOptions &m_options;
    ReportWriter &m_writer;
    QSet<QString> &m_appendedTo;
    const std::unique_ptr<GraphScene> m_scene;
    QList<Node *> m_nodes; ///< that are reported on
    QSet<const Node *> m_reported;
};
