#include "transforms/frame/conversiontransform.h"

#include "text/cappedlist.h"
#include "transforms/frame/conversionworker.h"
#include "transforms/frame/messages.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

namespace {

enum Action { Leave, ChangeToZero, ChangeToEmpty, ChangeToNaN };

/// The first cells that didn't read, row by row, as lines of a list.
QStringList exampleLines(
    const Dataset &input, const QVector<ColumnIndex> &columns, const std::vector<ConversionWorker> &workers)
{
    QVector<QPair<int, int>> places; // row and position among the columns
    for (size_t i = 0; i < workers.size(); ++i) {
        for (int row : workers[i].unreadRows()) {
            places.append({row, static_cast<int>(i)});
        }
    }
    std::sort(places.begin(), places.end());
    QStringList lines;
    for (const auto &place : qAsConst(places)) {
        if (lines.size() == CappedList::usualLimit) {
            break;
        }
        const ColumnIndex column = columns.at(place.second);
        lines.append(QStringLiteral("'%1' at column '%2' row %3")
                         .arg(input.value(RowIndex(place.first), column), input.columnName(column),
                             QString::number(place.first + 1)));
    }
    return lines;
}

} // namespace

QStringList NonValueAction::choices()
{
    const QString change = QStringLiteral("Change to %1");
    return {QStringLiteral("Leave"), change.arg(*replacement(ChangeToZero)), QStringLiteral("Change to empty"),
        change.arg(*replacement(ChangeToNaN))};
}

std::optional<QString> NonValueAction::replacement(int choice)
{
    switch (choice) {
    case ChangeToZero:
        return QStringLiteral("0");
    case ChangeToEmpty:
        return QString();
    case ChangeToNaN:
        return QStringLiteral("NaN");
    default:
        return std::nullopt;
    }
}

QString ConversionTransform::outcome(const Counts &counts) const
{
    return Messages::changed(
        counts.changed + counts.unreadChanged, counts.unchanged + counts.unread - counts.unreadChanged);
}

Dataset ConversionTransform::compute(const OptionValues &values, const Inputs &inputs)
{
    const Dataset &input = *inputs.first();
    Dataset result = input;
    const QVector<ColumnIndex> columns = values.columns(QStringLiteral("Columns"));
    const Plan plan = columns.isEmpty() ? Plan() : this->plan(values, input, columns);
    if (plan.rules.empty()) {
        setResultText(Messages::noChanges());
        return result;
    }
    std::vector<ConversionWorker> workers;
    workers.reserve(plan.rules.size());
    for (int i = 0; i < columns.size(); ++i) {
        workers.emplace_back(plan.rules[static_cast<size_t>(i)], plan.unreadText, input.column(columns.at(i)));
    }
    const int rowCount = input.rowCount();
    for (int row = 0; row < rowCount; row += progressStep) {
        reportRow(row, rowCount);
        for (ConversionWorker &worker : workers) {
            worker.process(row, qMin(row + progressStep, rowCount));
        }
    }
    Counts counts;
    for (int i = 0; i < columns.size(); ++i) {
        ConversionWorker &worker = workers[static_cast<size_t>(i)];
        counts.changed += worker.changedCount();
        counts.unread += worker.unreadCount();
        counts.unreadChanged += worker.unreadChangedCount();
        if (worker.isChanged()) {
            result.setColumn(columns.at(i), worker.take());
        }
    }
    counts.unchanged = qint64(rowCount) * columns.size() - counts.changed - counts.unread;
    addOwnWarnings();
    if (counts.unread > 0) {
        const QStringList lines = exampleLines(input, columns, workers);
        warningList() += unreadHeading(values, counts.unread);
        warningList() += lines;
        const qint64 others = counts.unread - lines.size();
        if (others > 0) {
            addWarning(
                QStringLiteral("+ %1 %2").arg(Messages::count(others), Messages::word(others, "other", "others")));
        }
    }
    setResultText(outcome(counts));
    return result;
}
