#include "data/dateparser.h"
#include "data/values.h"
#include "transforms/verify/gaps.h"
#include "transforms/verify/rulechecks.h"

namespace {

RuleCheckPointer validDateCheck(const DateParser &parser)
{
    return cellCheck([parser](Utf16Cell &text) { return !parser.parse(text.cell()).isValid(); });
}

/// Texts that are no dates are let pass.
template<class IsBeyond>
RuleCheckPointer limitCheck(const DateParser &parser, IsBeyond isBeyond)
{
    return cellCheck([parser, isBeyond](Utf16Cell &text) {
        const QDate date = parser.parse(text.cell());
        return date.isValid() && isBeyond(date);
    });
}

RuleCheckPointer gapCheck(const DateParser &parser)
{
    return columnCheck([parser](const CellColumn &column, RuleFails &fails) {
        std::vector<qint64> days;
        for (int row = 0; row < column.size(); ++row) {
            const QDate date = parser.parse(column.at(row));
            if (date.isValid()) {
                days.push_back(date.toJulianDay());
            }
        }
        reportGaps(std::move(days), fails, [](qint64 day) { return dateText(QDate::fromJulianDay(day)); });
    });
}

} // namespace

RuleCheckPointer makeDateCheck(const VerifyRule &rule, const RuleContext &context)
{
    if (context.dateFormat.isEmpty()) {
        return nullptr;
    }
    const QDate limit = rule.value.toDate();
    switch (rule.ruleId) {
    case 3:
        return validDateCheck(DateParser(context.dateFormat));
    case 6:
        return gapCheck(DateParser(context.dateFormat));
    case 13:
        return limit.isValid()
                   ? limitCheck(DateParser(context.dateFormat), [limit](const QDate &date) { return date < limit; })
                   : nullptr;
    case 14:
        return limit.isValid()
                   ? limitCheck(DateParser(context.dateFormat), [limit](const QDate &date) { return date > limit; })
                   : nullptr;
    default:
        return nullptr;
    }
}
