#pragma once

#include "app/commandline.h"
#include "document/documentfile.h"
#include "graph/graphscene.h"

#include <functional>

class RunLog;

/// One document, run without a window: opened, given other files, run, reported.
class CommandLineRun
{
public:
    CommandLineRun(const CommandLine &commandLine, RunLog &log);

    /// Returns the exit code of the process.
    int run();

private:
    void writeHeading();
    /// Empty, or why the document can't be used.
    QString open();
    void takeBatchVerbosity();
    void tellWhatWasLost();
    void askNothing();
    int process();
    /// False after saying that it can't be written.
    bool writeFlowReport();
    /// Runs the document's batch.
    int processBatch();
    QString batchError() const;
    BatchSettings batchSettings() const;
    /// Does the work; false when it had to end by an exception, and then `exitCode` says how.
    bool isCompleted(const std::function<void()> &work, int *exitCode);
    bool tells(int level) const { return m_verbosity >= level; }

    const CommandLine &m_commandLine;
    RunLog &m_log;
    int m_verbosity; ///< of a batch that is the document's, if the command line names none
    GraphScene m_scene;
    LoadedDocument m_loaded;
};
