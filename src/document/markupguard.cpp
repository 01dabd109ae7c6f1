#include "document/markupguard.h"

bool MarkupGuard::accepts()
{
    m_pos = m_text.indexOf(QLatin1String("<!ENTITY"));
    if (m_pos >= 0) {
        return refuse(QStringLiteral("entity declarations are not allowed"));
    }
    while ((m_pos = m_text.indexOf(QLatin1Char('<'), m_pos < 0 ? 0 : m_pos)) >= 0) {
        if (startsWith("<!--")) {
            m_pos += 4;
            skipPast(QStringLiteral("-->"));
        } else if (startsWith("<![CDATA[")) {
            skipPast(QStringLiteral("]]>"));
        } else if (startsWith("<?")) {
            skipPast(QStringLiteral("?>"));
        } else if (startsWith("<!")) {
            skipMarkup(QLatin1Char('['));
        } else {
            skipTag();
        }
        if (m_depth > maxDepth) {
            return refuse(QStringLiteral("elements are nested too deeply"));
        }
    }
    return true;
}

void MarkupGuard::skipPast(const QString &end)
{
    const int found = m_text.indexOf(end, m_pos);
    m_pos = found < 0 ? m_text.size() : found + end.size();
}

bool MarkupGuard::startsWith(const char *markup) const
{
    return m_text.midRef(m_pos).startsWith(QLatin1String(markup));
}

/// Moves to the next '>' or `otherEnd`, over quoted values.
void MarkupGuard::skipMarkup(QChar otherEnd)
{
    QChar quote;
    for (++m_pos; m_pos < m_text.size(); ++m_pos) {
        const QChar c = m_text.at(m_pos);
        if (!quote.isNull()) {
            quote = c == quote ? QChar() : quote;
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
        } else if (c == QLatin1Char('>') || c == otherEnd) {
            return;
        }
    }
}

void MarkupGuard::skipTag()
{
    const bool closing = m_text.midRef(m_pos + 1).startsWith(QLatin1Char('/'));
    skipMarkup(QLatin1Char('>'));
    if (closing) {
        --m_depth;
    } else if (m_text.at(m_pos - 1) != QLatin1Char('/')) {
        ++m_depth;
    }
}

bool MarkupGuard::refuse(const QString &message)
{
    m_message = message;
    return false;
}

int MarkupGuard::line() const
{
    return m_text.leftRef(m_pos).count(QLatin1Char('\n')) + 1;
}

int MarkupGuard::column() const
{
    return m_pos - (m_pos > 0 ? m_text.lastIndexOf(QLatin1Char('\n'), m_pos - 1) : -1);
}
