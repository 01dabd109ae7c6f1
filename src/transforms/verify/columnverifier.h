#pragma once

#include "transforms/verify/rulechecks.h"
#include "transforms/verify/verifytotals.h"

/// Runs the active rules of one column over its cells, all rules on a cell before the next cell.
class ColumnVerifier
{
public:
    /// `cells` must stay where they are.
    ColumnVerifier(const QList<VerifyRule> &rules, const RuleContext &context, int column, const CellColumn &cells);

    bool hasRules() const { return !m_outcomes.empty(); }
    /// Calls `onRow` before each row.
    template<class OnRow>
    void run(OnRow onRow)
    {
        for (int row = 0; !m_cellRules.empty() && row < m_cells.size(); ++row) {
            onRow(row);
            checkRow(row);
        }
        finish();
    }
    /// One for each active rule, in the order of the rules.
    std::vector<RuleOutcome> &outcomes() { return m_outcomes; }

private:
    struct CellRule
    {
        RuleCheck *check;
        size_t outcome;
    };
    void checkRow(int row);
    void finish();

    const CellColumn &m_cells;
    std::vector<RuleOutcome> m_outcomes;
    std::vector<RuleCheckPointer> m_checks; ///< by outcome; null where a rule can't fail
    std::vector<CellRule> m_cellRules;
    Utf16Cell m_text;
};
