#include "data/similarkeys.h"

#include "data/textsimilarity.h"

#include <algorithm>
#include <numeric>

SimilarKeys::SimilarKeys(int textsPerKey, int threshold)
    : m_textsPerKey(textsPerKey)
    , m_threshold(qBound(0, threshold, 100))
    , m_ends{0}
    , m_patterns(static_cast<size_t>(textsPerKey))
{
}

SimilarKeys::Signature SimilarKeys::signatureOf(const QStringList &key)
{
    Signature signature{};
    for (const QString &text : key) {
        for (const QChar unit : text) {
            // The low five bits tell all letters of most alphabets apart. Counts that end at 255 only rule out less.
            quint8 &count = signature[unit.unicode() & 31];
            count = static_cast<quint8>(count + (count < 255));
        }
    }
    return signature;
}

int SimilarKeys::unitsOf(const QStringList &key)
{
    return std::accumulate(key.cbegin(), key.cend(), 0, [](int sum, const QString &text) { return sum + text.size(); });
}

void SimilarKeys::append(const QStringList &key)
{
    Bucket &bucket = m_buckets[unitsOf(key)];
    bucket.signatures.push_back(signatureOf(key));
    bucket.indexes.push_back(m_size++);
    for (int i = 0; i < m_textsPerKey; ++i) {
        const QString text = key.value(i);
        m_units.insert(m_units.end(), text.cbegin(), text.cend());
        m_ends.push_back(static_cast<qptrdiff>(m_units.size()));
    }
}

QStringView SimilarKeys::textOf(int index, int text) const
{
    const size_t at = static_cast<size_t>(index) * static_cast<size_t>(m_textsPerKey) + static_cast<size_t>(text);
    return QStringView(m_units.data() + m_ends[at], m_ends[at + 1] - m_ends[at]);
}

void SimilarKeys::prepare(const QStringList &key)
{
    m_unitCount = unitsOf(key);
    m_signature = signatureOf(key);
    for (int i = 0; i < m_textsPerKey; ++i) {
        m_patterns[static_cast<size_t>(i)].setText(key.value(i));
    }
}

int SimilarKeys::largestDistanceTo(int units, int threshold) const
{
    if (m_textsPerKey == 1) {
        return Closeness::largestDistance(threshold, std::max(m_unitCount, units));
    }
    // With d the distance, the total of the longer texts is at most (both lengths + d) / 2, and d at most the
    // permitted share of that total.
    const qint64 share = 100 - threshold;
    return static_cast<int>(share * (static_cast<qint64>(m_unitCount) + units) / (200 - share));
}

int SimilarKeys::closenessTo(int index, int threshold) const
{
    qint64 total = 0;
    for (int i = 0; i < m_textsPerKey; ++i) {
        total += std::max<qint64>(m_patterns[static_cast<size_t>(i)].size(), textOf(index, i).size());
    }
    if (total == 0) {
        return 100;
    }
    const int allowed = Closeness::largestDistance(threshold, total);
    int distance = 0;
    for (int i = 0; i < m_textsPerKey && distance <= allowed; ++i) {
        distance += m_patterns[static_cast<size_t>(i)].distanceTo(textOf(index, i), allowed + 1 - distance);
    }
    return distance > allowed ? -1 : Closeness::percentage(distance, total);
}

/// Calls `visit` for the keys that may be close enough. `visit` returns the threshold for the following ones, above 100
/// to end.
template<class Visit>
void SimilarKeys::visitCandidates(int threshold, Visit visit)
{
    for (const auto &[units, bucket] : m_buckets) {
        const int difference = std::abs(units - m_unitCount);
        int slack = 2 * largestDistanceTo(units, threshold) - difference;
        if (slack < difference) {
            continue;
        }
        const Signature wanted = m_signature;
        const size_t count = bucket.indexes.size();
        for (size_t i = 0; i < count; ++i) {
            int apart = 0;
            for (size_t group = 0; group < wanted.size(); ++group) {
                apart += std::abs(wanted[group] - bucket.signatures[i][group]);
            }
            if (apart > slack) {
                continue;
            }
            const int next = visit(bucket.indexes[i], threshold);
            if (next > 100) {
                return;
            }
            if (next != threshold) {
                threshold = next;
                slack = 2 * largestDistanceTo(units, threshold) - difference;
            }
        }
    }
}

bool SimilarKeys::hasSimilar(const QStringList &key)
{
    prepare(key);
    bool found = false;
    visitCandidates(m_threshold, [&](int index, int threshold) {
        found = closenessTo(index, threshold) >= 0;
        return found ? 101 : threshold;
    });
    return found;
}

SimilarKeys::Match SimilarKeys::closest(const QStringList &key)
{
    prepare(key);
    Match best;
    visitCandidates(m_threshold, [&](int index, int threshold) {
        const int closeness = closenessTo(index, threshold);
        if (closeness > best.closeness || (closeness == best.closeness && closeness >= 0 && index < best.index)) {
            best = {index, closeness};
        }
        return std::max(threshold, best.closeness);
    });
    return best;
}

QVector<SimilarKeys::Match> SimilarKeys::all(const QStringList &key)
{
    prepare(key);
    QVector<Match> matches;
    visitCandidates(m_threshold, [&](int index, int threshold) {
        const int closeness = closenessTo(index, threshold);
        if (closeness >= 0) {
            matches.append({index, closeness});
        }
        return threshold;
    });
    std::sort(matches.begin(), matches.end(), [](const Match &a, const Match &b) { return a.index < b.index; });
    return matches;
}
