#pragma once

#include <QSyntaxHighlighter>

/// Colours of a script in Javascript: words of the language, texts, numbers, comments and the variables of columns.
class ScriptHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// `isDark` chooses colours for a dark ground.
    ScriptHighlighter(QTextDocument *document, bool isDark);

protected:
    void highlightBlock(const QString &text) override;

private:
    QTextCharFormat m_word;
    QTextCharFormat m_text;
    QTextCharFormat m_number;
    QTextCharFormat m_comment;
    QTextCharFormat m_variable;
};
