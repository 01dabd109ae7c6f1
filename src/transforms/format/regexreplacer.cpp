#include "transforms/format/regexreplacer.h"

RegexReplacer::RegexReplacer(const QString &pattern, bool caseSensitive)
    : m_expression(pattern, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive)
    , m_isValid(m_expression.isValid())
{
}

void RegexReplacer::prepare(const QString &with)
{
    m_with = with;
    m_pieces.clear();
    const auto digitAt = [&with](int i) { return i < with.size() ? with.at(i).digitValue() : -1; };
    int begin = 0;
    for (int i = 0; i < with.size(); ++i) {
        if (with.at(i) != QLatin1Char('\\')) {
            continue;
        }
        int group = digitAt(i + 1);
        if (group < 1 || group > m_expression.groupCount()) {
            continue;
        }
        int next = i + 2;
        const int second = digitAt(next);
        if (second >= 0 && group * 10 + second <= m_expression.groupCount()) {
            group = group * 10 + second;
            ++next;
        }
        m_pieces.push_back({0, begin, i});
        m_pieces.push_back({group, 0, 0});
        begin = next;
        i = next - 1;
    }
    m_pieces.push_back({0, begin, with.size()});
}

void RegexReplacer::appendReplacement(const QRegularExpressionMatch &match, const QString &text, QString &out) const
{
    for (const Piece &piece : m_pieces) {
        const QString &source = piece.group > 0 ? text : m_with;
        const int begin = piece.group > 0 ? match.capturedStart(piece.group) : piece.begin;
        const int end = piece.group > 0 ? match.capturedEnd(piece.group) : piece.end;
        if (begin >= 0 && end > begin) {
            out.append(source.constData() + begin, end - begin);
        }
    }
}

/// The quick way, for matches that take up characters; gives up with `*hadEmpty` set at one that takes none.
bool RegexReplacer::replaceNonEmpty(const QString &text, QString &out, bool *hadEmpty) const
{
    int done = 0;
    QRegularExpressionMatch match = m_expression.match(text);
    while (match.hasMatch()) {
        const int begin = match.capturedStart();
        const int end = match.capturedEnd();
        if (begin < done || end <= begin) {
            *hadEmpty = true;
            return true;
        }
        out.append(text.constData() + done, begin - done);
        appendReplacement(match, text, out);
        done = end;
        match = m_expression.match(text, done);
    }
    if (done > 0) {
        out.append(text.constData() + done, text.size() - done);
    } else {
        out = text;
    }
    return match.isValid();
}

/// The way that knows where to go on behind an empty match.
bool RegexReplacer::replaceAny(const QString &text, QString &out) const
{
    int done = 0;
    const bool isDone = m_expression.forEachMatch(text, [&](const QRegularExpressionMatch &match) {
        out.append(text.constData() + done, qMax(0, match.capturedStart() - done));
        appendReplacement(match, text, out);
        done = match.capturedEnd();
    });
    out.append(text.constData() + done, text.size() - done);
    return isDone;
}

bool RegexReplacer::replace(QString &text, const QString &with)
{
    if (m_pieces.empty() || (with.constData() != m_with.constData() && with != m_with)) {
        prepare(with);
    }
    QString result;
    bool hadEmpty = false;
    bool isDone = replaceNonEmpty(text, result, &hadEmpty);
    if (hadEmpty) {
        result.clear();
        isDone = replaceAny(text, result);
    }
    if (isDone) {
        text = result;
    }
    return isDone;
}
