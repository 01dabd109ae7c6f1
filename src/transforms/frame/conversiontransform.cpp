#include "transforms/frame/conversiontransform.h"

#include "text/cappedlist.h"
#include "transforms/frame/conversionworker.h"
#include "transforms/frame/messages.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

namespace {

/// The cells that didn't read, the first few of them row by row as lines of a list.
CappedList unreadCells(const Dataset &input, const QVector<ColumnIndex> &columns,
    const std::vector<ConversionWorker> &workers, qint64 count)
{
    QVector<QPair<int, int>> places; // row and position among the columns
    for (size_t i = 0; i < workers.size(); ++i) {
        for (int row : workers[i].unreadRows()) {
            places.append({row, static_cast<int>(i)});
        }
    }
    std::sort(places.begin(), places.end());
    CappedList cells;
    for (const auto &place : qAsConst(places)) {
        const ColumnIndex column = columns.at(place.second);
        cells.add([&] {
            return QStringLiteral("'%1' at column '%2' row %3")
                .arg(input.value(RowIndex(place.first), column), input.columnName(column),
                    QString::number(place.first + 1));
        });
    }
    cells.addHidden(count - cells.count());
    return cells;
}

} // namespace

QStringList NonValueAction::choices()
{
    const QString change = QStringLiteral("Change to %1");
    return {QStringLiteral("Leave"), change.arg(*replacement(ChangeToZero)), QStringLiteral("Change to empty"),
        change.arg(*replacement(ChangeToNaN))};
}

std::optional<QString> NonValueAction::replacement(Action action)
{
    switch (action) {
    case ChangeToZero:
        return QStringLiteral("0");
    case ChangeToEmpty:
        return QString();
    case ChangeToNaN:
        return QStringLiteral("NaN");
    case Leave:
        break;
    }
    return std::nullopt;
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
    processColumns(workers, columns, result);
    Counts counts;
    for (const ConversionWorker &worker : workers) {
        counts.changed += worker.changedCount();
        counts.unread += worker.unreadCount();
        counts.unreadChanged += worker.unreadChangedCount();
    }
    counts.unchanged = qint64(input.rowCount()) * columns.size() - counts.changed - counts.unread;
    addOwnWarnings();
    if (counts.unread > 0) {
        warningList() += unreadHeading(values, counts.unread);
        warningList() += unreadCells(input, columns, workers, counts.unread).lines();
    }
    setResultText(outcome(counts));
    return result;
}
