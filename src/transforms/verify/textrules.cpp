#include "data/preparedmatch.h"
#include "transforms/format/casing.h"
#include "transforms/verify/rulechecks.h"

#include <algorithm>

namespace {

RuleCheckPointer namedCheck(const QString &expected, const RuleContext &context)
{
    const bool differs = QString::compare(context.columnName, expected, context.sensitivity()) != 0;
    return columnCheck([differs](const CellColumn &, RuleFails &fails) { fails.count = differs ? 1 : 0; });
}

/// Fails unless one cell isn't empty.
RuleCheckPointer anyTextCheck()
{
    return columnCheck([](const CellColumn &column, RuleFails &fails) {
        const Cell *const cells = column.cells.constData();
        const auto isEmpty = [](const Cell &cell) { return cell.isEmpty(); };
        fails.count = std::all_of(cells, cells + column.size(), isEmpty) ? 1 : 0;
    });
}

int length(Utf16Cell &text)
{
    return TextCoding::unitCount(text.cell().bytes(), text.cell().size());
}

/// Most cells are decided by their bytes: there are one to three of them for each character.
RuleCheckPointer minimumLength(int least)
{
    return cellCheck([least](Utf16Cell &text) { return text.cell().size() < least || length(text) < least; });
}

RuleCheckPointer maximumLength(int most)
{
    return cellCheck([most](Utf16Cell &text) { return text.cell().size() > most && length(text) > most; });
}

RuleCheckPointer regexCheck(const QString &pattern, const RuleContext &context)
{
    if (pattern.isEmpty()) {
        return nullptr;
    }
    const TextRegex regex(pattern, context.sensitivity());
    if (!regex.isValid()) {
        return cellCheck([](Utf16Cell &) { return true; });
    }
    return rememberedCheck([regex](Utf16Cell &text) { return !regex.isFoundIn(text.string()); });
}

RuleCheckPointer matchCheck(MatchOperator op, const QString &part, const RuleContext &context)
{
    if (part.isEmpty()) {
        return nullptr;
    }
    const PreparedMatch match(static_cast<int>(op), part, QString(), QString(), context.caseSensitive);
    return cellCheck([match](Utf16Cell &text) { return !match.matches(text.cell()); });
}

bool hasAsciiFrom(QStringView units, char first, char last)
{
    return std::any_of(units.begin(), units.end(),
        [first, last](QChar c) { return c >= QLatin1Char(first) && c <= QLatin1Char(last); });
}

/// A rule that the text must be what a conversion in place makes of it.
template<class Convert>
RuleCheckPointer unchangedBy(Convert convert)
{
    return cellCheck([convert, buffer = QVarLengthArray<QChar, 256>()](Utf16Cell &text) mutable {
        const QStringView units = text.units();
        buffer.resize(units.size());
        std::copy(units.begin(), units.end(), buffer.begin());
        const int size = convert(buffer.data(), buffer.size());
        return !std::equal(units.begin(), units.end(), buffer.constBegin(), buffer.constBegin() + size);
    });
}

RuleCheckPointer caseCheck(int ruleId)
{
    switch (ruleId) {
    case 24:
        return cellCheck([](Utf16Cell &text) {
            return text.isAscii() ? hasAsciiFrom(text.units(), 'A', 'Z') : !text.string().isLower();
        });
    case 25:
        return cellCheck([](Utf16Cell &text) {
            return text.isAscii() ? hasAsciiFrom(text.units(), 'a', 'z') : !text.string().isUpper();
        });
    case 26:
        return unchangedBy([](QChar *text, int size) { return Casing::title(text, size, false); });
    default:
        return unchangedBy([](QChar *text, int size) { return Casing::sentence(text, size, false); });
    }
}

} // namespace

RuleCheckPointer makeTextCheck(const VerifyRule &rule, const RuleContext &context)
{
    switch (rule.ruleId) {
    case 0:
        return namedCheck(rule.value.toString(), context);
    case 7:
        return cellCheck([](Utf16Cell &text) { return text.isEmpty(); });
    case 8:
        return anyTextCheck();
    case 53:
        return cellCheck([](Utf16Cell &text) { return !text.isEmpty(); });
    case 15:
        return minimumLength(rule.value.toInt());
    case 16:
        return maximumLength(rule.value.toInt());
    case 20:
        return regexCheck(rule.value.toString(), context);
    case 21:
        return matchCheck(MatchOperator::StartsWith, rule.value.toString(), context);
    case 22:
        return matchCheck(MatchOperator::EndsWith, rule.value.toString(), context);
    case 23:
        return matchCheck(MatchOperator::Contains, rule.value.toString(), context);
    case 24:
    case 25:
    case 26:
    case 27:
        return caseCheck(rule.ruleId);
    default:
        return nullptr;
    }
}
