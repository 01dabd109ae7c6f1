#include "data/matchoperator.h"

#include "data/numberreader.h"
#include "data/textregex.h"
#include "data/textsimilarity.h"
#include "data/values.h"
#include "data/wholenumber.h"

namespace {

struct OperatorRow
{
    const char *label; ///< UTF-8
    bool worksWithEmptyText;
};

constexpr OperatorRow operatorRows[MatchOperators::count] = {
    {"c   Contains", false},
    {"=   Equal to", true},
    {"^   Starts with", false},
    {"$   Ends with", false},
    {">   Greater than", false},
    {"<   Less than", false},
    {">=  Greater than equal", false},
    {"<=  Less than equal", false},
    {"rx  Matches regex", true},
    {"!c   Doesn't contain", false},
    {"!=  Not equal to", true},
    {"!^  Doesn't start with", false},
    {"!$  Doesn't end with", false},
    {"!rx Doesn't match regex", true},
    {"\u22489  90% fuzzy match", true},
    {"\u22488  80% fuzzy match", true},
    {"\u22487  70% fuzzy match", true},
    {"\u22486  60% fuzzy match", true},
    {"\u22485  50% fuzzy match", true},
    {"\u2205   Is empty", true},
    {"!\u2205  Is not empty", true},
};

bool isKnown(int op)
{
    return op >= 0 && op < MatchOperators::count;
}

/// Below, at or above 0 as `cell` is less than, equal to or greater than `text`.
int compareValues(const QString &cell, const QString &text, const QString &cellDateFormat,
    const QString &textDateFormat, Qt::CaseSensitivity cs)
{
    bool isDate = false;
    bool isNumber = false;
    QDate cellDate;
    QDate textDate;
    double cellNumber = 0;
    double textNumber = 0;
    classifyPairCached(
        cell, text, cellDateFormat, textDateFormat, isDate, cellDate, textDate, true, isNumber, cellNumber, textNumber);
    if (isDate) {
        return (cellDate > textDate) - (cellDate < textDate);
    }
    if (isNumber && cellNumber == textNumber && WholeNumber::isShared(cellNumber)) {
        return WholeNumber::compareShared(cell, text, cellNumber, NumberReader(false, true));
    }
    if (isNumber) {
        return (cellNumber > textNumber) - (cellNumber < textNumber);
    }
    return QString::compare(cell, text, cs);
}

bool matchesRegex(const QString &cell, const QString &pattern, Qt::CaseSensitivity cs)
{
    return TextRegex(pattern, cs).isFoundIn(cell);
}

bool isSimilar(const QString &cell, const QString &text, int closeness, Qt::CaseSensitivity cs)
{
    return cs == Qt::CaseSensitive ? fuzzyScore(cell, text, closeness) >= closeness
                                   : fuzzyScore(cell.toLower(), text.toLower(), closeness) >= closeness;
}

} // namespace

bool matchValue(int op, const QString &cell, const QString &text, const QString &cellDateFormat,
    const QString &textDateFormat, bool caseSensitive)
{
    if (!isKnown(op)) {
        return false;
    }
    const auto wanted = static_cast<MatchOperator>(op);
    const MatchOperator positive = MatchOperators::positive(wanted);
    const Qt::CaseSensitivity cs = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const auto compared = [&] { return compareValues(cell, text, cellDateFormat, textDateFormat, cs); };
    bool holds = false;
    switch (positive) {
    case MatchOperator::Contains:
        holds = text.isEmpty() || cell.contains(text, cs);
        break;
    case MatchOperator::EqualTo:
        holds = compared() == 0;
        break;
    case MatchOperator::StartsWith:
        holds = text.isEmpty() || cell.startsWith(text, cs);
        break;
    case MatchOperator::EndsWith:
        holds = text.isEmpty() || cell.endsWith(text, cs);
        break;
    case MatchOperator::GreaterThan:
        holds = compared() > 0;
        break;
    case MatchOperator::LessThan:
        holds = compared() < 0;
        break;
    case MatchOperator::GreaterThanEqual:
        holds = compared() >= 0;
        break;
    case MatchOperator::LessThanEqual:
        holds = compared() <= 0;
        break;
    case MatchOperator::MatchesRegex:
        holds = matchesRegex(cell, text, cs);
        break;
    case MatchOperator::IsEmpty:
        holds = cell.isEmpty();
        break;
    default:
        holds = isSimilar(cell, text, MatchOperators::closeness(positive), cs);
    }
    return holds != (positive != wanted);
}

namespace MatchOperators {

QString label(int op)
{
    return isKnown(op) ? QString::fromUtf8(operatorRows[op].label) : QString();
}

QString shortForm(int op)
{
    return label(op).section(QLatin1Char(' '), 0, 0);
}

QStringList labels()
{
    QStringList result;
    for (const OperatorRow &row : operatorRows) {
        result.append(QString::fromUtf8(row.label));
    }
    return result;
}

QStringList labelsWithText()
{
    return labels().mid(0, static_cast<int>(MatchOperator::IsEmpty));
}

bool worksWithEmptyText(int op)
{
    return isKnown(op) && operatorRows[op].worksWithEmptyText;
}

bool ignoresText(int op)
{
    return op == static_cast<int>(MatchOperator::IsEmpty) || op == static_cast<int>(MatchOperator::IsNotEmpty);
}

MatchOperator positive(MatchOperator op)
{
    switch (op) {
    case MatchOperator::DoesntContain:
        return MatchOperator::Contains;
    case MatchOperator::NotEqualTo:
        return MatchOperator::EqualTo;
    case MatchOperator::DoesntStartWith:
        return MatchOperator::StartsWith;
    case MatchOperator::DoesntEndWith:
        return MatchOperator::EndsWith;
    case MatchOperator::DoesntMatchRegex:
        return MatchOperator::MatchesRegex;
    case MatchOperator::IsNotEmpty:
        return MatchOperator::IsEmpty;
    default:
        return op;
    }
}

int closeness(MatchOperator op)
{
    return op >= MatchOperator::Fuzzy90 && op <= MatchOperator::Fuzzy50
               ? 90 - 10 * (static_cast<int>(op) - static_cast<int>(MatchOperator::Fuzzy90))
               : 0;
}

} // namespace MatchOperators
