#pragma once

#include "data/dataset.h"
#include "transforms/row/keyfolding.h"

#include <vector>

class DedupeProgress;

/// Walks the rows of a table and puts each into the group of an earlier row with the same or a similar key, or makes it
/// the first of a new group.
class DuplicateSearch
{
public:
    /// Which of several similar groups a row joins; any will do for those who only ask whether there is one.
    enum Choice { AnyGroup, ClosestGroup };
    struct Place
    {
        int group = 0;     ///< counted from 0; unknown for similar rows under AnyGroup
        int closeness = 0; ///< percentage, 0 for the first row of a group
        bool isFirst() const { return closeness == 0; }
    };

    /// Makes the keys of all rows, unless `progress` is stopped: a search with it then walks no row.
    DuplicateSearch(const Dataset &dataset, const QVector<ColumnIndex> &columns, const KeyFolding &folding,
        const DedupeProgress &progress);

    /// Keys must have exactly the same texts.
    void runExactly(DedupeProgress *progress);
    /// Keys must be alike by `closeness` percent, which is above 0.
    void runSimilarly(DedupeProgress *progress, int closeness, Choice choice);

    /// The places of the rows that were walked: all unless it was stopped.
    const std::vector<Place> &places() const { return m_places; }
    int groupCount() const { return m_groupCount; }
    int duplicateCount() const { return static_cast<int>(m_places.size()) - m_groupCount; }

private:
    void report(DedupeProgress *progress, int row, int step) const;
    std::vector<const Cell *> cells() const;
    QStringList key(int row) const;
    void addFirst() { m_places.push_back({m_groupCount++, 0}); }

    const int m_rowCount;
    QVector<CellColumn> m_keys;
    std::vector<Place> m_places;
    int m_groupCount = 0;
};
