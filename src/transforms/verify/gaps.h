#pragma once

#include "transforms/verify/rulecheck.h"

#include <QStringList>
#include <algorithm>

/// Tells of the whole numbers that are missing between the least and the greatest of `values`. The list names the
/// first ones, each by `nameOf`.
template<class NameOf>
void reportGaps(std::vector<qint64> values, RuleFails &fails, NameOf nameOf)
{
    constexpr int listed = 5;
    std::sort(values.begin(), values.end());
    QStringList names;
    for (size_t i = 1; i < values.size(); ++i) {
        const qint64 missing = qMax<qint64>(0, values[i] - values[i - 1] - 1);
        fails.count += missing;
        for (qint64 gap = 1; gap <= missing && names.size() < listed; ++gap) {
            names.append(nameOf(values[i - 1] + gap));
        }
    }
    if (fails.count > 0) {
        fails.detail = QStringLiteral("missing value(s)=") + names.join(QLatin1Char(','));
    }
    if (fails.count > listed) {
        fails.detail += QChar(0x2026);
    }
}
