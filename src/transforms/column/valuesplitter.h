#pragma once

#include "data/textbuffer.h"
#include "data/textregex.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <vector>

/// Cuts texts into parts by a delimiter, a regular expression or lengths.
class ValueSplitter
{
public:
    enum By { Text, Regex, Lengths };

    /// `pattern` is the delimiter, the expression or the comma separated list of lengths. With `keepEmpty` off, empty
    /// parts are dropped, but not those of lengths, each of which has its place.
    ValueSplitter(By by, const QString &pattern, bool keepEmpty);

    /// What is wrong with a list of lengths; nothing is cut by a bad one.
    const QStringList &faults() const { return m_faults; }
    /// Null unless the regular expression can't be used, which cuts nothing.
    const TextRegex *invalidExpression() const { return m_expression.isValid() ? nullptr : &m_expression; }
    QStringList split(const QString &text) const;
    /// Where the parts of a text in WTF-8 begin and end, for a delimiter of text.
    struct Span
    {
        int begin;
        int end;
    };
    bool canSplitBytes() const { return m_by == Text && m_delimiterBytes.size() > 0; }
    void splitBytes(const char *bytes, int size, std::vector<Span> &spans) const;

private:
    /// So many characters, or all that the other pieces leave (-1), to take or to skip.
    struct Piece
    {
        int length;
        bool skipped;
    };
    static constexpr int rest = -1;

    void parseLengths(const QString &list);
    QStringList splitByLengths(const QString &text) const;

    const By m_by;
    const QString m_delimiter;
    TextBuffer m_delimiterBytes;
    TextRegex m_expression;
    const Qt::SplitBehavior m_behavior;
    QVector<Piece> m_pieces;
    QStringList m_faults;
};
