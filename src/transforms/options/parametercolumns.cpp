#include "data/dataset.h"
#include "data/datasource.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/options/columnnumbers.h"
#include "transforms/options/parameter.h"

#include <QSet>
#include <algorithm>

// How a value keeps hold of its columns.

using ColumnChange = std::function<bool(ColumnId &)>;

// Each form of value that names columns: calls `change` for its ids in order, true when one changed.

static bool changeIn(ColumnId &id, const ColumnChange &change)
{
    return change(id);
}

static bool changeIn(SortColumn &entry, const ColumnChange &change)
{
    return change(entry.column);
}

static bool changeIn(FilterTerm &term, const ColumnChange &change)
{
    return change(term.column);
}

template<class Entry>
static bool changeIn(QList<Entry> &list, const ColumnChange &change)
{
    bool changed = false;
    for (Entry &entry : list) {
        changed |= changeIn(entry, change);
    }
    return changed;
}

static bool changeIn(IfBranch &branch, const ColumnChange &change)
{
    return changeIn(branch.conditions, change);
}

static bool changeIn(FilterRecord &record, const ColumnChange &change)
{
    return changeIn(record.terms, change);
}

static bool changeIn(IfRecord &record, const ColumnChange &change)
{
    bool changed = false;
    for (IfBranch &branch : record.branches) {
        changed |= changeIn(branch, change);
    }
    return changed;
}

static bool changeIn(SplitRowsRecord &record, const ColumnChange &change)
{
    return change(record.startColumn);
}

template<class Value>
static bool changeIn(QHash<ColumnId, Value> &map, const ColumnChange &change)
{
    bool changed = false;
    QHash<ColumnId, Value> result;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        ColumnId id = it.key();
        changed |= change(id);
        result.insert(id, it.value());
    }
    map = result;
    return changed;
}

static bool changeIn(VerifyRuleSet &rules, const ColumnChange &change)
{
    return changeIn(rules.columns, change);
}

template<class Value>
static bool changeValue(QVariant &variant, const ColumnChange &change)
{
    Value value = variant.value<Value>();
    if (!changeIn(value, change)) {
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
        const QString name = m_columnNames.value(id);
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

bool Parameter::reconnectColumn(ColumnId id, const QString &lastName, ColumnId &newId, QString &currentName,
    QStringList &warnings, QStringList &infos) const
{
    currentName = lastName;
    if (id.isNull() || !m_node) {
        return false;
    }
    const Dataset &dataset = m_node->datasetConst();
    const ColumnIndex column = dataset.columnIndexOfId(id);
    if (column.isValid()) {
        currentName = dataset.columnName(column);
        return false;
    }
    if (!m_canReconnect || lastName.isEmpty()) {
        return false;
    }
    const ColumnIndex found = dataset.columnIndexOfName(lastName);
    if (!found.isValid()) {
        warnings.append(QStringLiteral("Cannot reconnect to column '%1' for '%2'").arg(lastName, m_name));
        return false;
    }
    newId = dataset.columnId(found);
    infos.append(QStringLiteral("Reconnected to column '%1' for '%2'").arg(lastName, m_name));
    return true;
}

void Parameter::reconnectColumns(QStringList &warnings, QStringList &infos)
{
    if (!m_node) {
        return;
    }
    QHash<ColumnId, QString> names;
    changeColumns(m_value, [&](ColumnId &id) {
        ColumnId newId;
        QString name;
        const bool found = reconnectColumn(id, m_columnNames.value(id), newId, name, warnings, infos);
        if (found) {
            id = newId;
        }
        if (!id.isNull()) {
            names.insert(id, name);
        }
        return found;
    });
    m_columnNames = names;
    m_canReconnect = false;
    rememberColumnText();
}

void Parameter::remapColumnIds(const QHash<ColumnId, ColumnId> &map)
{
    const ColumnChange remap = [&map](ColumnId &id) {
        const auto it = map.constFind(id);
        if (it == map.cend()) {
            return false;
        }
        id = it.value();
        return true;
    };
    changeColumns(m_value, remap);
    changeIn(m_columnNames, remap);
}
