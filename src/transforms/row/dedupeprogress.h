#pragma once

#include <QObject>
#include <atomic>

/// Tells how a search for duplicates gets on, and lets it be stopped, also from another thread.
class DedupeProgress : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool isStopped() const { return m_isStopped; }

public slots:
    /// Ends the search in front of the next row; the result covers the rows before.
    void stop() { m_isStopped = true; }

signals:
    /// Fraction done, 0 to 1.
    void processed(qreal progress);
    void processed(qreal progress, int nonDupesFound, int dupesFound);

private:
    std::atomic<bool> m_isStopped{false};
};
