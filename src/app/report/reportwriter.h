#pragma once

#include "app/commandline.h"

#include <QMap>
#include <QString>

class Node;
class ReportSink;
struct RunTally;

/// The lines of a report, each as far as its verbosity goes: those of runs from the command line and of batches.
class ReportWriter
{
public:
    /// `verbosity` is a value of Verbosity; `sink` must outlive this.
    ReportWriter(int verbosity, ReportSink &sink)
        : m_verbosity(verbosity)
        , m_sink(sink)
    {
    }

    bool tells(int level) const { return m_verbosity >= level; }
    ReportSink &sink() { return m_sink; }

    /// The line of an item, with more fields for those who want details.
    QString lineOf(const Node &node) const;
    /// Its infos and warnings, as far as told.
    void messages(const Node &node);
    /// "Started: " or the like with the present time, from Normal on.
    void time(const QString &heading);
    void processed(const RunTally &tally);
    void writtenFiles(const RunTally &tally);
    /// Files that one write after the other replaced; nothing when there are none.
    void overwrites(const RunTally &tally);
    /// `heading` with "%1" for the seconds.
    void elapsed(const QString &heading, qint64 ms);
    /// `heading` with "%1" for errors and, from Normal on, warnings.
    void results(const QString &heading, const RunTally &tally, bool errorsInRed);

    /// False for an item whose messages aren't news: text from the clipboard is what the document brings along, but why
    /// it can't be read is told.
    static bool hasNews(const Node &node, bool isProcessed);

private:
    void paths(const QString &heading, const QMap<QString, int> &paths);

    const int m_verbosity;
    ReportSink &m_sink;
};
