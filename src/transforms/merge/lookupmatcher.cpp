#include "transforms/merge/lookupmatcher.h"

#include "data/values.h"

#include <cmath>

namespace {

/// Result of a comparison with a value that is equal to nothing and neither more nor less.
constexpr int incomparable = 2;

bool readsValues(LookupMatch match)
{
    switch (match) {
    case LookupMatch::Equal:
    case LookupMatch::NotEqual:
    case LookupMatch::BottomGreater:
    case LookupMatch::BottomGreaterEqual:
    case LookupMatch::TopGreater:
    case LookupMatch::TopGreaterEqual:
        return true;
    default:
        return false;
    }
}

} // namespace

LookupMatcher::LookupMatcher(
    LookupMatch match, const CellColumn &bottomKeys, const QString &bottomFormat, const QString &topFormat)
    : m_match(match)
    , m_topFormat(topFormat)
    , m_hasDates(!bottomFormat.isEmpty() && !topFormat.isEmpty())
{
    m_bottom.reserve(bottomKeys.size());
    for (int row = 0; row < bottomKeys.size(); ++row) {
        m_bottom.append(read(bottomKeys.at(row).text(), bottomFormat));
    }
    if (match == LookupMatch::TopMatchesRegex) {
        m_patterns.reserve(m_bottom.size());
        for (const Key &key : qAsConst(m_bottom)) {
            m_patterns.append(TextRegex(key.text));
        }
    }
}

LookupMatcher::Key LookupMatcher::read(const QString &text, const QString &format) const
{
    Key key;
    key.text = text;
    if (readsValues(m_match)) {
        if (m_hasDates) {
            key.date = parseDate(text, format);
        }
        key.number = parseNumber(text, false, true, &key.isNumber);
    }
    return key;
}

int LookupMatcher::compare(const Key &left, const Key &right) const
{
    if (m_hasDates && left.date.isValid() && right.date.isValid()) {
        return left.date < right.date ? -1 : left.date > right.date ? 1 : 0;
    }
    if (left.isNumber && right.isNumber) {
        if (std::isnan(left.number) || std::isnan(right.number)) {
            return incomparable;
        }
        return left.number < right.number ? -1 : left.number > right.number ? 1 : 0;
    }
    const int order = left.text.compare(right.text);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void LookupMatcher::match(const QString &topKey, const std::function<bool(int row)> &found)
{
    const Test test = testFor(read(topKey, m_topFormat));
    for (int row = 0; row < m_bottom.size(); ++row) {
        if (test(m_bottom.at(row), row) && !found(row)) {
            return;
        }
    }
}

LookupMatcher::Test LookupMatcher::testFor(const Key &top)
{
    if (m_match == LookupMatch::BottomMatchesRegex || m_match == LookupMatch::TopMatchesRegex) {
        return patternTest(top);
    }
    return readsValues(m_match) ? valueTest(top) : textTest(top);
}

LookupMatcher::Test LookupMatcher::patternTest(const Key &top)
{
    if (m_match == LookupMatch::BottomMatchesRegex) {
        return [pattern = TextRegex(top.text)](const Key &bottom, int) { return pattern.isFoundIn(bottom.text); };
    }
    return [this, text = top.text](const Key &, int row) { return m_patterns.at(row).isFoundIn(text); };
}

LookupMatcher::Test LookupMatcher::valueTest(const Key &top) const
{
    switch (m_match) {
    case LookupMatch::NotEqual:
        return [this, top](const Key &bottom, int) { return compare(bottom, top) != 0; };
    case LookupMatch::BottomGreater:
        return [this, top](const Key &bottom, int) { return compare(bottom, top) == 1; };
    case LookupMatch::BottomGreaterEqual:
        return [this, top](const Key &bottom, int) {
            const int order = compare(bottom, top);
            return order == 0 || order == 1;
        };
    case LookupMatch::TopGreater:
        return [this, top](const Key &bottom, int) { return compare(top, bottom) == 1; };
    case LookupMatch::TopGreaterEqual:
        return [this, top](const Key &bottom, int) {
            const int order = compare(top, bottom);
            return order == 0 || order == 1;
        };
    default:
        return [this, top](const Key &bottom, int) { return compare(bottom, top) == 0; };
    }
}

LookupMatcher::Test LookupMatcher::textTest(const Key &top) const
{
    const QString text = top.text;
    switch (m_match) {
    case LookupMatch::BottomContains:
        return [text](const Key &bottom, int) { return bottom.text.contains(text); };
    case LookupMatch::BottomStartsWith:
        return [text](const Key &bottom, int) { return bottom.text.startsWith(text); };
    case LookupMatch::BottomEndsWith:
        return [text](const Key &bottom, int) { return bottom.text.endsWith(text); };
    case LookupMatch::TopContains:
        return [text](const Key &bottom, int) { return text.contains(bottom.text); };
    case LookupMatch::TopStartsWith:
        return [text](const Key &bottom, int) { return text.startsWith(bottom.text); };
    case LookupMatch::TopEndsWith:
        return [text](const Key &bottom, int) { return text.endsWith(bottom.text); };
    case LookupMatch::BottomContainsNot:
        return [text](const Key &bottom, int) { return !bottom.text.contains(text); };
    case LookupMatch::BottomStartsWithNot:
        return [text](const Key &bottom, int) { return !bottom.text.startsWith(text); };
    case LookupMatch::BottomEndsWithNot:
        return [text](const Key &bottom, int) { return !bottom.text.endsWith(text); };
    case LookupMatch::TopContainsNot:
        return [text](const Key &bottom, int) { return !text.contains(bottom.text); };
    case LookupMatch::TopStartsWithNot:
        return [text](const Key &bottom, int) { return !text.startsWith(bottom.text); };
    case LookupMatch::TopEndsWithNot:
        return [text](const Key &bottom, int) { return !text.endsWith(bottom.text); };
    default:
        return [text](const Key &bottom, int) { return bottom.text != text; };
    }
}
