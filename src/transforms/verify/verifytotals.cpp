#include "transforms/verify/verifytotals.h"

#include "data/verifyrulenames.h"
#include "transforms/frame/messages.h"

#include <algorithm>

QString SeverityCounts::list() const
{
    static const struct
    {
        int severity;
        const char *name;
    } kinds[] = {
        {VerifyRule::Error, " error"}, {VerifyRule::Warning, " warning"}, {VerifyRule::Information, " information"}};
    QStringList texts;
    for (const auto &kind : kinds) {
        if (of(kind.severity) > 0) {
            texts.append(Messages::count(of(kind.severity)) + QLatin1String(kind.name));
        }
    }
    return texts.join(QLatin1String(", "));
}

void VerifyTotals::add(const RuleOutcome &outcome)
{
    const RuleFails &fails = outcome.fails;
    if (fails.count == 0) {
        return;
    }
    m_counts.add(outcome.rule.severity, fails.count);
    (outcome.column < 0 ? m_datasetRules : m_columnRules)[outcome.rule.ruleId] += fails.count;
    for (int column : outcome.columns) {
        m_columns.insert(column);
    }
    if (outcome.column >= 0) {
        m_columns.insert(outcome.column);
    }
    const auto bit = static_cast<uchar>(1 << outcome.rule.severity);
    for (int row : fails.rows) {
        m_rowSeverities[static_cast<size_t>(row)] |= bit;
    }
}

static void appendRuleLines(
    QString &text, const char *start, const QMap<int, qint64> &counts, QString (*nameOf)(int ruleId))
{
    for (auto rule = counts.cbegin(); rule != counts.cend(); ++rule) {
        text += QLatin1Char('\n') + QLatin1String(start) + nameOf(rule.key()) + QLatin1String(", ")
                + Messages::count(rule.value()) + QLatin1String(" fail(s)");
    }
}

QString VerifyTotals::summary() const
{
    QString text = Messages::count(m_counts.total()) + QLatin1String(" verification fail(s)");
    if (m_counts.total() > 0) {
        text += QLatin1String(" (") + m_counts.list() + QLatin1Char(')');
    }
    const auto rows = std::count_if(
        m_rowSeverities.cbegin(), m_rowSeverities.cend(), [](uchar severities) { return severities != 0; });
    if (rows > 0) {
        text += QLatin1Char('\n') + Messages::count(rows) + QLatin1String(" row(s) with fails");
    }
    if (!m_columns.isEmpty()) {
        text += QLatin1Char('\n') + Messages::count(m_columns.size()) + QLatin1String(" columns(s) with fails");
    }
    appendRuleLines(text, "Dataset rule: ", m_datasetRules, verifyDatasetRuleName);
    appendRuleLines(text, "Column rule: ", m_columnRules, verifyColumnRuleName);
    return text;
}
