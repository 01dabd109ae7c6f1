#pragma once

#include "data/dataset.h"
#include "transforms/row/duplicatesearch.h"

#include <QStringList>
#include <QVector>
#include <vector>

/// What a search for duplicates found, as a person looks at it: like rows stand together, the first of each group in
/// front of its duplicates, the closest of which come first.
class DuplicateGroups
{
public:
    DuplicateGroups() = default;
    /// `places` are those of the rows that were searched, which may be the first rows of the table only.
    explicit DuplicateGroups(std::vector<DuplicateSearch::Place> places);

    /// The rows of the table that were searched, group after group.
    const QVector<int> &rows() const { return m_rows; }
    /// The same without groups of one row.
    QVector<int> rowsWithDuplicates() const;
    /// For each row of the table whether it repeats the first of its group.
    std::vector<bool> duplicates() const;
    int groupCount() const { return static_cast<int>(m_firsts.size()); }
    int duplicateCount() const { return m_rows.size() - groupCount(); }

    /// The table with "Closeness" (of duplicates, in percent), "Matches" (the number of the row that a duplicate
    /// repeats, from 1) and "Occurrences" (the rows in the group). They are empty for rows that weren't searched.
    Dataset describe(const Dataset &dataset) const;
    static constexpr int columnCount = 3;

    /// A line for each closeness of duplicates, and one for each number of duplicates that rows have.
    QStringList summary() const;

private:
    const DuplicateSearch::Place &place(int row) const { return m_places[static_cast<size_t>(row)]; }
    int sizeOf(int group) const { return m_sizes[static_cast<size_t>(group)]; }

    std::vector<DuplicateSearch::Place> m_places;
    std::vector<int> m_firsts; ///< the first row of each group
    std::vector<int> m_sizes;  ///< rows in each group
    QVector<int> m_rows;
};
