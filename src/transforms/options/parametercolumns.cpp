#include "data/columnwalk.h"
#include "data/dataset.h"
#include "data/datasource.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/options/columnnumbers.h"
#include "transforms/options/parameter.h"

#include <QSet>
#include <algorithm>

// How a value keeps hold of its columns.

// The forms of value that name columns and aren't known to changeColumnsIn() yet. A list of each is known with it.

static bool changeColumnsIn(SortColumn &entry, const ColumnChange &change)
{
    return change(entry.column);
}

static bool changeColumnsIn(FilterTerm &term, const ColumnChange &change)
{
    return change(term.column);
}

static bool changeColumnsIn(IfBranch &branch, const ColumnChange &change)
{
    return changeColumnsIn(branch.conditions, change);
}

static bool changeColumnsIn(FilterRecord &record, const ColumnChange &change)
{
    return changeColumnsIn(record.terms, change);
}

static bool changeColumnsIn(IfRecord &record, const ColumnChange &change)
{
    bool changed = false;
    for (IfBranch &branch : record.branches) {
        changed |= changeColumnsIn(branch, change);
    }
    return changed;
}

static bool changeColumnsIn(SplitRowsRecord &record, const ColumnChange &change)
{
    return change(record.startColumn);
}

static bool changeColumnsIn(VerifyRuleSet &rules, const ColumnChange &change)
{
    return changeColumnsIn(rules.columns, change);
}

template<class Value>
static bool changeValue(QVariant &variant, const ColumnChange &change)
{
    Value value = variant.value<Value>();
    if (!changeColumnsIn(value, change)) {
        return false;
    }
    variant = QVariant::fromValue(value);
    return true;
}

bool Parameter::changeColumns(QVariant &value, const ColumnChange &change) const
{
    switch (m_kind) {
    case SingleColumn:
        return changeValue<ColumnId>(value, change);
    case MultipleColumns:
    case ReorderColumns:
    case RemoveColumns:
        return changeValue<QList<ColumnId>>(value, change);
    case SortColumns:
    case PivotColumns:
        return changeValue<QList<SortColumn>>(value, change);
    case FilterColumns:
        return changeValue<FilterRecord>(value, change);
    case If:
        return changeValue<IfRecord>(value, change);
    case RenameColumns:
        return changeValue<QHash<ColumnId, QString>>(value, change);
    case SplitRows:
        return changeValue<SplitRowsRecord>(value, change);
    case UniqueColumns:
        return changeValue<QHash<ColumnId, int>>(value, change);
    case VerifyRules:
        return changeValue<VerifyRuleSet>(value, change);
    case Bool:
    case Selection:
    case Text:
    case Int:
    case Char:
    case Script:
    case ReplaceTerms:
    case Real:
    case LongText:
    case Label:
    case Date:
    case Locale:
        break;
    }
    return false;
}

QList<ColumnId> Parameter::referencedColumns() const
{
    QList<ColumnId> ids;
    QSet<ColumnId> seen;
    QVariant value = m_value;
    changeColumns(value, [&ids, &seen](ColumnId &id) {
        if (!id.isNull() && !seen.contains(id)) {
            seen.insert(id);
            ids.append(id);
        }
        return false;
    });
    return ids;
}

static QList<ColumnId> sortedIds(QList<ColumnId> ids)
{
    std::sort(ids.begin(), ids.end());
    return ids;
}

QList<ColumnId> Parameter::neededColumns() const
{
    switch (m_kind) {
    case SingleColumn:
    case MultipleColumns:
    case SortColumns:
    case PivotColumns:
    case FilterColumns:
    case If:
        return referencedColumns();
    case UniqueColumns:
        return sortedIds(toUniqueColumns().keys(UniqueCode::KeepUnique));
    case VerifyRules:
        return sortedIds(toVerifyRules().columnsWithActiveRules());
    case ReorderColumns:
    case Bool:
    case Selection:
    case Text:
    case Int:
    case Char:
    case RemoveColumns:
    case Script:
    case RenameColumns:
    case SplitRows:
    case ReplaceTerms:
    case Real:
    case LongText:
    case Label:
    case Date:
    case Locale:
        break;
    }
    return {};
}

static bool hasConditionOnAnyColumn(const QList<FilterTerm> &terms)
{
    return std::any_of(terms.cbegin(), terms.cend(), [](const FilterTerm &term) { return term.column.isNull(); });
}

bool Parameter::hasColumnsLeft() const
{
    const QList<IfBranch> branches = m_kind == If ? toIfBranches().branches : QList<IfBranch>();
    if ((m_kind == FilterColumns && hasConditionOnAnyColumn(toFilterTerms().terms))
        || std::any_of(branches.cbegin(), branches.cend(), [](const IfBranch &branch) {
               return branch.conditions.isEmpty() || hasConditionOnAnyColumn(branch.conditions);
           })) {
        return true;
    }
    const ColumnNumbers columns(m_node);
    const QList<ColumnId> ids = neededColumns();
    return std::any_of(ids.cbegin(), ids.cend(), [&columns](ColumnId id) { return columns.indexOf(id).isValid(); });
}

QStringList Parameter::lostColumnWarnings() const
{
    const ColumnNumbers columns(m_node);
    if (!columns.hasTable()) {
        return {};
    }
    const bool isUnset = this->isUnset();
    CappedList lost;
    for (const ColumnId id : neededColumns()) {
        const QString name = m_memory.lastName(id);
        if (!columns.hasGone(id) || (name.isEmpty() && isUnset)) {
            continue;
        }
        const int number = columns.numberOf(id);
        const QString column = !name.isEmpty() ? QStringLiteral("Column '%1'").arg(name)
                               : number > 0    ? QStringLiteral("Column %1").arg(Messages::count(number))
                                               : QStringLiteral("A column");
        lost.add(QStringLiteral("%1 of '%2' has gone").arg(column, m_label));
    }
    return lost.lines();
}

QStringList Parameter::columnNamesFor(const QList<ColumnId> &ids) const
{
    const ColumnNumbers columns(m_node);
    QStringList names;
    for (ColumnId id : ids) {
        const ColumnIndex column = columns.indexOf(id);
        if (column.isValid()) {
            names.append(m_node->datasetConst().columnName(column));
        }
    }
    return names;
}

ColumnOption Parameter::columnOption()
{
    return {m_name, [this](const ColumnChange &change) { return changeColumns(m_value, change); }};
}

bool Parameter::reconnectColumn(ColumnId id, const QString &lastName, ColumnId &newId, QString &currentName,
    QStringList &warnings, QStringList &infos) const
{
    currentName = lastName;
    return m_node
           && m_memory.reconnectColumn(
               id, lastName, m_name, {m_node->datasetConst(), warnings, infos}, newId, currentName);
}

void Parameter::reconnectColumns(QStringList &warnings, QStringList &infos)
{
    if (m_node) {
        m_memory.reconnect({columnOption()}, {m_node->datasetConst(), warnings, infos});
        keepColumnText();
    }
}

void Parameter::remapColumnIds(const QHash<ColumnId, ColumnId> &map)
{
    m_memory.remap(map, {columnOption()});
}
