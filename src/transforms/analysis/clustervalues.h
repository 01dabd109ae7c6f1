#pragma once

#include <QString>
#include <vector>

/// The different texts to cluster, in their normal form.
struct ClusterValues
{
    std::vector<QString> texts;
    std::vector<int> rowCounts; ///< how many rows hold each

    size_t size() const { return texts.size(); }
    /// At most `most` of them that aren't empty, taken evenly.
    ClusterValues sample(size_t most) const;
};
