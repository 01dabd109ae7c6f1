#pragma once

#include <QFile>
#include <QString>

/// The log file of a report, in UTF-8; each line is out when its call returns.
class ReportFile
{
public:
    /// Opens `path`, made absolute; false when it can't be written.
    bool open(const QString &path, bool overwrite);
    void close() { m_file.close(); }
    bool isOpen() const { return m_file.isOpen(); }
    /// With the system's separators; empty when it isn't open.
    QString nativePath() const;

    /// Batches mark errors with stars, since a file has no colours.
    void setErrorsMarked(bool on) { m_errorsMarked = on; }
    void info(const QString &text);
    void error(const QString &text);
    /// Bytes as they are, with next to no memory.
    void writeBytes(const char *bytes);

private:
    QFile m_file;
    bool m_errorsMarked = false;
};
