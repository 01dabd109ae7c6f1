#include "transforms/verify/rulechecks.h"

RuleCheckPointer makeRuleCheck(const VerifyRule &rule, const RuleContext &context)
{
    RuleCheckPointer check = makeCharacterCheck(rule);
    for (auto make :
        {makeTextCheck, makeListCheck, makeNumberCheck, makeDateCheck, makeDuplicateCheck, makeIdentifierCheck}) {
        if (!check) {
            check = make(rule, context);
        }
    }
    return check;
}
