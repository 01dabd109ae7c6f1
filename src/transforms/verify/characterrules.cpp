#include "transforms/verify/rulechecks.h"

#include <QChar>
#include <algorithm>
#include <array>

namespace {

/// A rule that refuses all characters of a kind. The ASCII ones are looked up in a table.
template<class Predicate>
RuleCheckPointer refuses(Predicate isRefused)
{
    std::array<bool, 128> refused{};
    for (ushort c = 0; c < refused.size(); ++c) {
        refused[c] = isRefused(QChar(c));
    }
    return cellCheck([refused, isRefused](Utf16Cell &text) {
        const QStringView units = text.units();
        return std::any_of(units.begin(), units.end(),
            [&](QChar c) { return c.unicode() < refused.size() ? refused[c.unicode()] : isRefused(c); });
    });
}

/// A rule that refuses one ASCII text wherever it stands.
template<int size>
RuleCheckPointer refusesAscii(const char (&refused)[size])
{
    return cellCheck([refused](Utf16Cell &text) {
        const Cell &cell = text.cell();
        return memmem(cell.bytes(), static_cast<size_t>(cell.size()), refused, size - 1) != nullptr;
    });
}

bool isDigit(QChar c)
{
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
           || (c.unicode() > 127 && c.category() == QChar::Number_DecimalDigit);
}

bool hasBlankEnd(Utf16Cell &text)
{
    const QStringView units = text.units();
    return !units.isEmpty() && (units.front().isSpace() || units.back().isSpace());
}

/// Only ASCII whitespace counts, as in a regular expression.
bool isBlank(Utf16Cell &text)
{
    const char *const begin = text.cell().bytes();
    const char *const end = begin + text.cell().size();
    return begin < end && std::all_of(begin, end, [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
}

} // namespace

RuleCheckPointer makeCharacterCheck(const VerifyRule &rule)
{
    switch (rule.ruleId) {
    case 34:
        return refuses([](QChar c) { return c.isPunct(); });
    case 35:
        return refuses(isDigit);
    case 36:
        return refuses([](QChar c) { return c.category() == QChar::Symbol_Currency; });
    case 37:
        return refuses([](QChar c) { return c.isSpace(); });
    case 38:
        return cellCheck(hasBlankEnd);
    case 39:
        return refusesAscii("\t");
    case 40:
        return refusesAscii("\r");
    case 41:
        return refusesAscii("\n");
    case 42:
        return refusesAscii("  ");
    case 43:
        return cellCheck(isBlank);
    case 44:
        return refuses([](QChar c) { return c.isSymbol(); });
    case 45:
        return refuses([](QChar c) { return c.unicode() > 255; });
    case 46:
        return refuses([](QChar c) { return !c.isPrint(); });
    default:
        return nullptr;
    }
}
