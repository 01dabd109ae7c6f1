#pragma once

#include <QString>
#include <QStringList>

/// The tests of a cell against a text that people choose from; stored by number.
enum class MatchOperator : int {
    Contains = 0,
    EqualTo,
    StartsWith,
    EndsWith,
    GreaterThan,
    LessThan,
    GreaterThanEqual,
    LessThanEqual,
    MatchesRegex,
    DoesntContain,
    NotEqualTo,
    DoesntStartWith,
    DoesntEndWith,
    DoesntMatchRegex,
    Fuzzy90,
    Fuzzy80,
    Fuzzy70,
    Fuzzy60,
    Fuzzy50,
    IsEmpty,
    IsNotEmpty
};

/// True when `cell` passes the test `op` against `text`. Equal, greater and less go by date when both texts are dates
/// in their formats, else by number when both are numbers, else by text. An unknown number is never passed.
/// PreparedMatch is for loops.
bool matchValue(int op, const QString &cell, const QString &text, const QString &cellDateFormat,
    const QString &textDateFormat, bool caseSensitive);

namespace MatchOperators {

constexpr int count = 21;

/// Short sign, blanks and words; empty for an unknown number.
QString label(int op);
/// The sign alone.
QString shortForm(int op);
/// All labels, by number.
QStringList labels();
/// Without the two that look at no text, which are the last.
QStringList labelsWithText();
/// Whether a condition with this operator and no text asks for anything.
bool worksWithEmptyText(int op);
/// Whether the cell is only looked at for being empty.
bool ignoresText(int op);
/// The operator without its "not".
MatchOperator positive(MatchOperator op);
/// Percentage of a fuzzy operator, 0 for others.
int closeness(MatchOperator op);

} // namespace MatchOperators
