#include "app/batch/batchcolumns.h"

#include "outputs/outputenums.h"

#include <algorithm>

namespace {

const char *const writersText = "Output/Chart";

bool isInput(const CommandLineItem &item)
{
    return item.kind == CommandLineItem::Input;
}

bool isOutput(const CommandLineItem &item)
{
    return item.kind == CommandLineItem::Output;
}

bool isChart(const CommandLineItem &item)
{
    return item.kind == CommandLineItem::Chart;
}

bool isFileInput(const CommandLineItem &item)
{
    return isInput(item) && !item.isFolder;
}

bool isFolderInput(const CommandLineItem &item)
{
    return isInput(item) && item.isFolder;
}

/// Charts of the list all write.
bool isWriter(const CommandLineItem &item)
{
    return !isInput(item) && item.writeMode != WriteMode::Disabled;
}

using Test = bool (*)(const CommandLineItem &item);

QStringList aliases(const QList<CommandLineItem> &items, Test test)
{
    QStringList found;
    for (const CommandLineItem &item : items) {
        if (test(item) && !item.alias.isEmpty()) {
            found.append(item.alias);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

QStringList common(const QStringList &first, const QStringList &second)
{
    QStringList found;
    for (const QString &alias : first) {
        if (second.contains(alias) && !found.contains(alias)) {
            found.append(alias);
        }
    }
    return found;
}

/// The first alias that occurs twice in a sorted list, or empty.
QString repeated(const QStringList &sorted)
{
    const auto twice = std::adjacent_find(sorted.cbegin(), sorted.cend());
    return twice == sorted.cend() ? QString() : *twice;
}

bool lacksAlias(const QList<CommandLineItem> &items, Test test)
{
    return std::any_of(items.cbegin(), items.cend(),
        [test](const CommandLineItem &item) { return test(item) && item.alias.isEmpty(); });
}

/// `text` with the alias in the place of "%1", or empty for none.
QString about(const char *text, const QString &alias)
{
    return alias.isEmpty() ? QString() : QString::fromLatin1(text).arg(alias);
}

QString inputObstacle(const QList<CommandLineItem> &items)
{
    if (lacksAlias(items, isInput)) {
        return QStringLiteral("All Input items must have an alias for batch processing.");
    }
    const QStringList onBoth = common(aliases(items, isFileInput), aliases(items, isFolderInput));
    if (!onBoth.isEmpty()) {
        return QStringLiteral("Cannot use an alias for both file inputs and folder inputs.\nCommon alias(es): %1")
            .arg(onBoth.join(QStringLiteral(", ")));
    }
    if (std::none_of(items.cbegin(), items.cend(), isFileInput)) {
        return QStringLiteral("There must be at least 1 file input for batch processing.");
    }
    return QString();
}

QString writerObstacle(const QList<CommandLineItem> &items)
{
    if (std::none_of(items.cbegin(), items.cend(), isWriter)) {
        return about("There must be at least 1 %1 item that is writing to a file.", QLatin1String(writersText));
    }
    const QStringList outputs = aliases(items, isOutput);
    QString obstacle = about("Cannot have more than 1 Output item with the same alias ('%1').", repeated(outputs));
    if (!obstacle.isEmpty()) {
        return obstacle;
    }
    if (lacksAlias(items, [](const CommandLineItem &item) { return isOutput(item) && isWriter(item); })) {
        return QStringLiteral("All Output items must have an alias for batch processing.");
    }
    QStringList writers = outputs + aliases(items, isChart);
    std::sort(writers.begin(), writers.end());
    obstacle = about("Cannot have more than 1 Chart or Output item with the same alias ('%1').", repeated(writers));
    if (!obstacle.isEmpty()) {
        return obstacle;
    }
    if (lacksAlias(items, isChart)) {
        return QStringLiteral("All Chart items written to file must have an alias for batch processing.");
    }
    return QString();
}

QString sharedObstacle(const QList<CommandLineItem> &items)
{
    const QStringList inputs = aliases(items, isInput);
    const QString output = common(inputs, aliases(items, isOutput)).value(0);
    if (!output.isEmpty()) {
        return about("Input and Output items cannot have the same alias for batch processing ('%1').", output);
    }
    const QString chart = common(inputs, aliases(items, isChart)).value(0);
    if (!chart.isEmpty()) {
        return about("Input and Chart items cannot have the same alias for batch processing ('%1').", chart);
    }
    const bool isFed = std::any_of(
        items.cbegin(), items.cend(), [](const CommandLineItem &item) { return isFileInput(item) && item.feedsFile; });
    return isFed ? QString()
                 : about(
                     "At least 1 file input must be connected to a %1 writing to a file.", QLatin1String(writersText));
}

QString headerOf(const CommandLineItem &item)
{
    switch (item.kind) {
    case CommandLineItem::Input:
        return QStringLiteral("Input alias=%1").arg(item.alias);
    case CommandLineItem::Output:
        return QStringLiteral("Output alias='%1' (%2)").arg(item.alias, WriteMode::label(item.writeMode));
    case CommandLineItem::Chart:
        break;
    }
    return QStringLiteral("Chart alias='%1' (%2)").arg(item.alias, item.chartType);
}

/// Why an item gets no column, or empty when it gets one.
QString leftOutText(const CommandLineItem &item)
{
    if (isInput(item)) {
        return item.feedsFile ? QString()
                              : QStringLiteral("Input with alias '%1' is not connected to an %2 and will be ignored.")
                                    .arg(item.alias, QLatin1String(writersText));
    }
    if (!isWriter(item)) {
        return QStringLiteral("Output with alias '%1' has 'Write mode'='%2' and will be ignored.")
            .arg(item.alias, WriteMode::label(item.writeMode));
    }
    const char *text = isOutput(item) ? "Output with alias '%1' is not connected to an input and will be ignored."
                                      : "Chart with alias '%1' is not connected to an input and will be ignored.";
    return item.isConnected ? QString() : about(text, item.alias);
}

BatchColumn columnOf(const CommandLineItem &item)
{
    BatchColumn column;
    column.kind = item.kind;
    column.alias = item.alias;
    column.isFolder = item.isFolder;
    column.takesPath = !item.isMultiFile;
    column.ownPath = item.path;
    column.header = headerOf(item);
    return column;
}

} // namespace

BatchColumns batchColumns(const QList<CommandLineItem> &items)
{
    BatchColumns result;
    const auto hasColumn = [&result](const CommandLineItem &item) {
        return std::any_of(result.columns.cbegin(), result.columns.cend(),
            [&item](const BatchColumn &column) { return column.kind == item.kind && column.alias == item.alias; });
    };
    for (const CommandLineItem &item : items) {
        if (leftOutText(item).isEmpty() && !hasColumn(item)) {
            result.columns.append(columnOf(item));
        }
    }
    std::stable_sort(
        result.columns.begin(), result.columns.end(), [](const BatchColumn &first, const BatchColumn &second) {
            return first.kind != second.kind ? first.kind < second.kind : first.alias < second.alias;
        });
    for (const CommandLineItem &item : items) {
        const QString text = leftOutText(item);
        if (!text.isEmpty() && !item.alias.isEmpty() && !hasColumn(item) && !result.leftOut.contains(text)) {
            result.leftOut.append(text);
        }
    }
    return result;
}

QString batchObstacle(const QList<CommandLineItem> &items)
{
    for (const auto obstacle : {inputObstacle, writerObstacle, sharedObstacle}) {
        const QString text = obstacle(items);
        if (!text.isEmpty()) {
            return text;
        }
    }
    return QString();
}
