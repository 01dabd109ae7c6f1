#pragma once

#include "panes/explore/duplicategroups.h"
#include "transforms/row/keyfolding.h"

#include <QElapsedTimer>
#include <QObject>
#include <memory>

class DedupeProgress;
class QThread;

/// How a search for duplicates compares rows.
struct DuplicateOptions
{
    QList<ColumnId> columns;
    bool isFuzzy = false;
    int closeness = 80; ///< percentage that fuzzy matching asks for
    KeyFolding folding;
};

/// A search for duplicates in the background. What it found is there once finished() has been emitted.
class DuplicateRun : public QObject
{
    Q_OBJECT

public:
    explicit DuplicateRun(QObject *parent = nullptr);
    /// Stops a search that is on, and waits for its end.
    ~DuplicateRun() override;

    /// `dataset` is copied. Columns that it hasn't are passed over; one search at a time.
    void start(const Dataset &dataset, const DuplicateOptions &options);
    /// Ends the search in front of its next row; what it found until then counts.
    void stop();
    bool isRunning() const { return m_thread != nullptr; }

    /// True when memory didn't hold what the search needs; then nothing was found.
    bool ranOutOfMemory() const { return m_result->outOfMemory; }
    bool wasStopped() const { return m_wasStopped; }
    double seconds() const { return m_seconds; }
    const DuplicateGroups &groups() const { return m_result->groups; }
    /// The table with the columns that describe its groups.
    const Dataset &table() const { return m_result->table; }

signals:
    void processed(qreal progress, int nonDupesFound, int dupesFound);
    void finished();

private:
    struct Result
    {
        DuplicateGroups groups;
        Dataset table;
        bool outOfMemory = false;
    };

    static void search(
        Result &result, DedupeProgress *progress, const Dataset &dataset, const DuplicateOptions &options);

    void onThreadFinished();

    std::shared_ptr<Result> m_result = std::make_shared<Result>();
    DedupeProgress *m_progress = nullptr;
    QThread *m_thread = nullptr; ///< null when no search is on
    QElapsedTimer m_timer;
    double m_seconds = 0;
    bool m_wasStopped = false;
};
