#include "data/verifyrulenames.h"
#include "transforms/frame/messages.h"
#include "transforms/verify/ruletable.h"
#include "transforms/verify/verifytotals.h"

namespace VerifyReport {

static QString ruleText(const QString &name, const RuleOutcome &outcome, VerifyRuleTable::ParameterKind kind)
{
    QString text = name;
    if (kind != VerifyRuleTable::NoParameter) {
        text += QLatin1String(" '") + VerifyRuleTable::parameterText(outcome.rule.value, kind) + QLatin1Char('\'');
    }
    if (kind == VerifyRuleTable::Date) {
        text += QLatin1String(" (yyyy-MM-dd)");
    }
    return text + QLatin1String(", ") + VerifyRuleTable::severityName(outcome.rule.severity) + QLatin1Char(' ')
           + Messages::count(outcome.fails.count) + QLatin1String(" fail(s)");
}

static QString inBrackets(const QString &text)
{
    return text.isEmpty() ? text : QLatin1String(" (") + text + QLatin1Char(')');
}

QString rowList(const QVector<int> &rows)
{
    constexpr int listed = 5;
    QStringList numbers;
    for (int i = 0; i < rows.size() && i < listed; ++i) {
        numbers.append(QString::number(rows.at(i) + 1));
    }
    QString text = numbers.join(QLatin1Char(','));
    if (rows.size() > listed) {
        text += QStringLiteral("…+%1 more").arg(Messages::count(rows.size() - listed));
    }
    return text;
}

QString datasetRuleLine(const RuleOutcome &outcome)
{
    const int id = outcome.rule.ruleId;
    return QLatin1String("Dataset rule: ")
           + ruleText(verifyDatasetRuleName(id), outcome, VerifyRuleTable::datasetRuleKind(id))
           + inBrackets(outcome.fails.detail);
}

QString columnRuleLine(const RuleOutcome &outcome)
{
    const int id = outcome.rule.ruleId;
    const QVector<int> &rows = outcome.fails.rows;
    return QLatin1String("Column rule: ")
           + ruleText(verifyColumnRuleName(id), outcome, VerifyRuleTable::columnRuleKind(id))
           + inBrackets(rows.isEmpty() ? QString() : QLatin1String("input row(s)=") + rowList(rows))
           + inBrackets(outcome.fails.detail);
}

QString columnLine(int column, const QString &name, int type, const std::vector<RuleOutcome> &outcomes)
{
    SeverityCounts counts;
    for (const RuleOutcome &outcome : outcomes) {
        counts.add(outcome.rule.severity, outcome.fails.count);
    }
    QString text = QStringLiteral("Column %1: '%2' [Type=%3, %4 rule(s) active]")
                       .arg(QString::number(column + 1), name, VerifyRuleTable::columnTypeName(type),
                           Messages::count(static_cast<qint64>(outcomes.size())));
    if (counts.total() > 0) {
        QStringList kinds;
        for (int severity : {VerifyRule::Error, VerifyRule::Warning, VerifyRule::Information}) {
            kinds.append(
                Messages::count(counts.of(severity)) + QLatin1Char(' ') + VerifyRuleTable::severityName(severity));
        }
        text += QStringLiteral(" %1 fails").arg(Messages::count(counts.total()))
                + inBrackets(kinds.join(QLatin1String(", ")));
    }
    return text;
}

} // namespace VerifyReport
