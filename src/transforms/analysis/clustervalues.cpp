#include "transforms/analysis/clustervalues.h"

#include <algorithm>

ClusterValues ClusterValues::sample(size_t most) const
{
    const auto filled = static_cast<size_t>(
        std::count_if(texts.cbegin(), texts.cend(), [](const QString &text) { return !text.isEmpty(); }));
    const size_t step = std::max<size_t>(1, (filled + most - 1) / most);
    ClusterValues values;
    size_t seen = 0;
    for (size_t i = 0; i < size(); ++i) {
        if (!texts[i].isEmpty() && seen++ % step == 0) {
            values.texts.push_back(texts[i]);
            values.rowCounts.push_back(rowCounts[i]);
        }
    }
    return values;
}
