#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

// How close two texts are. Texts are taken as UTF-16 code units and case counts.

/// Levenshtein distance with unit costs for insertion, deletion and substitution; `limit` when it is that or more.
int editDistance(QStringView a, QStringView b, int limit);

/// Closeness of two texts in percent, measured against the longer one; two empty texts give 100. -1 when the closeness
/// is below `threshold` percent.
int fuzzyScore(QStringView a, QStringView b, int threshold);

/// Closeness of two keys of several texts in percent, all texts taken together, so that a long text can make up for a
/// short one; -1 when it is below `threshold` percent. Keys of different lengths give 0.
int keyCloseness(const QStringList &a, const QStringList &b, int threshold);

/// The sums behind both percentages.
namespace Closeness {

/// Largest distance that keeps texts of `total` units at `threshold` percent or above; negative above 100 percent.
inline int largestDistance(int threshold, qint64 total)
{
    const qint64 hundredths = (100 - threshold) * total;
    return static_cast<int>(hundredths >= 0 ? hundredths / 100 : -1);
}

/// Percentage of `total` units, above 0, that `distance` leaves, rounded down.
inline int percentage(qint64 distance, qint64 total)
{
    return 100 - static_cast<int>((distance * 100 + total - 1) / total);
}

} // namespace Closeness
