#pragma once

#include "transforms/analysis/clusterterms.h"
#include "transforms/analysis/clustervalues.h"
#include "transforms/frame/randomnumbers.h"

#include <QElapsedTimer>
#include <functional>

/// Betters a set of cluster terms by random changes: a term gives way to one of the texts near it where that brings
/// the texts closer to their terms.
class ClusterSearch
{
public:
    using Progress = std::function<void(qreal)>; ///< called with the fraction done

    ClusterSearch(const ClusterValues &values, std::vector<ClusterTerm> terms, int fuzziness);

    /// Tries up to `rounds` changes while `timer` is below `deadline` milliseconds.
    void run(int rounds, const QElapsedTimer &timer, qint64 deadline, const Progress &progress);
    const std::vector<ClusterTerm> &terms() const { return m_terms; }
    /// How many sets of terms were judged.
    int triedCount() const { return m_triedCount; }
    bool isTimeUp() const { return m_isTimeUp; }

private:
    using Clusters = std::vector<NearestTerm>;

    /// A text other than the term that belongs to it or, now and then, to no term; -1 when there is none.
    int otherText(int term);
    void tryText(int term, const QString &text);
    Clusters changed(int term) const;
    qint64 worthOf(const Clusters &clusters) const;

    const ClusterValues &m_values;
    std::vector<ClusterTerm> m_terms;
    const int m_fuzziness;
    RandomNumbers m_random;
    Clusters m_clusters;
    qint64 m_worth = 0;
    int m_triedCount = 0;
    bool m_isTimeUp = false;
};
