#pragma once

#include <QString>
#include <numeric>
#include <vector>

/// Levenshtein distance by the table that defines it.
inline int plainDistance(const QString &a, const QString &b)
{
    std::vector<int> row(static_cast<size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const size_t at = static_cast<size_t>(j);
            const int replaced = diagonal + (a.at(i - 1) != b.at(j - 1));
            diagonal = row[at];
            row[at] = qMin(replaced, qMin(row[at], row[at - 1]) + 1);
        }
    }
    return row.back();
}
