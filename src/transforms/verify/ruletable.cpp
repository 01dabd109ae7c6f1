#include "transforms/verify/ruletable.h"

#include "data/values.h"
#include "transforms/options/verifyrules.h"

#include <QDate>

namespace VerifyRuleTable {

ParameterKind columnRuleKind(int ruleId)
{
    switch (ruleId) {
    case 0:
    case 3:
    case 20:
    case 21:
    case 22:
    case 23:
        return Text;
    case 1:
    case 2:
    case 17:
    case 18:
    case 19:
        return CommaList;
    case 9:
    case 10:
        return Real;
    case 11:
    case 12:
        return Integer;
    case 13:
    case 14:
        return Date;
    case 15:
    case 16:
        return Characters;
    default:
        return NoParameter;
    }
}

ParameterKind datasetRuleKind(int ruleId)
{
    return ruleId >= 1 && ruleId <= 4 ? Characters : NoParameter;
}

QVariant columnRuleDefault(int ruleId)
{
    switch (ruleId) {
    case 1:
    case 2:
        return QStringLiteral("NaN");
    case 3:
        return dateFormats().value(0);
    case 9:
        return 0.0;
    case 10:
        return 999999.0;
    case 11:
        return 0;
    case 12:
        return 999999;
    case 13:
        return QDate(2000, 1, 1);
    case 14:
        return QDate::currentDate();
    case 15:
        return 1;
    case 16:
        return 999;
    default:
        return columnRuleKind(ruleId) == NoParameter ? QVariant() : QVariant(QString());
    }
}

QVariant datasetRuleDefault(int ruleId)
{
    switch (ruleId) {
    case 1:
    case 3:
        return 1;
    case 2:
        return 999;
    case 4:
        return 999999;
    default:
        return QVariant();
    }
}

QVector<int> columnRulesOf(int columnType)
{
    switch (columnType) {
    case VerifyColumn::Selection:
        return {0, 17, 19};
    case VerifyColumn::Real:
        return {0, 1, 7, 8, 53, 9, 10, 15, 16, 21, 22, 23, 37};
    case VerifyColumn::Integer:
        return {0, 2, 47, 5, 7, 8, 53, 11, 12, 15, 16, 19, 21, 22, 23, 31, 32, 33, 49, 37};
    case VerifyColumn::Date:
        return {0, 3, 48, 6, 7, 8, 53, 13, 14, 15, 16, 37};
    default:
        return {0, 4, 7, 8, 53, 24, 25, 26, 27, 15, 16, 18, 19, 20, 21, 22, 23, 28, 29, 30, 31, 32, 33, 49, 50, 51, 52,
            34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46};
    }
}

QString columnTypeName(int columnType)
{
    static const char *const names[] = {"Text", "Selection", "Numeric (real)", "Numeric (integer)", "Date"};
    return QLatin1String(names[qBound(int(VerifyColumn::Text), columnType, int(VerifyColumn::Date))]);
}

QString severityName(int severity)
{
    static const char *const names[] = {"Information", "Warning", "Error"};
    return QLatin1String(names[qBound(int(VerifyRule::Information), severity, int(VerifyRule::Error))]);
}

QString parameterText(const QVariant &value, ParameterKind kind)
{
    switch (kind) {
    case NoParameter:
        return QString();
    case CommaList:
        return value.userType() == QMetaType::QStringList ? value.toStringList().join(QLatin1Char(','))
                                                          : value.toString();
    case Real:
        return QString::number(value.toDouble(), 'g', 6);
    case Integer:
    case Characters:
        return QString::number(value.toInt());
    case Date:
        return value.toDate().toString(Qt::ISODate);
    default:
        return value.toString();
    }
}

QVariant parameterFromText(const QString &text, ParameterKind kind)
{
    switch (kind) {
    case NoParameter:
        return QVariant();
    case Real:
        return text.toDouble();
    case Integer:
    case Characters:
        return text.toInt();
    case Date:
        return QDate::fromString(text, Qt::ISODate);
    default:
        return text;
    }
}

QStringList listEntries(const QVariant &value)
{
    return parameterText(value, CommaList).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

} // namespace VerifyRuleTable
