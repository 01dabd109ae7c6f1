#pragma once

#include "transforms/options/verifyrules.h"
#include "transforms/verify/rulecheck.h"

/// What a rule may want to know of its column.
struct RuleContext
{
    QString columnName;
    QString dateFormat; ///< empty when the column has none
    bool caseSensitive = true;

    Qt::CaseSensitivity sensitivity() const { return caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive; }
};

/// The check for a rule of a column; null for one that can't fail, such as one whose list is empty, and for an id that
/// isn't one.
RuleCheckPointer makeRuleCheck(const VerifyRule &rule, const RuleContext &context);

// The same by theme: null for a rule that belongs to another.

/// Characters that a value may not have.
RuleCheckPointer makeCharacterCheck(const VerifyRule &rule);
/// The text as such: name, length, case, regular expression, beginning, end.
RuleCheckPointer makeTextCheck(const VerifyRule &rule, const RuleContext &context);
/// Lists of values.
RuleCheckPointer makeListCheck(const VerifyRule &rule, const RuleContext &context);
/// Kinds, limits and gaps of numbers.
RuleCheckPointer makeNumberCheck(const VerifyRule &rule, const RuleContext &context);
/// Kinds, limits and gaps of dates.
RuleCheckPointer makeDateCheck(const VerifyRule &rule, const RuleContext &context);
/// Values that come more than once.
RuleCheckPointer makeDuplicateCheck(const VerifyRule &rule, const RuleContext &context);
/// Codes with a form of their own: addresses, telephone numbers, check digits, files.
RuleCheckPointer makeIdentifierCheck(const VerifyRule &rule, const RuleContext &context);
