#pragma once

#include "transforms/row/termmatcher.h"

#include <memory>
#include <vector>

/// The row test of a filter: its active terms, all of which must hold or any one.
class RowFilter
{
public:
    /// The table must stay as it is.
    RowFilter(const Dataset &dataset, const FilterRecord &record, bool caseSensitive);

    /// Whether the row is kept. Without active terms every row is.
    bool keeps(int row);

private:
    std::vector<std::unique_ptr<TermMatcher>> m_terms;
    bool m_keep;
    bool m_matchAll;
};
