#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

/// A regular expression of the user's, to be tried on many texts. All are tried through this class: a match is bounded
/// by the limit of RegexWork, and what is given up is told there and counts as not matching.
class TextRegex
{
public:
    TextRegex() = default;
    explicit TextRegex(const QString &pattern, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

    bool isValid() const { return m_expression.isValid(); }
    /// Why the expression isn't valid.
    QString errorString() const { return m_expression.errorString(); }
    int groupCount() const { return m_groupCount; }

    /// The first match from `offset` on; one that is invalid when it was given up.
    QRegularExpressionMatch match(const QString &text, int offset = 0) const;
    bool isFoundIn(const QString &text) const { return isValid() && match(text).hasMatch(); }
    /// Calls `take` with each match, empty ones too. False when one was given up.
    template<class Take>
    bool forEachMatch(const QString &text, Take take) const;
    /// What stands between the matches; a text that was given up in one piece, as for an invalid expression.
    QStringList split(const QString &text, Qt::SplitBehavior behavior) const;

private:
    void compile() const;
    void keepToLimit() const;
    void giveUp(const QString &text) const;

    QString m_pattern;
    QRegularExpression::PatternOptions m_options;
    int m_groupCount = 0;
    mutable QRegularExpression m_expression; ///< with the limit of m_limit in front
    mutable int m_limit = 0;
};

template<class Take>
bool TextRegex::forEachMatch(const QString &text, Take take) const
{
    keepToLimit();
    bool endsEmpty = false;
    QRegularExpressionMatchIterator matches = m_expression.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        endsEmpty = match.capturedLength() == 0 && match.capturedEnd() == text.size();
        take(match);
    }
    // The iterator is invalid after a failure, but also when it has gone past an empty match at the very end.
    if (!matches.isValid() && !endsEmpty) {
        giveUp(text);
        return false;
    }
    return true;
}
