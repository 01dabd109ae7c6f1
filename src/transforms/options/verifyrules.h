#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QList>
#include <QMetaType>
#include <QStringList>
#include <QVariant>
#include <functional>

/// One rule of a verification: what it expects, how grave a fail is and whether it is switched on.
struct VerifyRule
{
    enum Severity { Information = 0, Warning = 1, Error = 2 };
    static constexpr int columnRuleCount = 54;
    static constexpr int datasetRuleCount = 6;

    int ruleId = 0;
    QVariant value;
    int severity = Warning;
    bool active = false;

    /// Rule id, value, severity, active.
    QVariantList toList() const;
    /// A list that is too short gives an inactive rule with the id `idPastLast`.
    static VerifyRule fromList(const QVariantList &list, int idPastLast);
    friend bool operator==(const VerifyRule &a, const VerifyRule &b)
    {
        return a.ruleId == b.ruleId && a.value == b.value && a.severity == b.severity && a.active == b.active;
    }
};

/// What is expected of one column.
struct VerifyColumn
{
    enum Type { Text = 0, Selection = 1, Real = 2, Integer = 3, Date = 4 };

    int type = Text;
    QList<VerifyRule> rules; ///< a rule that isn't listed is switched off
    friend bool operator==(const VerifyColumn &a, const VerifyColumn &b)
    {
        return a.type == b.type && a.rules == b.rules;
    }
};

/// Value of a verification option: rules for the table and, by column, for its values. A column without an entry is
/// text and has no rule switched on.
struct VerifyRuleSet
{
    QList<VerifyRule> datasetRules; ///< a rule that isn't listed is switched off
    QHash<ColumnId, VerifyColumn> columns;

    int activeDatasetRules() const;
    int activeColumnRules() const;
    /// Of which one rule or more is active, in no order.
    QList<ColumnId> columnsWithActiveRules() const;
    /// "%1 dataset rule(s) and %2 column rule(s)." with the numbers of active rules.
    QString summary() const;

    /// The parts of the stored form, see docs/verify-rules.md. `numberOf` gives a column's number, 0 for one to leave
    /// out.
    QStringList toParts(const std::function<int(ColumnId)> &numberOf) const;
    /// Reads toParts(); of an unknown layout nothing, of damaged parts what can be read.
    static VerifyRuleSet fromParts(const QStringList &parts, const std::function<ColumnId(int)> &idOf);
    friend bool operator==(const VerifyRuleSet &a, const VerifyRuleSet &b)
    {
        return a.datasetRules == b.datasetRules && a.columns == b.columns;
    }
};

Q_DECLARE_METATYPE(VerifyRuleSet)
