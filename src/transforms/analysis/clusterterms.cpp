#include "transforms/analysis/clusterterms.h"

#include "data/textsimilarity.h"

NearestTerm nearestTerm(const QString &text, const std::vector<ClusterTerm> &terms, int fuzziness)
{
    constexpr int highest = 100;
    NearestTerm nearest;
    for (size_t i = 0; i < terms.size() && nearest.closeness < highest; ++i) {
        // A later term only counts when it is closer, which ends most comparisons early.
        const int closeness = fuzzyScore(text, terms[i].compared, qMax(fuzziness, nearest.closeness + 1));
        if (closeness > nearest.closeness) {
            nearest = {static_cast<int>(i), closeness};
        }
    }
    return nearest;
}

QString clusterNormalForm(const QString &text, bool caseSensitive)
{
    const QString trimmed = text.trimmed();
    return caseSensitive ? trimmed : trimmed.toLower();
}
