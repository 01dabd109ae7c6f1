#include "transforms/options/verifyrules.h"

#include "transforms/options/recordtext.h"

#include <QDate>
#include <QLocale>
#include <QMap>
#include <algorithm>

// The layout stands in docs/verify-rules.md.

static const QLatin1String layoutVersion("1");
static const QLatin1String columnMarker("*Column*");
static constexpr int ruleSize = 4; // id, value, severity, active

QVariantList VerifyRule::toList() const
{
    return {ruleId, value, severity, active};
}

VerifyRule VerifyRule::fromList(const QVariantList &list, int idPastLast)
{
    VerifyRule rule;
    if (list.size() < ruleSize) {
        rule.ruleId = idPastLast;
        return rule;
    }
    rule.ruleId = list.at(0).toInt();
    rule.value = list.at(1);
    rule.severity = list.at(2).toInt();
    rule.active = list.at(3).toBool();
    return rule;
}

static int activeIn(const QList<VerifyRule> &rules)
{
    return static_cast<int>(
        std::count_if(rules.cbegin(), rules.cend(), [](const VerifyRule &rule) { return rule.active; }));
}

int VerifyRuleSet::activeDatasetRules() const
{
    return activeIn(datasetRules);
}

int VerifyRuleSet::activeColumnRules() const
{
    int active = 0;
    for (const VerifyColumn &column : columns) {
        active += activeIn(column.rules);
    }
    return active;
}

QList<ColumnId> VerifyRuleSet::columnsWithActiveRules() const
{
    QList<ColumnId> ids;
    for (auto it = columns.cbegin(); it != columns.cend(); ++it) {
        if (activeIn(it->rules) > 0) {
            ids.append(it.key());
        }
    }
    return ids;
}

QString VerifyRuleSet::summary() const
{
    return QStringLiteral("%1 dataset rule(s) and %2 column rule(s).")
        .arg(activeDatasetRules())
        .arg(activeColumnRules());
}

// Values are written behind a letter for their type.

static QString valueText(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return QLatin1Char('i') + value.toString();
    case QMetaType::Double:
        return QLatin1Char('r') + QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QMetaType::QDate:
        return QLatin1Char('d') + value.toDate().toString(Qt::ISODate);
    case QMetaType::QString:
        return QLatin1Char('t') + value.toString();
    default:
        return QStringLiteral("n");
    }
}

static QVariant valueOf(const QString &text)
{
    const QString rest = text.mid(1);
    switch (text.isEmpty() ? 'n' : text.at(0).toLatin1()) {
    case 'i':
        return rest.toInt();
    case 'r':
        return rest.toDouble();
    case 'd':
        return QDate::fromString(rest, Qt::ISODate);
    case 't':
        return rest;
    default:
        return {};
    }
}

static void appendRules(QStringList &parts, const QList<VerifyRule> &rules)
{
    for (const VerifyRule &rule : rules) {
        parts << QString::number(rule.ruleId) << RecordText::encoded(valueText(rule.value))
              << QString::number(rule.severity) << (rule.active ? QStringLiteral("1") : QStringLiteral("0"));
    }
}

QStringList VerifyRuleSet::toParts(const std::function<int(ColumnId)> &numberOf) const
{
    QMap<int, VerifyColumn> byNumber;
    for (auto it = columns.cbegin(); it != columns.cend(); ++it) {
        byNumber.insert(numberOf(it.key()), it.value());
    }
    byNumber.remove(0);
    QStringList parts{layoutVersion};
    appendRules(parts, datasetRules);
    for (auto it = byNumber.cbegin(); it != byNumber.cend(); ++it) {
        parts << QString(columnMarker) << QString::number(it.key()) << QString::number(it->type);
        appendRules(parts, it->rules);
    }
    return parts;
}

/// Reads rules from `at` up to the next column; returns where that is. Ids outside 0 to `count` - 1 are dropped.
static int readRules(const QStringList &parts, int at, int count, QList<VerifyRule> &rules)
{
    while (at + ruleSize <= parts.size() && parts.at(at) != columnMarker) {
        VerifyRule rule;
        const bool isNumber = RecordText::readInt(parts.at(at), rule.ruleId);
        rule.value = valueOf(parts.at(at + 1));
        RecordText::readInt(parts.at(at + 2), rule.severity);
        rule.severity = qBound(int(VerifyRule::Information), rule.severity, int(VerifyRule::Error));
        rule.active = parts.at(at + 3) == QLatin1String("1");
        if (isNumber && rule.ruleId >= 0 && rule.ruleId < count) {
            rules.append(rule);
        }
        at += ruleSize;
    }
    return at;
}

VerifyRuleSet VerifyRuleSet::fromParts(const QStringList &parts, const std::function<ColumnId(int)> &idOf)
{
    VerifyRuleSet set;
    if (parts.value(0) != layoutVersion) {
        return set;
    }
    int at = readRules(parts, 1, VerifyRule::datasetRuleCount, set.datasetRules);
    while (at + 2 < parts.size() && parts.at(at) == columnMarker) {
        int number = 0;
        VerifyColumn column;
        RecordText::readInt(parts.at(at + 1), number);
        RecordText::readInt(parts.at(at + 2), column.type);
        column.type = qBound(int(VerifyColumn::Text), column.type, int(VerifyColumn::Date));
        at = readRules(parts, at + 3, VerifyRule::columnRuleCount, column.rules);
        if (number > 0) {
            set.columns.insert(idOf(number), column);
        }
    }
    return set;
}
