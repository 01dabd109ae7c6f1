#pragma once

#include "transforms/analysis/clusterterms.h"
#include "transforms/analysis/clustervalues.h"

#include <QElapsedTimer>
#include <functional>

/// Chooses terms to start a search from: sequences of one to three words that many of the texts are close to.
class ClusterCandidates
{
public:
    using Progress = std::function<void(qreal)>; ///< called with the fraction done

    /// Reads the sequences of `values` while `timer` is below `deadline` milliseconds.
    ClusterCandidates(
        const ClusterValues &values, int fuzziness, const QElapsedTimer &timer, qint64 deadline, Progress progress);

    /// Adds to `terms` up to `mostTerms` in all, each time the one that makes the texts of `sample` closest to their
    /// terms; fewer when no more makes a difference worth a term of its own.
    void addTerms(std::vector<ClusterTerm> &terms, size_t mostTerms, const ClusterValues &sample) const;

private:
    using Scores = std::vector<signed char>; ///< of each text of the sample, -1 when not close enough

    bool isTimeUp() const { return m_timer.elapsed() >= m_deadline; }
    std::vector<QString> ranked(const ClusterValues &values);
    Scores scoresOf(const QString &term, const ClusterValues &sample) const;
    void addBest(std::vector<ClusterTerm> &terms, size_t mostTerms, const ClusterValues &sample,
        const std::vector<Scores> &scores, Scores &closeness) const;

    const int m_fuzziness;
    const QElapsedTimer &m_timer;
    const qint64 m_deadline;
    const Progress m_progress;
    std::vector<QString> m_texts; ///< the most promising first
};
