#pragma once

#include <QHash>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QStringList>

class GraphScene;
class Node;
class OutputNode;
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
    /// Returns how many of the nodes are up to date.
    template<class Nodes>
    int writeNodes(const Nodes &nodes);
    bool writeNode(const Node &node);
    void writeMessages(const Node &node);
    void writeSummary(const QStringList &processed, qint64 elapsedMs);
    void writePaths(const QString &heading, const QStringList &paths);
    void writeOverwrites();
    void countOutput(const OutputNode &output);
    QString lineOf(const Node &node) const;
    bool tells(int level) const { return m_verbosity >= level; }

    const GraphScene &m_scene;
    const int m_verbosity;
    RunLog &m_log;
    QHash<const Node *, QString> m_lines;
    QSet<const Node *> m_inCircles;
    int m_errors = 0;
    int m_warnings = 0;
    QMap<QString, int> m_outputWrites; ///< by path
    QMap<QString, int> m_chartWrites;
    QMap<QString, int> m_replacements; ///< writes that replace what stood there, by path and sheet
};
