#include "transforms/keys/keyreports.h"

#include "data/dataset.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"

#include <QMap>

static void addReport(QStringList &messages, const QStringList &lines, ReportPlace place)
{
    messages.insert(place == ReportPlace::Front ? 0 : messages.size(), lines.join(QLatin1Char('\n')));
}

static QString atRow(const QString &value, int row)
{
    return QStringLiteral("'%1' at row %2").arg(value, QString::number(row + 1));
}

static QMap<QString, int> countKeys(const CellColumn &keys, bool caseSensitive)
{
    QMap<QString, int> counts;
    for (int row = 0; row < keys.size(); ++row) {
        const QString text = keys.at(row).text();
        ++counts[caseSensitive ? text : text.toLower()];
    }
    return counts;
}

void reportDuplicateKeys(QStringList &messages, const Dataset &dataset, ColumnIndex keyColumn, bool caseSensitive,
    const QString &datasetName, ReportPlace place)
{
    const QMap<QString, int> counts = countKeys(dataset.column(keyColumn), caseSensitive);
    const QString note = caseSensitive ? QString() : QStringLiteral(" (case insensitive)");
    CappedList duplicates;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() < 2) {
            continue;
        }
        duplicates.add(
            [&] { return QStringLiteral("'%1' occurs %2 times%3").arg(it.key(), Messages::count(it.value()), note); });
    }
    if (duplicates.count() > 0) {
        const QString heading = QStringLiteral("%1 duplicated %2 in the %3:")
                                    .arg(Messages::count(duplicates.count()),
                                        Messages::word(duplicates.count(), "key", "keys"), datasetName);
        addReport(messages, QStringList{heading} + duplicates.lines("other duplicate", "other duplicates"), place);
    }
}

static bool isBlankAtEnds(const QString &text)
{
    return !text.isEmpty() && (text.at(0).isSpace() || text.at(text.size() - 1).isSpace());
}

void reportKeyWhitespace(QStringList &messages, const Dataset &dataset, ColumnIndex keyColumn, bool caseSensitive,
    const QString &datasetName, ReportPlace place)
{
    const CellColumn &keys = dataset.column(keyColumn);
    CappedList found;
    for (int row = 0; row < keys.size(); ++row) {
        const QString text = keys.at(row).text();
        if (!isBlankAtEnds(text)) {
            continue;
        }
        found.add([&] { return atRow(text, row); });
    }
    if (found.count() == 0) {
        return;
    }
    QStringList lines{QStringLiteral("%1 values with leading or trailing whitespace in the %2:")
                          .arg(Messages::count(found.count()), datasetName)};
    lines += found.lines("other with whitespace", "others with whitespace");
    if (caseSensitive) {
        lines.append(QStringLiteral("(keys are whitespace and case sensitive)"));
    }
    addReport(messages, lines, place);
}

int reportKeyMisses(QStringList &messages, const Dataset &dataset, ColumnIndex keyColumn,
    const QVector<char> &hasPartner, const QString &datasetName, ReportPlace place)
{
    CappedList misses;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        if (hasPartner.at(row)) {
            continue;
        }
        misses.add([&] { return atRow(dataset.value(RowIndex(row), keyColumn), row); });
    }
    if (misses.count() > 0) {
        const QString heading = QStringLiteral("%1 %2 in the %3:")
                                    .arg(Messages::count(misses.count()),
                                        Messages::word(misses.count(), "miss", "misses"), datasetName);
        addReport(messages, QStringList{heading} + misses.lines("other miss", "other misses"), place);
    }
    return static_cast<int>(misses.count());
}
