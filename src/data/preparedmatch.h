#pragma once

#include "data/cellmatcher.h"
#include "data/dateparser.h"
#include "data/matchoperator.h"
#include "data/numberreader.h"
#include "data/textpattern.h"
#include "data/textregex.h"

/// The test of matchValue() made ready for many cells: the text is read, compiled and encoded once. It reads numbers
/// and dates under the default locale at the time of construction.
class PreparedMatch
{
public:
    PreparedMatch(
        int op, const QString &text, const QString &cellDateFormat, const QString &textDateFormat, bool caseSensitive);
    /// Another text for the same test.
    void setText(const QString &text);

    bool matches(const Cell &cell) const { return m_isKnown && holds(cell) != m_negated; }
    /// True when a test takes so long that remembering its outcome for a cell pays.
    bool isSlow() const { return m_op >= MatchOperator::MatchesRegex && m_op != MatchOperator::IsEmpty; }

private:
    bool holds(const Cell &cell) const;
    bool isSameText(const Cell &cell) const;
    bool startsWith(const Cell &cell) const;
    bool endsWith(const Cell &cell) const;
    int compare(const Cell &cell) const;

    bool m_isKnown;
    MatchOperator m_op; ///< without its "not"
    bool m_negated;
    Qt::CaseSensitivity m_cs;
    DateParser m_cellDates;
    DateParser m_textDates;
    NumberReader m_numbers;

    QString m_text;
    QByteArray m_bytes;            ///< WTF-8
    bool m_wholeCharacters = true; ///< no half of a surrogate pair: a search by bytes finds the same
    QDate m_date;
    bool m_isNumber = false;
    double m_number = 0;
    CellMatcher m_matcher;
    TextRegex m_regex;
    TextPattern m_pattern;
};
