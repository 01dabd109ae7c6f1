#include "transforms/analysis/clustercandidates.h"

#include "data/textsimilarity.h"
#include "transforms/analysis/ngramindex.h"

#include <algorithm>
#include <numeric>
#include <queue>

namespace {

constexpr int mostWords = 3;
constexpr size_t mostCandidates = 4000;
constexpr size_t progressStep = 1000;
/// A text must come this much closer, in percent, to speak for a term of its own: a few misspelt letters don't.
constexpr int worthwhile = 25;

} // namespace

ClusterCandidates::ClusterCandidates(
    const ClusterValues &values, int fuzziness, const QElapsedTimer &timer, qint64 deadline, Progress progress)
    : m_fuzziness(fuzziness)
    , m_timer(timer)
    , m_deadline(deadline)
    , m_progress(std::move(progress))
{
    m_texts = ranked(values);
}

std::vector<QString> ClusterCandidates::ranked(const ClusterValues &values)
{
    // A text that holds a sequence is as close to it as their lengths are, or closer.
    NgramIndex ngrams(1, mostWords, false);
    std::vector<double> worth;
    for (size_t i = 0; i < values.size(); ++i) {
        if (i % progressStep == 0) {
            m_progress(static_cast<qreal>(i) / static_cast<qreal>(values.size()) / 2);
            if (isTimeUp()) {
                break;
            }
        }
        const std::vector<int> &found = ngrams.ngramsOf(values.texts[i]);
        worth.resize(static_cast<size_t>(ngrams.size()));
        for (const int ngram : found) {
            const double closeness = 100.0 * ngrams.length(ngram) / qMax(ngrams.length(ngram), values.texts[i].size());
            if (closeness >= m_fuzziness) {
                worth[static_cast<size_t>(ngram)] += closeness * values.rowCounts[i];
            }
        }
    }
    std::vector<int> order(worth.size());
    std::iota(order.begin(), order.end(), 0);
    const auto end = order.begin() + static_cast<std::ptrdiff_t>(std::min(order.size(), mostCandidates));
    std::partial_sort(order.begin(), end, order.end(), [&worth](int a, int b) {
        const double worthOfA = worth[static_cast<size_t>(a)];
        const double worthOfB = worth[static_cast<size_t>(b)];
        return worthOfA != worthOfB ? worthOfA > worthOfB : a < b;
    });
    std::vector<QString> texts;
    for (auto ngram = order.begin(); ngram != end; ++ngram) {
        texts.push_back(ngrams.text(*ngram));
    }
    return texts;
}

ClusterCandidates::Scores ClusterCandidates::scoresOf(const QString &term, const ClusterValues &sample) const
{
    Scores scores;
    scores.reserve(sample.size());
    for (const QString &text : sample.texts) {
        scores.push_back(static_cast<signed char>(fuzzyScore(text, term, m_fuzziness)));
    }
    return scores;
}

void ClusterCandidates::addTerms(std::vector<ClusterTerm> &terms, size_t mostTerms, const ClusterValues &sample) const
{
    constexpr size_t leastTried = 200;
    constexpr size_t triedForEachTerm = 4;
    const size_t count = std::min(m_texts.size(), std::max(leastTried, triedForEachTerm * mostTerms));
    std::vector<Scores> scores;
    for (size_t i = 0; i < count && !isTimeUp(); ++i) {
        m_progress(0.5 + static_cast<qreal>(i) / static_cast<qreal>(count) / 2);
        scores.push_back(scoresOf(m_texts[i], sample));
    }
    Scores closeness(sample.size(), 0);
    for (size_t i = 0; i < sample.size(); ++i) {
        const int nearest = nearestTerm(sample.texts[i], terms, m_fuzziness).closeness;
        closeness[i] = static_cast<signed char>(qMax(0, nearest));
    }
    addBest(terms, mostTerms, sample, scores, closeness);
    if (terms.empty() && mostTerms > 0 && !m_texts.empty()) {
        terms.push_back({m_texts.front(), m_texts.front()});
    }
}

void ClusterCandidates::addBest(std::vector<ClusterTerm> &terms, size_t mostTerms, const ClusterValues &sample,
    const std::vector<Scores> &scores, Scores &closeness) const
{
    const auto gainOf = [&](size_t candidate) {
        qint64 gain = 0;
        for (size_t i = 0; i < sample.size(); ++i) {
            const int closer = scores[candidate][i] - closeness[i];
            gain += closer > worthwhile ? static_cast<qint64>(closer) * sample.rowCounts[i] : 0;
        }
        return gain;
    };
    // Gains only shrink as terms are added, so a candidate whose gain still leads after a fresh count is the best.
    struct Entry
    {
        qint64 gain;
        size_t candidate;
        bool operator<(const Entry &other) const
        {
            return gain != other.gain ? gain < other.gain : candidate > other.candidate;
        }
    };
    std::priority_queue<Entry> queue;
    for (size_t candidate = 0; candidate < scores.size(); ++candidate) {
        queue.push({gainOf(candidate), candidate});
    }
    while (!queue.empty() && terms.size() < mostTerms && !isTimeUp()) {
        const size_t candidate = queue.top().candidate;
        queue.pop();
        const Entry fresh{gainOf(candidate), candidate};
        if (fresh.gain == 0) {
            continue;
        }
        if (!queue.empty() && fresh < queue.top()) {
            queue.push(fresh);
            continue;
        }
        terms.push_back({m_texts[candidate], m_texts[candidate]});
        for (size_t i = 0; i < sample.size(); ++i) {
            closeness[i] = qMax(closeness[i], scores[candidate][i]);
        }
    }
}
