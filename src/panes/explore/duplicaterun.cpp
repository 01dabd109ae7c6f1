#include "panes/explore/duplicaterun.h"

#include "transforms/row/dedupeprogress.h"

#include <QThread>
#include <exception>

DuplicateRun::DuplicateRun(QObject *parent)
    : QObject(parent)
{
}

DuplicateRun::~DuplicateRun()
{
    if (m_thread) {
        disconnect(m_thread, nullptr, this, nullptr);
        m_progress->stop();
        m_thread->wait();
        delete m_thread;
    }
}

void DuplicateRun::start(const Dataset &dataset, const DuplicateOptions &options)
{
    Q_ASSERT(!m_thread);
    delete m_progress;
    m_progress = new DedupeProgress(this);
    connect(m_progress, QOverload<qreal, int, int>::of(&DedupeProgress::processed), this, &DuplicateRun::processed);
    m_result = std::make_shared<Result>();
    m_wasStopped = false;
    m_timer.start();
    m_thread = QThread::create([dataset, options, progress = m_progress, result = m_result] {
        try {
            search(*result, progress, dataset, options);
        } catch (const std::exception &) {
            // Nothing catches what leaves a thread: the program would end.
            *result = Result();
            result->outOfMemory = true;
        }
    });
    connect(m_thread, &QThread::finished, this, &DuplicateRun::onThreadFinished);
    m_thread->start();
}

void DuplicateRun::search(
    Result &result, DedupeProgress *progress, const Dataset &dataset, const DuplicateOptions &options)
{
    QVector<ColumnIndex> columns;
    for (const ColumnId id : options.columns) {
        const ColumnIndex column = dataset.columnIndexOfId(id);
        if (column.isValid()) {
            columns.append(column);
        }
    }
    DuplicateSearch search(dataset, columns, options.folding, *progress);
    if (options.isFuzzy) {
        search.runSimilarly(progress, options.closeness, DuplicateSearch::ClosestGroup);
    } else {
        search.runExactly(progress);
    }
    result.groups = DuplicateGroups(search.places());
    result.table = result.groups.describe(dataset);
}

void DuplicateRun::stop()
{
    if (m_thread) {
        m_wasStopped = true;
        m_progress->stop();
    }
}

void DuplicateRun::onThreadFinished()
{
    m_thread->wait();
    m_thread->deleteLater();
    m_thread = nullptr;
    // A stop that came behind the last row stopped nothing.
    m_wasStopped = m_wasStopped && m_result->groups.rows().size() < m_result->table.rowCount();
    constexpr double msPerSecond = 1000;
    m_seconds = static_cast<double>(m_timer.elapsed()) / msPerSecond;
    emit finished();
}
