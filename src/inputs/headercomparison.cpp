#include "inputs/headercomparison.h"

#include "text/cappedlist.h"

/// The texts, set in by two blanks as their list is.
static QStringList indented(QStringList texts)
{
    for (QString &text : texts) {
        text.prepend(QLatin1String("  "));
    }
    return texts;
}

QString headerMismatch(const QString &itemName, const QStringList &firstNames, const QStringList &itemNames)
{
    CappedList missing;
    CappedList different;
    CappedList extra;
    for (int i = 0; i < qMax(firstNames.size(), itemNames.size()); ++i) {
        const QString position = QString::number(i + 1);
        if (i >= itemNames.size()) {
            missing.add([&] { return QStringLiteral("Missing column %1: '%2'").arg(position, firstNames.at(i)); });
        } else if (i >= firstNames.size()) {
            extra.add([&] { return QStringLiteral("Extra column %1: '%2'").arg(position, itemNames.at(i)); });
        } else if (firstNames.at(i) != itemNames.at(i)) {
            different.add([&] {
                return QStringLiteral("Column name difference at column %1: '%2' -> '%3'")
                    .arg(position, firstNames.at(i), itemNames.at(i));
            });
        }
    }
    const QStringList lines = indented(missing.lines() + different.lines() + extra.lines());
    if (lines.isEmpty()) {
        return QString();
    }
    return QStringLiteral("'%1' header mismatch:\n").arg(itemName) + lines.join(QLatin1Char('\n'));
}
