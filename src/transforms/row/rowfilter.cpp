#include "transforms/row/rowfilter.h"

#include "transforms/keys/keysuggestion.h"

#include <algorithm>

RowFilter::RowFilter(const Dataset &dataset, const FilterRecord &record, bool caseSensitive)
    : m_keep(record.keep)
    , m_matchAll(record.matchAll)
{
    const QHash<ColumnIndex, QString> formats = dateColumnFormats(dataset, TermMatcher::columns(dataset, record.terms));
    for (const FilterTerm &term : record.terms) {
        if (TermMatcher::isActive(term)) {
            m_terms.push_back(std::make_unique<TermMatcher>(dataset, term, formats, caseSensitive));
        }
    }
}

bool RowFilter::keeps(int row)
{
    if (m_terms.empty()) {
        return true;
    }
    const auto holds = [row](const std::unique_ptr<TermMatcher> &term) { return term->holds(row); };
    const bool matches = m_matchAll ? std::all_of(m_terms.cbegin(), m_terms.cend(), holds)
                                    : std::any_of(m_terms.cbegin(), m_terms.cend(), holds);
    return matches == m_keep;
}
