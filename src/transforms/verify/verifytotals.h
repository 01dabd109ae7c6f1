#pragma once

#include "transforms/options/verifyrules.h"
#include "transforms/verify/rulecheck.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <array>

/// The fails of one rule of one owner. `column` is -1 for a rule of the table.
struct RuleOutcome
{
    VerifyRule rule;
    int column = -1;
    RuleFails fails;
    QVector<int> columns; ///< of a rule of the table: those that it marks
};

/// Counts of fails by severity.
class SeverityCounts
{
public:
    void add(int severity, qint64 count) { m_counts[static_cast<size_t>(severity)] += count; }
    qint64 of(int severity) const { return m_counts[static_cast<size_t>(severity)]; }
    qint64 total() const { return m_counts[0] + m_counts[1] + m_counts[2]; }
    /// The kinds that there are, gravest first: "1 error, 2 warning"; empty for none.
    QString list() const;

private:
    std::array<qint64, 3> m_counts{};
};

/// What all rules found together.
class VerifyTotals
{
public:
    explicit VerifyTotals(int rowCount)
        : m_rowSeverities(static_cast<size_t>(rowCount))
    {
    }
    void add(const RuleOutcome &outcome);

    const SeverityCounts &counts() const { return m_counts; }
    /// One bit for each severity with a fail in the row: bit 0 for information, and so on.
    const std::vector<uchar> &rowSeverities() const { return m_rowSeverities; }
    /// The lines that stand in front of the report.
    QString summary() const;

private:
    SeverityCounts m_counts;
    QMap<int, qint64> m_datasetRules;
    QMap<int, qint64> m_columnRules;
    QSet<int> m_columns;
    std::vector<uchar> m_rowSeverities;
};

namespace VerifyReport {

/// The line on a rule of the table.
QString datasetRuleLine(const RuleOutcome &outcome);
/// The line on a rule of a column.
QString columnRuleLine(const RuleOutcome &outcome);
/// The line in front of those of a column.
QString columnLine(int column, const QString &name, int type, const std::vector<RuleOutcome> &outcomes);
/// "1,7,9…+12 more": the first rows, counted from 1.
QString rowList(const QVector<int> &rows);

} // namespace VerifyReport
