#include "data/textregex.h"

#include "data/regexwork.h"

#include <algorithm>

namespace {

bool hasSurrogates(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); });
}

bool hasLoneSurrogate(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (text.at(i).isSurrogate()) {
            return true;
        }
    }
    return false;
}

} // namespace

TextRegex::TextRegex(const QString &pattern, Qt::CaseSensitivity sensitivity)
    : m_pattern(pattern)
    , m_options(sensitivity == Qt::CaseSensitive ? QRegularExpression::NoPatternOption
                                                 : QRegularExpression::CaseInsensitiveOption)
{
    compile();
    m_groupCount = isValid() ? m_expression.captureCount() : 0;
}

void TextRegex::compile() const
{
    m_limit = RegexWork::limit();
    m_expression = QRegularExpression(QStringLiteral("(*LIMIT_MATCH=%1)").arg(m_limit) + m_pattern, m_options);
    if (m_expression.isValid()) {
        m_expression.optimize();
    }
}

void TextRegex::keepToLimit() const
{
    if (Q_UNLIKELY(m_limit != RegexWork::limit())) {
        compile();
    }
}

void TextRegex::giveUp(const QString &text) const
{
    if (hasLoneSurrogate(text)) {
        RegexWork::noteUnreadable(m_pattern, text);
    } else {
        RegexWork::noteTooHard(m_pattern, text);
    }
}

QRegularExpressionMatch TextRegex::match(const QString &text, int offset) const
{
    keepToLimit();
    // Texts without surrogates need no further test of being well-formed.
    const auto options = hasSurrogates(text) ? QRegularExpression::NoMatchOption
                                             : QRegularExpression::DontCheckSubjectStringMatchOption;
    QRegularExpressionMatch match = m_expression.match(text, offset, QRegularExpression::NormalMatch, options);
    if (Q_UNLIKELY(!match.isValid()) && isValid()) {
        giveUp(text);
    }
    return match;
}

QStringList TextRegex::split(const QString &text, Qt::SplitBehavior behavior) const
{
    if (!isValid()) {
        return {text};
    }
    QStringList parts;
    int begin = 0;
    const auto append = [&](int end) {
        if (end > begin || behavior == Qt::KeepEmptyParts) {
            parts.append(text.mid(begin, end - begin));
        }
    };
    const bool isDone = forEachMatch(text, [&](const QRegularExpressionMatch &match) {
        append(match.capturedStart());
        begin = match.capturedEnd();
    });
    if (!isDone) {
        return {text};
    }
    append(text.size());
    return parts;
}
