#pragma once

#include "app/commandline.h"
#include "document/documentfile.h"
#include "graph/graphscene.h"

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
    void tellWhatWasLost();
    void askNothing();
    int process();
    /// False when the run had to end; then `exitCode` says how.
    bool runScene(int *exitCode);
    bool tells(int level) const { return m_commandLine.verbosity >= level; }

    const CommandLine &m_commandLine;
    RunLog &m_log;
    GraphScene m_scene;
    LoadedDocument m_loaded;
};
