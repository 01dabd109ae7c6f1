#include "transforms/verify/columnverifier.h"

ColumnVerifier::ColumnVerifier(
    const QList<VerifyRule> &rules, const RuleContext &context, int column, const CellColumn &cells)
    : m_cells(cells)
{
    for (const VerifyRule &rule : rules) {
        if (!rule.active || rule.ruleId < 0 || rule.ruleId >= VerifyRule::columnRuleCount) {
            continue;
        }
        m_checks.push_back(makeRuleCheck(rule, context));
        RuleOutcome outcome;
        outcome.rule = rule;
        outcome.rule.severity = qBound<int>(VerifyRule::Information, rule.severity, VerifyRule::Error);
        outcome.column = column;
        if (m_checks.back() && m_checks.back()->wantsCells()) {
            m_cellRules.push_back({m_checks.back().get(), m_outcomes.size()});
        }
        m_outcomes.push_back(outcome);
    }
}

void ColumnVerifier::checkRow(int row)
{
    m_text.set(m_cells.at(row));
    for (const CellRule &rule : m_cellRules) {
        if (rule.check->fails(m_text)) {
            m_outcomes[rule.outcome].fails.addRow(row);
        }
    }
}

void ColumnVerifier::finish()
{
    for (size_t i = 0; i < m_checks.size(); ++i) {
        if (m_checks[i]) {
            m_checks[i]->finish(m_cells, m_outcomes[i].fails);
        }
    }
}
