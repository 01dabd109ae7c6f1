#include "document/help/examplepage.h"

#include <QFile>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>

namespace {

const QString listSign = QStringLiteral("- ");
const QString noOptions = QStringLiteral("There are no options.");

QString boldLine(const QString &name)
{
    return QStringLiteral("**%1**").arg(name);
}

bool isBold(const QString &line)
{
    return line.startsWith(QLatin1String("**")) && line.endsWith(QLatin1String("**"));
}

/// A line of a table or a list, and not one of a note that follows.
bool isOfPart(const QString &line)
{
    return line.startsWith(u'|') || line.startsWith(listSign) || line == noOptions;
}

QStringList linesOf(const MarkdownTable &options)
{
    return options.rows.isEmpty() ? QStringList(noOptions) : options.toLines();
}

} // namespace

ExamplePage::ExamplePage(const QString &path)
    : m_path(path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        m_lines = QString::fromUtf8(file.readAll()).split(u'\n');
    }
}

QString ExamplePage::title() const
{
    return m_lines.value(0).startsWith(QLatin1String("# ")) ? m_lines.first().mid(2) : QString();
}

QStringList ExamplePage::headings() const
{
    QStringList found;
    for (const QString &line : m_lines) {
        if (line.startsWith(QLatin1String("## "))) {
            found.append(line.mid(3));
        }
    }
    return found;
}

QStringList ExamplePage::section(const QString &heading) const
{
    const int start = m_lines.indexOf(QStringLiteral("## ") + heading);
    QStringList found;
    for (int i = start + 1; start >= 0 && i < m_lines.size() && !m_lines.at(i).startsWith(QLatin1String("## ")); ++i) {
        found.append(m_lines.at(i));
    }
    return found;
}

QStringList ExamplePage::links() const
{
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)]+)\\)"));
    QStringList found;
    for (auto matches = link.globalMatch(m_lines.join(u'\n')); matches.hasNext();) {
        found.append(matches.next().captured(1));
    }
    return found;
}

QPair<int, int> ExamplePage::partOf(const QString &name) const
{
    const int heading = m_lines.indexOf(boldLine(name));
    if (heading < 0) {
        return {-1, -1};
    }
    int start = heading + 1;
    while (start < m_lines.size() && m_lines.at(start).isEmpty()) {
        ++start;
    }
    int end = start;
    while (end < m_lines.size() && isOfPart(m_lines.at(end))) {
        ++end;
    }
    return {start, end};
}

MarkdownTable ExamplePage::tableOf(const QString &name) const
{
    const QPair<int, int> part = partOf(name);
    const QStringList lines = m_lines.mid(part.first, part.second - part.first);
    return part.first >= 0 && lines.value(0).startsWith(u'|') ? MarkdownTable::fromLines(lines) : MarkdownTable();
}

QStringList ExamplePage::inputNames() const
{
    QStringList names;
    for (const QString &line : m_lines) {
        if (isBold(line) && line.startsWith(QLatin1String("**Input"))) {
            names.append(line.mid(2, line.size() - 4));
        }
    }
    return names;
}

QList<MarkdownTable> ExamplePage::inputs() const
{
    QList<MarkdownTable> tables;
    for (const QString &name : inputNames()) {
        tables.append(tableOf(name));
    }
    return tables;
}

QList<QPair<QString, QString>> ExamplePage::storedOptions() const
{
    static const QRegularExpression comment(QStringLiteral("^<!-- example (\\w+)=(.*) -->$"));
    QList<QPair<QString, QString>> options;
    for (const QString &line : m_lines) {
        const QRegularExpressionMatch match = comment.match(line);
        if (match.hasMatch()) {
            const QString stored = match.captured(2).replace(u'|', QChar(0x1F));
            options.append({match.captured(1), QUrl::fromPercentEncoding(stored.toUtf8())});
        }
    }
    return options;
}

bool ExamplePage::hasOnlyShape() const
{
    return m_lines.contains(QStringLiteral("<!-- example of this shape -->"));
}

bool ExamplePage::hasEmptyCells() const
{
    return std::any_of(m_lines.cbegin(), m_lines.cend(),
        [](const QString &line) { return line.startsWith(u'|') && line.contains(QLatin1String("|  |")); });
}

QString ExamplePage::unexplainedSigns() const
{
    const QString text = m_lines.filter(QRegularExpression(QStringLiteral("^\\|"))).join(u'\n');
    const QString explained = m_lines.filter(QStringLiteral("for a blank")).join(u'\n')
                              + m_lines.filter(QStringLiteral("for a line break")).join(u'\n');
    QString found;
    for (const QChar sign : MarkdownTable::signs()) {
        if (text.contains(sign) && !explained.contains(sign)) {
            found += sign;
        }
    }
    return found;
}

ExampleOutcome ExamplePage::outcome() const
{
    ExampleOutcome outcome;
    outcome.options = tableOf(QStringLiteral("Options"));
    outcome.result = tableOf(QStringLiteral("Result"));
    const QPair<int, int> warnings = partOf(QStringLiteral("Warnings"));
    for (int i = warnings.first; i < warnings.second; ++i) {
        outcome.warnings.append(m_lines.at(i).mid(listSign.size()));
    }
    return outcome;
}

void ExamplePage::replacePart(const QString &name, const QStringList &lines)
{
    const QPair<int, int> part = partOf(name);
    if (part.first < 0) {
        return;
    }
    QStringList changed = m_lines.mid(0, m_lines.indexOf(boldLine(name)) + 1);
    changed << QString() << lines;
    if (!m_lines.value(part.second).isEmpty()) {
        changed << QString();
    }
    m_lines = changed + m_lines.mid(part.second);
}

bool ExamplePage::record(const ExampleOutcome &outcome)
{
    for (const QString &name : inputNames()) {
        replacePart(name, tableOf(name).toLines());
    }
    replacePart(QStringLiteral("Options"), linesOf(outcome.options));
    if (!hasOnlyShape() || !this->outcome().result.hasShapeOf(outcome.result)) {
        replacePart(QStringLiteral("Result"), outcome.result.toLines());
    }
    QStringList warnings;
    for (const QString &warning : outcome.warnings) {
        warnings.append(listSign + warning);
    }
    replacePart(QStringLiteral("Warnings"), warnings);
    QFile file(m_path);
    const QByteArray text = m_lines.join(u'\n').toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}
