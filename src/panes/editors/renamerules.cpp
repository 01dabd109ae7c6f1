#include "panes/editors/renamerules.h"

#include <QRegularExpression>

QString RenameRules::withPrefixAndSuffix(const QString &name, const QString &prefix, const QString &suffix)
{
    return prefix + name + suffix;
}

QString RenameRules::inCase(const QString &name, Case change)
{
    if (change == Lower) {
        return name.toLower();
    }
    if (change == Upper) {
        return name.toUpper();
    }
    QString titled = name.toLower();
    bool starts = true;
    for (QChar &c : titled) {
        c = starts ? c.toUpper() : c;
        starts = !c.isLetterOrNumber() && c != QLatin1Char('\'');
    }
    return titled;
}

QString RenameRules::replaced(
    const QString &name, Match match, const QString &find, const QString &with, bool caseSensitive)
{
    const Qt::CaseSensitivity cs = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    QString result = name;
    if (find.isEmpty()) {
        return result;
    }
    if (match == ExactText) {
        return name.compare(find, cs) == 0 ? with : name;
    }
    if (match == Text) {
        return result.replace(find, with, cs);
    }
    const QRegularExpression pattern(
        find, caseSensitive ? QRegularExpression::NoPatternOption : QRegularExpression::CaseInsensitiveOption);
    return pattern.isValid() ? result.replace(pattern, with) : result;
}

QStringList RenameRules::pasted(const QString &text)
{
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    while (lines.endsWith(QLatin1Char('\n'))) {
        lines.chop(1);
    }
    const bool isRow = !lines.contains(QLatin1Char('\n')) && lines.contains(QLatin1Char('\t'));
    return lines.isEmpty() ? QStringList() : lines.split(isRow ? QLatin1Char('\t') : QLatin1Char('\n'));
}
