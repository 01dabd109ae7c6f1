#pragma once

#include "app/report/reportwriter.h"
#include "app/report/runtally.h"

#include <QHash>
#include <QObject>
#include <QSet>

class GraphScene;
class Node;
class RunLog;

/// What a run from the command line tells of the items of a document and of the whole. It listens while they run, since
/// tables may be gone at the end.
class CommandLineReport : public QObject
{
    Q_OBJECT

public:
    /// `verbosity` is a value of Verbosity.
    CommandLineReport(const GraphScene &scene, int verbosity, RunLog &log, QObject *parent = nullptr);

    /// Counts `warnings` that were told when the document was opened. Items in circles can't have been meant to run as
    /// they do now and count as errors, like those that a run doesn't reach.
    void countRepairs(int warnings, const QList<Node *> &inCircles);
    /// Tells of every item, then sums up; returns how many items failed or weren't reached.
    int write(qint64 elapsedMs);

private slots:
    void onNodeProcessed(Node *node);

private:
    void writeNode(const Node &node);

    const GraphScene &m_scene;
    RunLog &m_log;
    ReportWriter m_writer;
    RunTally m_tally;
    QHash<const Node *, QString> m_lines;
    QSet<const Node *> m_inCircles;
};
