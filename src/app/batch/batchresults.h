#pragma once

#include "app/report/reportfile.h"
#include "app/report/reportsink.h"

#include <QStringList>
#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QTimer;

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
    /// Shows what has been held back and ends the log.
    void finish();

    void info(const QString &text) override;
    void error(const QString &text) override;
    bool openLog(const QString &path, bool overwrite) override { return m_log.open(path, overwrite); }
    QString logPath() const override { return m_log.nativePath(); }

private slots:
    void showPending();

private:
    void append(const QString &html);

    QPlainTextEdit *m_text;
    QLabel *m_cutNote;
    /// Lines come in by the thousand a second and are shown some at a time, since each showing costs a drawing.
    QStringList m_pending;
    QTimer *m_showTimer;
    ReportFile m_log;
};
