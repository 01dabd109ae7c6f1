#pragma once

#include "data/textregex.h"

#include <QString>
#include <QStringView>
#include <vector>

/// Replaces all matches of one regular expression in many texts, with the results of QString::replace; unlike that it
/// tells when a text couldn't be searched to its end, and leaves such a text alone.
class RegexReplacer
{
public:
    RegexReplacer(const QString &pattern, bool caseSensitive);

    bool isValid() const { return m_isValid; }
    /// Why the expression isn't valid.
    QString errorString() const { return m_expression.errorString(); }
    /// `with` may hold \1, \2 and so on for what the groups matched. False, and no change, when a match took too much
    /// work or the text isn't well-formed.
    bool replace(QString &text, const QString &with);

private:
    /// A piece of the new text: what a group matched, or the characters from `begin` to before `end` of `with`.
    struct Piece
    {
        int group;
        int begin;
        int end;
    };
    void prepare(const QString &with);
    bool replaceNonEmpty(const QString &text, QString &out, bool *hadEmpty) const;
    bool replaceAny(const QString &text, QString &out) const;
    void appendReplacement(const QRegularExpressionMatch &match, const QString &text, QString &out) const;

    TextRegex m_expression;
    bool m_isValid;
    QString m_with;
    std::vector<Piece> m_pieces;
};
