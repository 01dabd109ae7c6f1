#pragma once

#include <QString>

/// Looks through a document's text, before it becomes a tree, for markup that would make the tree grow without bounds
/// or overflow the stack: entity declarations and elements nested deeper than any document nests them.
class MarkupGuard
{
public:
    static constexpr int maxDepth = 64;

    explicit MarkupGuard(const QString &text)
        : m_text(text)
    {
    }

    /// False when the text must not be parsed; message(), line() and column() then tell what and where.
    bool accepts();
    const QString &message() const { return m_message; }
    /// 1-based, as is column().
    int line() const;
    int column() const;

private:
    /// Moves behind the next `end`, or to the end of the text.
    void skipPast(const QString &end);
    bool startsWith(const char *markup) const;
    void skipMarkup(QChar otherEnd);
    void skipTag();
    bool refuse(const QString &message);

    const QString &m_text;
    int m_pos = 0;
    int m_depth = 0;
    QString m_message;
};
