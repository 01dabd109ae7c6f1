#pragma once

#include "data/cellcolumn.h"
#include "data/textregex.h"

#include <QDate>
#include <QString>
#include <QVector>
#include <functional>

/// How a key of the top table is held against the keys of the bottom table; the order is that of the option.
enum class LookupMatch {
    Exact,
    Fuzzy,
    Equal,
    BottomContains,
    BottomStartsWith,
    BottomEndsWith,
    BottomGreater,
    BottomGreaterEqual,
    BottomMatchesRegex,
    TopContains,
    TopStartsWith,
    TopEndsWith,
    TopGreater,
    TopGreaterEqual,
    TopMatchesRegex,
    NotExact,
    NotEqual,
    BottomContainsNot,
    BottomStartsWithNot,
    BottomEndsWithNot,
    TopContainsNot,
    TopStartsWithNot,
    TopEndsWithNot
};

/// Tests one key after the other against all bottom keys, by every match type but Exact and Fuzzy. What a bottom key
/// reads as, a date, a number or a pattern, is found out once.
class LookupMatcher
{
public:
    /// The formats are those of the dates in the two key columns, empty for none.
    LookupMatcher(
        LookupMatch match, const CellColumn &bottomKeys, const QString &bottomFormat, const QString &topFormat);

    /// Calls `found` for each bottom row that matches, in ascending order, until it returns false.
    void match(const QString &topKey, const std::function<bool(int row)> &found);

private:
    struct Key
    {
        QString text;
        QDate date;
        double number = 0.0;
        bool isNumber = false;
    };
    using Test = std::function<bool(const Key &bottom, int row)>;

    Key read(const QString &text, const QString &format) const;
    Test testFor(const Key &top);
    Test textTest(const Key &top) const;
    Test valueTest(const Key &top) const;
    Test patternTest(const Key &top);
    int compare(const Key &left, const Key &right) const;

    LookupMatch m_match;
    QString m_topFormat;
    bool m_hasDates;
    QVector<Key> m_bottom;
    QVector<TextRegex> m_patterns;
};
