#pragma once

#include <QString>

/// Where a report goes, line by line: the console, a window, and a log file beside either.
class ReportSink
{
public:
    ReportSink() = default;
    virtual ~ReportSink() = default;
    Q_DISABLE_COPY(ReportSink)

    virtual void info(const QString &text) = 0;
    /// Shown in red.
    virtual void error(const QString &text) = 0;
    /// From now on the file at `path` takes each line as well; false when it can't be opened.
    virtual bool openLog(const QString &path, bool overwrite) = 0;
    /// Of the log file, with the system's separators; empty when there is none.
    virtual QString logPath() const = 0;
};
