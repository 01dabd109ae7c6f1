#include "app/help/shortcuttable.h"

#include "app/actiontable.h"

#include <QKeySequence>
#include <QStringList>

namespace {

/// What the names of a menu's actions begin with, behind "m_".
struct Part
{
    const char *title;
    QStringList beginnings;
};

QString escaped(QString text)
{
    for (const char *sign : {"\\", "|", "*", "_", "<", "`", "["}) {
        text.replace(QLatin1String(sign), QLatin1Char('\\') + QLatin1String(sign));
    }
    return text;
}

QString keysOf(const ActionRow &row)
{
    QStringList keys;
    for (const QString &key : QString::fromLatin1(row.shortcut).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        keys.append(escaped(QKeySequence(key).toString(QKeySequence::NativeText)));
    }
    return keys.join(QStringLiteral(" or "));
}

bool belongsTo(const ActionRow &row, const Part &part)
{
    const QString name = QString::fromLatin1(row.name).mid(2);
    return std::any_of(part.beginnings.begin(), part.beginnings.end(),
        [&name](const QString &beginning) { return name.startsWith(beginning); });
}

QString line(const ActionRow &row)
{
    const QString text = QString::fromLatin1(row.text).remove(QLatin1Char('&')).remove(QLatin1String("..."));
    const QString tip = QString::fromUtf8(row.tip).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return QStringLiteral("| %1 | %2 | %3 |\n").arg(keysOf(row), escaped(text), escaped(tip));
}

} // namespace

QString shortcutTable()
{
    const Part parts[] = {{"File", {QStringLiteral("file")}}, {"Edit", {QStringLiteral("edit")}},
        {"Run", {QStringLiteral("run")}}, {"View", {QStringLiteral("view")}},
        {"Add items", {QStringLiteral("input"), QStringLiteral("output"), QStringLiteral("insert")}},
        {"Help", {QStringLiteral("help")}}};
    QString text;
    for (const Part &part : parts) {
        text += QStringLiteral("### %1\n\n| Keys | Command | What it does |\n| --- | --- | --- |\n")
                    .arg(QLatin1String(part.title));
        for (const ActionRow &row : ActionTable()) {
            if (belongsTo(row, part) && *row.shortcut) {
                text += line(row);
            }
        }
        text += QLatin1Char('\n');
    }
    return text;
}
