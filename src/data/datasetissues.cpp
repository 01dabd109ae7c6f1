#include "data/datasetissues.h"

#include "data/values.h"
#include "data/verifyrulenames.h"

#include <QStringList>
#include <algorithm>

namespace {

constexpr int longestText = 256;

const QString datasetRuleLine = QStringLiteral("Dataset rule fail: ");
const QString columnRuleLine = QStringLiteral("Column rule fail: ");

QList<int> sorted(QList<int> ruleIds)
{
    std::sort(ruleIds.begin(), ruleIds.end());
    return ruleIds;
}

void appendCounts(QStringList &lines, const QString &start, const QHash<int, int> &counts, QString (*ruleName)(int))
{
    for (int ruleId : sorted(counts.keys())) {
        lines.append(
            start + ruleName(ruleId) + QLatin1String(" (") + QString::number(counts.value(ruleId)) + QLatin1Char(')'));
    }
}

} // namespace

void DatasetIssues::raise(RowIndex row, ColumnIndex column, int level)
{
    const auto known = m_levels.find({row, column});
    if (known == m_levels.end()) {
        m_levels.insert({row, column}, level);
    } else {
        *known = qMax(*known, level);
    }
}

void DatasetIssues::addCellIssue(RowIndex row, ColumnIndex column, int level, int ruleId)
{
    raise(row, column, level);
    raise(row, ColumnIndex(), level);
    raise(RowIndex(), column, level);
    ++m_rowColumnRuleFails[row][ruleId];
    ++m_columnColumnRuleFails[column][ruleId];
    m_cellRuleFails.insert({row, column}, ruleId);
}

void DatasetIssues::addColumnIssue(ColumnIndex column, int level, int ruleId)
{
    raise(RowIndex(), column, level);
    ++m_columnColumnRuleFails[column][ruleId];
}

void DatasetIssues::addDatasetColumnIssue(ColumnIndex column, int level, int ruleId)
{
    raise(RowIndex(), column, level);
    ++m_columnDatasetRuleFails[column][ruleId];
}

void DatasetIssues::addDatasetRowIssue(RowIndex row, int level, int ruleId)
{
    raise(row, ColumnIndex(), level);
    ++m_rowDatasetRuleFails[row][ruleId];
}

QString DatasetIssues::text(RowIndex row, ColumnIndex column) const
{
    QStringList lines;
    appendCounts(lines, datasetRuleLine, m_rowDatasetRuleFails.value(row), verifyDatasetRuleName);
    appendCounts(lines, columnRuleLine, m_rowColumnRuleFails.value(row), verifyColumnRuleName);
    if (column.isValid()) {
        appendCounts(lines, datasetRuleLine, m_columnDatasetRuleFails.value(column), verifyDatasetRuleName);
        appendCounts(lines, columnRuleLine, m_columnColumnRuleFails.value(column), verifyColumnRuleName);
    }
    for (int ruleId : sorted(m_cellRuleFails.values({row, column}))) {
        lines.append(columnRuleLine + verifyColumnRuleName(ruleId));
    }
    return ellipsized(lines.join(QLatin1Char('\n')), longestText);
}
