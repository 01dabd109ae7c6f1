#pragma once

#include "app/report/reportfile.h"
#include "app/report/reportsink.h"

/// Where the program reports in lines: the console and, when one is open, a log file. Both are UTF-8 and each line is
/// out when its call returns.
class RunLog final : public ReportSink
{
public:
    RunLog() = default;
    ~RunLog() override { close(); }

    /// Exit code after a command line or document that can't be used.
    static constexpr int fatalExitCode = -1;

    /// Sends the program's own messages and those of its libraries to the console as plain lines. With `quiet`, what
    /// libraries have to say short of errors is left out: a silent run is silent.
    static void installMessageHandler(bool quiet);

    /// Opens `path`, made absolute; false after reporting that it can't be opened.
    bool open(const QString &path, bool overwrite);
    bool openLog(const QString &path, bool overwrite) override;
    void close();
    bool isOpen() const { return m_file.isOpen(); }
    QString logPath() const override { return m_file.nativePath(); }
    void setErrorsMarked(bool on) { m_file.setErrorsMarked(on); }

    void info(const QString &text) override;
    /// Red on a terminal.
    void error(const QString &text) override;
    /// Reports that the program gives up; returns the exit code.
    int fatal(const QString &text);
    /// Says so on the console and in the log that is open, with next to no memory.
    static void reportOutOfMemory();
    /// Not for the log file.
    void infoToConsole(const QString &text);

private:
    ReportFile m_file;
};
