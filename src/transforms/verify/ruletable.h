#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

/// What is fixed about the rules of a verification: what parameter each takes, with which value it starts, which column
/// types offer it and what its editor says of it. Their names stand in data/verifyrulenames.h.
namespace VerifyRuleTable {

enum ParameterKind { NoParameter, Text, CommaList, Real, Integer, Characters, Date };

/// NoParameter for an id that isn't one.
ParameterKind columnRuleKind(int ruleId);
ParameterKind datasetRuleKind(int ruleId);
/// The value of a rule that nobody has set yet; that of dates depends on the settings and on today.
QVariant columnRuleDefault(int ruleId);
QVariant datasetRuleDefault(int ruleId);
/// Ids of the rules that a column of this type (VerifyColumn::Type) offers, in the order of the editor.
QVector<int> columnRulesOf(int columnType);
QString columnRuleToolTip(int ruleId);
QString datasetRuleToolTip(int ruleId);

/// "Text" and so on for a VerifyColumn::Type.
QString columnTypeName(int columnType);
/// "Information" and so on for a VerifyRule::Severity.
QString severityName(int severity);

/// A parameter for editors and messages: numbers in plain form, dates as yyyy-MM-dd.
QString parameterText(const QVariant &value, ParameterKind kind);
/// What a person typed; 0 or an invalid date for a text that doesn't read.
QVariant parameterFromText(const QString &text, ParameterKind kind);
/// The entries of a comma list: split at each comma, empty ones dropped, blanks kept.
QStringList listEntries(const QVariant &value);

} // namespace VerifyRuleTable
