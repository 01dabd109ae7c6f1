#include "data/numberreader.h"
#include "transforms/verify/gaps.h"
#include "transforms/verify/rulechecks.h"
#include "transforms/verify/ruletable.h"
#include "transforms/verify/textset.h"

namespace {

/// Reads a cell as the number of one kind; how it is refused is the same for both kinds.
struct RealReading
{
    const NumberReader reader{false, false};
    double operator()(const Cell &cell, bool *ok) const { return reader.read(cell, ok); }
};
struct WholeReading
{
    const NumberReader reader{false, false};
    int operator()(const Cell &cell, bool *ok) const { return reader.readInt(cell, ok); }
};

template<class Reading>
RuleCheckPointer numericCheck(const QVariant &exceptions, const RuleContext &context)
{
    const TextSet listed(VerifyRuleTable::listEntries(exceptions), context.caseSensitive);
    return cellCheck([listed, read = Reading()](Utf16Cell &text) {
        bool ok = false;
        read(text.cell(), &ok);
        return !ok && !listed.contains(text);
    });
}

/// Texts that are no numbers are let pass.
template<class Reading, class IsBeyond>
RuleCheckPointer limitCheck(IsBeyond isBeyond)
{
    return cellCheck([isBeyond, read = Reading()](Utf16Cell &text) {
        bool ok = false;
        const auto value = read(text.cell(), &ok);
        return ok && isBeyond(value);
    });
}

RuleCheckPointer gapCheck()
{
    return columnCheck([read = WholeReading()](const CellColumn &column, RuleFails &fails) {
        std::vector<qint64> values;
        for (int row = 0; row < column.size(); ++row) {
            bool ok = false;
            const int value = read(column.at(row), &ok);
            if (ok) {
                values.push_back(value);
            }
        }
        reportGaps(std::move(values), fails, [](qint64 value) { return QString::number(value); });
    });
}

} // namespace

RuleCheckPointer makeNumberCheck(const VerifyRule &rule, const RuleContext &context)
{
    const double real = rule.value.toDouble();
    const int whole = rule.value.toInt();
    switch (rule.ruleId) {
    case 1:
        return numericCheck<RealReading>(rule.value, context);
    case 2:
        return numericCheck<WholeReading>(rule.value, context);
    case 5:
        return gapCheck();
    case 9:
        return limitCheck<RealReading>([real](double value) { return value < real; });
    case 10:
        return limitCheck<RealReading>([real](double value) { return value > real; });
    case 11:
        return limitCheck<WholeReading>([whole](int value) { return value < whole; });
    case 12:
        return limitCheck<WholeReading>([whole](int value) { return value > whole; });
    default:
        return nullptr;
    }
}
