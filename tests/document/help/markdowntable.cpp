#include "document/help/markdowntable.h"

#include <algorithm>

namespace {

const QChar shownBlank(u'␣');
const QChar shownLineBreak(u'⏎');
const QChar shownTab(u'⇥');
const QString shownEmptiness = QStringLiteral("&nbsp;");

bool isMarkup(const QString &cell, int at)
{
    static const QString markup = QStringLiteral("\\|`*_[]<>~@");
    const bool startsEntity = cell.at(at) == u'&' && at + 1 < cell.size() && cell.at(at + 1) != u' ';
    return startsEntity || markup.contains(cell.at(at));
}

bool isBlankThatMatters(const QString &cell, int at)
{
    const bool isAtEnd = at == 0 || at == cell.size() - 1;
    return isAtEnd || cell.at(at - 1) == u' ' || cell.at(at + 1) == u' ';
}

QString encoded(const QString &cell)
{
    QString text = cell.isEmpty() ? shownEmptiness : QString();
    for (int i = 0; i < cell.size(); ++i) {
        const QChar character = cell.at(i);
        if (isMarkup(cell, i)) {
            text += QLatin1Char('\\');
        }
        if (character == u' ' && isBlankThatMatters(cell, i)) {
            text += shownBlank;
        } else if (character == u'\n') {
            text += shownLineBreak;
        } else if (character == u'\t') {
            text += shownTab;
        } else {
            text += character;
        }
    }
    return text;
}

/// Cells of one line, decoded.
QStringList cellsOf(const QString &line)
{
    QStringList cells;
    QString cell;
    const auto finish = [&] {
        cell = cell.trimmed();
        cell.replace(shownBlank, u' ').replace(shownLineBreak, u'\n').replace(shownTab, u'\t');
        cells.append(cell == shownEmptiness ? QString() : cell);
        cell.clear();
    };
    for (int i = 1; i < line.size(); ++i) {
        if (line.at(i) == u'\\' && i + 1 < line.size()) {
            cell += line.at(++i);
        } else if (line.at(i) == u'|') {
            finish();
        } else {
            cell += line.at(i);
        }
    }
    return cells;
}

QString lineOf(const QStringList &cells)
{
    QString line(u'|');
    for (const QString &cell : cells) {
        line += u' ' + encoded(cell) + QStringLiteral(" |");
    }
    return line;
}

} // namespace

MarkdownTable MarkdownTable::fromLines(const QStringList &lines)
{
    MarkdownTable table;
    for (int i = 0; i < lines.size(); ++i) {
        QStringList cells = cellsOf(lines.at(i));
        if (i == 0) {
            table.header = cells;
        } else if (i > 1) {
            while (cells.size() < table.header.size()) {
                cells.append(QString());
            }
            table.rows.append(cells);
        }
    }
    return table;
}

QStringList MarkdownTable::toLines() const
{
    QStringList lines{lineOf(header), QStringLiteral("|") + QStringLiteral(" --- |").repeated(header.size())};
    std::transform(rows.cbegin(), rows.cend(), std::back_inserter(lines), lineOf);
    return lines;
}

bool MarkdownTable::hasShapeOf(const MarkdownTable &other) const
{
    return header == other.header && rows.size() == other.rows.size();
}

QString MarkdownTable::signs()
{
    return QString(shownBlank) + shownLineBreak + shownTab;
}
