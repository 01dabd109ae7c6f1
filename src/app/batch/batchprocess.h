#pragma once

#include "app/batch/batchcolumns.h"
#include "app/batch/batchrun.h"
#include "app/report/reportwriter.h"
#include "app/report/runtally.h"
#include "document/batchsettings.h"

#include <QObject>
#include <QSet>

class GraphScene;
class ReportSink;

/// Runs a document once for each combination of files that the rows of its batch grid stand for, each time on a copy of
/// its scene, and reports. Events are let in between runs and within them, so that it can be stopped.
class BatchProcess : public QObject
{
    Q_OBJECT

public:
    /// `document` and `sink` must outlive this.
    BatchProcess(const GraphScene &document, const BatchSettings &settings, ReportSink &sink);

    /// Whether outputs that append begin with an empty file in each batch.
    void setClearBeforeAppend(bool on) { m_options.clearBeforeAppend = on; }
    /// Items in circles can't have been meant to run as they do now: each counts as an error of every run.
    void setInCircles(const QList<Node *> &nodes);

    /// Counts what was told when the document was opened.
    void addWarnings(int count) { m_total.warnings += count; }

    /// Runs all rows; returns how many errors there were.
    int run();

public slots:
    /// The batch ends after the run under way.
    void requestStop() { m_stopRequested = true; }

signals:
    /// How much of a row, counted from 0, has been run.
    void rowProgressed(int row, int percent);

private:
    void startLog();
    void runRow(int row);
    /// One list of paths for each input column, or none when the row can't be run.
    QList<QStringList> expandRow(int row);
    void runCombinations(int row, const QList<QStringList> &lists);
    void runOnce(const BatchPaths &paths);
    BatchPaths rowPaths(int row) const;
    bool goesOn();
    void writeTotals(qint64 elapsedMs);

    const GraphScene &m_document;
    const BatchSettings m_settings;
    const QList<BatchColumn> m_columns;
    ReportWriter m_writer;
    BatchRunOptions m_options;
    QSet<QString> m_appendedTo;
    RunTally m_total;
    int m_runs = 0;
    int m_runsWithErrors = 0;
    bool m_stopRequested = false;
};
