#include "panes/widgets/scripthighlighter.h"

#include <QRegularExpression>

namespace {

enum State { InCode, InComment };

QTextCharFormat colored(QRgb light, QRgb dark, bool isDark)
{
    QTextCharFormat format;
    format.setForeground(QColor(isDark ? dark : light));
    return format;
}

/// One alternative for each kind of thing, in the order of the groups.
const QRegularExpression &tokens()
{
    static const QRegularExpression pattern(
        QStringLiteral("(//.*$|/\\*.*?(?:\\*/|$))"
                       "|(\"(?:[^\"\\\\]|\\\\.)*\"?|'(?:[^'\\\\]|\\\\.)*'?|`(?:[^`\\\\]|\\\\.)*`?)"
                       "|(\\$\\([^)]*\\))"
                       "|\\b(break|case|catch|const|continue|default|delete|do|else|false|finally|for|function|if|in|"
                       "instanceof|let|new|"
                       "null|of|return|switch|this|throw|true|try|typeof|undefined|var|void|while|with)\\b"
                       "|\\b(\\d+(?:\\.\\d+)?(?:[eE][+-]?\\d+)?)\\b"));
    return pattern;
}

} // namespace

ScriptHighlighter::ScriptHighlighter(QTextDocument *document, bool isDark)
    : QSyntaxHighlighter(document)
    , m_word(colored(0xff0b5cad, 0xff7cb7f2, isDark))
    , m_text(colored(0xff2e7d32, 0xff8fcf93, isDark))
    , m_number(colored(0xff8e24aa, 0xffd6a3e6, isDark))
    , m_comment(colored(0xff757575, 0xffa0a0a0, isDark))
    , m_variable(colored(0xffc2410c, 0xffffa94d, isDark))
{
    m_word.setFontWeight(QFont::DemiBold);
    m_comment.setFontItalic(true);
}

void ScriptHighlighter::highlightBlock(const QString &text)
{
    int from = 0;
    setCurrentBlockState(InCode);
    if (previousBlockState() == InComment) {
        const int end = text.indexOf(QLatin1String("*/"));
        from = end < 0 ? text.size() : end + 2;
        setFormat(0, from, m_comment);
        if (end < 0) {
            setCurrentBlockState(InComment);
            return;
        }
    }
    const QTextCharFormat formats[] = {m_comment, m_text, m_variable, m_word, m_number};
    QRegularExpressionMatchIterator matches = tokens().globalMatch(text, from);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        setFormat(match.capturedStart(), match.capturedLength(), formats[match.lastCapturedIndex() - 1]);
        const QString token = match.captured();
        if (token.startsWith(QLatin1String("/*")) && (token.size() < 4 || !token.endsWith(QLatin1String("*/")))) {
            setCurrentBlockState(InComment);
        }
    }
}
