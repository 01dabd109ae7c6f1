#pragma once

#include "app/report/reportfile.h"
#include "app/report/reportsink.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

/// The report of a batch in a window, and in a log file when there is one.
class BatchResults : public QWidget, public ReportSink
{
    Q_OBJECT

public:
    /// More lines than this push the first ones out, so that a long batch keeps its memory.
    static constexpr int maxLines = 10000;

    explicit BatchResults(QWidget *parent = nullptr);

    /// Empties it for the next batch, without a log.
    void clear();
    void closeLog() { m_log.close(); }

    void info(const QString &text) override;
    void error(const QString &text) override;
    bool openLog(const QString &path, bool overwrite) override { return m_log.open(path, overwrite); }
    QString logPath() const override { return m_log.nativePath(); }

private:
    void append(const QString &html);

    QPlainTextEdit *m_text;
    QLabel *m_cutNote;
    ReportFile m_log;
};
