#pragma once

#include <QFile>
#include <QString>
#include <memory>

/// Where the program reports in lines: the console and, when one is open, a log file. Both are UTF-8 and each line is
/// out when its call returns.
class RunLog
{
public:
    RunLog() = default;
    ~RunLog() { close(); }
    Q_DISABLE_COPY(RunLog)

    /// Exit code after a command line or document that can't be used.
    static constexpr int fatalExitCode = -1;

    /// Sends the program's own messages and those of its libraries to the console as plain lines. With `quiet`, what
    /// libraries have to say short of errors is left out: a silent run is silent.
    static void installMessageHandler(bool quiet);

    /// Opens `path`, made absolute; false after reporting that it can't be opened.
    bool open(const QString &path, bool overwrite);
    void close();
    bool isOpen() const { return m_file != nullptr; }
    /// Of the log file, with the system's separators.
    QString nativePath() const;

    void info(const QString &text);
    /// Red on a terminal.
    void error(const QString &text);
    /// Reports that the program gives up; returns the exit code.
    int fatal(const QString &text);
    /// Says so on the console and in the log that is open, with next to no memory.
    static void reportOutOfMemory();
    /// Not for the log file.
    void infoToConsole(const QString &text);

private:
    void writeToFile(const QString &text);

    std::unique_ptr<QFile> m_file;
};
