#include "data/textsimilarity.h"

#include "data/textpattern.h"

#include <algorithm>
#include <limits>

int editDistance(QStringView a, QStringView b, int limit)
{
    const auto firsts = std::mismatch(a.cbegin(), a.cend(), b.cbegin(), b.cend());
    a = a.mid(firsts.first - a.cbegin());
    b = b.mid(firsts.second - b.cbegin());
    const auto lasts = std::mismatch(a.crbegin(), a.crend(), b.crbegin(), b.crend());
    const auto same = lasts.first - a.crbegin();
    a.chop(same);
    b.chop(same);
    if (std::abs(a.size() - b.size()) >= limit) {
        return limit;
    }
    if (a.size() > b.size()) {
        std::swap(a, b);
    }
    return a.isEmpty() ? static_cast<int>(b.size()) : TextPattern(a).distanceTo(b, limit);
}

int fuzzyScore(QStringView a, QStringView b, int threshold)
{
    const auto longer = std::max(a.size(), b.size());
    if (longer == 0) {
        return 100;
    }
    const int allowed = Closeness::largestDistance(threshold, longer);
    if (allowed < 0) {
        return -1;
    }
    const int distance = editDistance(a, b, allowed + 1);
    return distance > allowed ? -1 : Closeness::percentage(distance, longer);
}

int keyCloseness(const QStringList &a, const QStringList &b, int threshold)
{
    if (a.size() != b.size()) {
        return 0;
    }
    qint64 total = 0;
    for (int i = 0; i < a.size(); ++i) {
        total += std::max(a.at(i).size(), b.at(i).size());
    }
    if (total == 0) {
        return 100;
    }
    int budget = Closeness::largestDistance(threshold, total);
    qint64 distance = 0;
    for (int i = 0; i < a.size(); ++i) {
        const int here = budget < 0 ? 0 : editDistance(a.at(i), b.at(i), budget + 1);
        budget -= here;
        if (budget < 0) {
            return -1;
        }
        distance += here;
    }
    return Closeness::percentage(distance, total);
}
