#include "data/datasetissues.h"

#include "data/values.h"
#include "data/verifyrulenames.h"

#include <QStringList>
#include <algorithm>

namespace {

constexpr int longestText = 256;

void appendCounts(QStringList &lines, const char *start, const QMap<int, int> &counts, QString (*ruleName)(int))
{
    for (auto rule = counts.cbegin(); rule != counts.cend(); ++rule) {
        lines.append(QLatin1String(start) + ruleName(rule.key()) + QLatin1String(" (")
                     + formatInteger(rule.value(), true) + QLatin1Char(')'));
    }
}

const char *const datasetRuleLine = "Dataset rule fail: ";
const char *const columnRuleLine = "Column rule fail: ";

} // namespace

DatasetIssues::Summary &DatasetIssues::raised(ColumnIndex column, int level)
{
    Summary &summary = m_columns[column];
    summary.level = qMax(summary.level, level);
    return summary;
}

void DatasetIssues::addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId)
{
    m_fails.append({row.toInt(), column.toInt(), static_cast<qint16>(level), static_cast<qint16>(ruleId)});
    m_sorted = false;
    ++raised(column, level).columnRules[ruleId];
}

void DatasetIssues::addCellIssues(const QVector<int> &rows, ColumnIndex column, int level, int ruleId)
{
    if (rows.isEmpty()) {
        return;
    }
    for (int row : rows) {
        m_fails.append({row, column.toInt(), static_cast<qint16>(level), static_cast<qint16>(ruleId)});
    }
    m_sorted = false;
    raised(column, level).columnRules[ruleId] += rows.size();
}

void DatasetIssues::addColumnIssue(ColumnIndex column, int level, int ruleId, int count)
{
    raised(column, level).columnRules[ruleId] += count;
}

void DatasetIssues::addDatasetColumnIssue(ColumnIndex column, int level, int ruleId)
{
    ++raised(column, level).datasetRules[ruleId];
}

void DatasetIssues::addDatasetRowIssue(RowIndex row, int level, int ruleId)
{
    m_fails.append({row.toInt(), -1, static_cast<qint16>(level), static_cast<qint16>(ruleId)});
    m_sorted = false;
}

DatasetIssues::FailRange DatasetIssues::failsAt(RowIndex row, ColumnIndex column) const
{
    const auto byCell = [](const Fail &a, const Fail &b) {
        return a.row != b.row ? a.row < b.row : a.column != b.column ? a.column < b.column : a.ruleId < b.ruleId;
    };
    const auto byPosition = [column](const Fail &a, const Fail &b) {
        return a.row != b.row ? a.row < b.row : column.isValid() && a.column < b.column;
    };
    if (!m_sorted) {
        std::sort(m_fails.begin(), m_fails.end(), byCell);
        m_sorted = true;
    }
    const Fail wanted{row.toInt(), column.toInt(), 0, 0};
    const auto range = std::equal_range(m_fails.cbegin(), m_fails.cend(), wanted, byPosition);
    return {range.first, range.second};
}

DatasetIssues::Summary DatasetIssues::rowSummary(RowIndex row) const
{
    Summary summary;
    const FailRange range = failsAt(row, ColumnIndex());
    for (auto fail = range.first; fail != range.second; ++fail) {
        summary.level = qMax<int>(summary.level, fail->level);
        ++(fail->column < 0 ? summary.datasetRules : summary.columnRules)[fail->ruleId];
    }
    return summary;
}

int DatasetIssues::level(RowIndex row, ColumnIndex column) const
{
    int highest = -1;
    if (row.isValid()) {
        const FailRange range = failsAt(row, column);
        for (auto fail = range.first; fail != range.second; ++fail) {
            highest = qMax<int>(highest, fail->level);
        }
    } else {
        highest = m_columns.value(column).level;
    }
    return highest < 0 ? noLevel : highest;
}

QString DatasetIssues::text(RowIndex row, ColumnIndex column) const
{
    QStringList lines;
    const auto appendSummary = [&lines](const Summary &summary) {
        appendCounts(lines, datasetRuleLine, summary.datasetRules, verifyDatasetRuleName);
        appendCounts(lines, columnRuleLine, summary.columnRules, verifyColumnRuleName);
    };
    appendSummary(rowSummary(row));
    if (column.isValid()) {
        appendSummary(m_columns.value(column));
        const FailRange range = failsAt(row, column);
        for (auto fail = range.first; fail != range.second; ++fail) {
            lines.append(QLatin1String(columnRuleLine) + verifyColumnRuleName(fail->ruleId));
        }
    }
    return ellipsized(lines.join(QLatin1Char('\n')), longestText);
}
