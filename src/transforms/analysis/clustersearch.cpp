#include "transforms/analysis/clustersearch.h"

#include "data/textsimilarity.h"

// Always the same draws, so that a document gives the same clusters again.
static constexpr int seed = 1;

ClusterSearch::ClusterSearch(const ClusterValues &values, std::vector<ClusterTerm> terms, int fuzziness)
    : m_values(values)
    , m_terms(std::move(terms))
    , m_fuzziness(fuzziness)
    , m_random(seed)
{
    m_clusters.reserve(values.size());
    for (const QString &text : values.texts) {
        m_clusters.push_back(nearestTerm(text, m_terms, m_fuzziness));
    }
    m_worth = worthOf(m_clusters);
    m_triedCount = 1;
}

void ClusterSearch::run(int rounds, const QElapsedTimer &timer, qint64 deadline, const Progress &progress)
{
    for (int round = 0; round < rounds; ++round) {
        progress(static_cast<qreal>(round) / rounds);
        const int term = round % static_cast<int>(m_terms.size());
        const int text = otherText(term);
        if (text >= 0) {
            tryText(term, m_values.texts[static_cast<size_t>(text)]);
        }
        if (timer.elapsed() >= deadline) {
            m_isTimeUp = true;
            return;
        }
    }
}

int ClusterSearch::otherText(int term)
{
    constexpr int oneIn = 10;
    const int sought = m_fuzziness > 0 && m_random.below(oneIn) == 0 ? -1 : term;
    const size_t count = m_values.size();
    const auto start = static_cast<size_t>(m_random.below(static_cast<qint64>(count)));
    const QString &compared = m_terms[static_cast<size_t>(term)].compared;
    for (size_t step = 0; step < count; ++step) {
        const size_t i = (start + step) % count;
        if (m_clusters[i].term == sought && m_values.texts[i] != compared) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void ClusterSearch::tryText(int term, const QString &text)
{
    ClusterTerm &changing = m_terms[static_cast<size_t>(term)];
    const ClusterTerm before = changing;
    changing = {text, text};
    Clusters clusters = changed(term);
    const qint64 worth = worthOf(clusters);
    ++m_triedCount;
    if (worth > m_worth) {
        m_clusters = std::move(clusters);
        m_worth = worth;
    } else {
        changing = before;
    }
}

/// The clusters after a change of `term`: texts of another term only move when the new one is closer, or as close and
/// further up.
ClusterSearch::Clusters ClusterSearch::changed(int term) const
{
    const QString &compared = m_terms[static_cast<size_t>(term)].compared;
    Clusters clusters = m_clusters;
    for (size_t i = 0; i < clusters.size(); ++i) {
        NearestTerm &nearest = clusters[i];
        if (nearest.term == term) {
            nearest = nearestTerm(m_values.texts[i], m_terms, m_fuzziness);
            continue;
        }
        const int least = nearest.closeness + (term < nearest.term ? 0 : 1);
        const int closeness = fuzzyScore(m_values.texts[i], compared, qMax(m_fuzziness, least));
        if (closeness >= 0) {
            nearest = {term, closeness};
        }
    }
    return clusters;
}

qint64 ClusterSearch::worthOf(const Clusters &clusters) const
{
    qint64 worth = 0;
    for (size_t i = 0; i < clusters.size(); ++i) {
        worth += static_cast<qint64>(qMax(0, clusters[i].closeness)) * m_values.rowCounts[i];
    }
    return worth;
}
