#pragma once

#include "data/textpattern.h"

#include <QStringList>
#include <QVector>
#include <array>
#include <map>
#include <vector>

/// A growing list of keys that is searched for those close to a given key, as keyCloseness() has it (for keys of one
/// text that is fuzzyScore()). Most keys are ruled out by their lengths and by how often they have which characters.
class SimilarKeys
{
public:
    struct Match
    {
        int index = -1; ///< position in the order of append(); -1 for none
        int closeness = -1;
    };

    /// Keys have `textsPerKey` texts, at least one; `threshold` is the closeness in percent, 0 to 100, that counts.
    SimilarKeys(int textsPerKey, int threshold);

    void append(const QStringList &key);
    int size() const { return m_size; }

    bool hasSimilar(const QStringList &key);
    /// The closest key, of equally close ones the first.
    Match closest(const QStringList &key);
    /// All that are close enough, in the order of append().
    QVector<Match> all(const QStringList &key);

private:
    /// How often the characters occur, gathered in 32 groups. An edit changes at most two counts, by one each.
    using Signature = std::array<quint8, 32>;
    struct Bucket
    {
        std::vector<Signature> signatures;
        std::vector<int> indexes;
    };

    static Signature signatureOf(const QStringList &key);
    static int unitsOf(const QStringList &key);
    void prepare(const QStringList &key);
    QStringView textOf(int index, int text) const;
    int largestDistanceTo(int units, int threshold) const;
    int closenessTo(int index, int threshold) const;
    template<class Visit>
    void visitCandidates(int threshold, Visit visit);

    const int m_textsPerKey;
    const int m_threshold;
    int m_size = 0;
    std::map<int, Bucket> m_buckets; ///< by units of the whole key
    std::vector<QChar> m_units;
    std::vector<qptrdiff> m_ends; ///< of each text within m_units, behind a first 0

    // The key in question
    std::vector<TextPattern> m_patterns;
    Signature m_signature{};
    int m_unitCount = 0;
};
