#include "data/columnbuilder.h"
#include "transforms/column/partcounts.h"
#include "transforms/column/splitlimits.h"
#include "transforms/column/valuesplitter.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionchecks.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Splits the values of a column into columns, rows or columns that count them.
class TransformSplit final : public Transform
{
    enum Into { Columns, Rows, CountVectors, MultiHot, OneHot };
    enum Order { Current, Alphabetic, Reverse };
    static constexpr const char *leastLabel = "Min. values";
    static constexpr const char *mostLabel = "Max. values";

public:
    TransformSplit()
        : Transform("Split", "Split a column into multiple new columns or rows.",
            "frequency terms words vectorization count encoding multihot onehot unflatten explode textsplit separate "
            "multiple rows delimiters into splitting splitter splits")
    {
    }

private:
    /// What one run works with.
    struct Task
    {
        Task(const OptionValues &values, const Dataset &table)
            : input(table)
            , source(values.column("Columns"))
            , into(values.choiceAs<Into>("Into"))
            , order(values.choiceAs<Order>("Order"))
            , splitter(values.choiceAs<ValueSplitter::By>("Delimiter_Type"),
                  values.text(values.choice("Delimiter_Type") == ValueSplitter::Lengths ? "Lengths" : "Delimiter"),
                  values.flag("Keep_Empty"))
            , limits(values.integer("Min_New_Cols"), values.integer("Max_New_Cols"))
        {
        }
        QStringList partsOf(int row) const
        {
            const QString text = input.value(RowIndex(row), source);
            return into == OneHot ? QStringList{text} : splitter.split(text);
        }

        const Dataset &input;
        const ColumnIndex source;
        const Into into;
        const Order order;
        const ValueSplitter splitter;
        SplitLimits limits;
    };

    OptionTable options() const override;
    Dataset compute(const OptionValues &values, const Inputs &inputs) override;
    Dataset splitIntoColumns(Task &task);
    Dataset splitIntoRows(Task &task);
    Dataset splitIntoVectors(Task &task);
    PartCounts countParts(const Task &task);
    QStringList limitedParts(Task &task, QStringList parts);
    static void sort(QStringList &parts, Order order);
    template<class Take>
    void forEachRow(Task &task, Take take);
    void reportLimits(const SplitLimits &limits);
    bool refusesColumns(const Dataset &input, qint64 added);
};

OptionTable TransformSplit::options() const
{
    const auto hasDelimiter = [](const OptionValues &values) {
        return values.choice("Into") != OneHot && values.choice("Delimiter_Type") != ValueSplitter::Lengths;
    };
    return {
        Option::column("Columns", "Column").tip("Select the column to split."),
        Option::selection(
            "Into", "Into", {"Columns", "Rows", "Count vectors", "Multi hot encoding", "One hot encoding"})
            .tip("Choose whether to split the column values into multiple columns, multiple rows, count vectors, multi "
                 "hot encoding or one hot encoding."),
        Option::selection("Delimiter_Type", "Using", {"Text delimiter", "Regex delimiter", "Lengths"})
            .activeWhen([](const OptionValues &values) { return values.choice("Into") != OneHot; })
            .tip("Choose whether to split the selected column using a text delimiter, a regex delimiter or lengths."),
        Option::text("Delimiter", "Delimiter")
            .activeWhen(hasDelimiter)
            .check(&OptionChecks::expression,
                [](const OptionValues &values) { return values.choice("Delimiter_Type") == ValueSplitter::Regex; })
            .tip("Choose the delimiter to split values on.\nThis will often be a single character of text, such as a "
                 "Comma or Space."),
        Option::text("Lengths", "Lengths", "3,5,4")
            .activeWhen([](const OptionValues &values) {
                return values.choice("Into") != OneHot && values.choice("Delimiter_Type") == ValueSplitter::Lengths;
            })
            .tip("A Comma separated list of lengths to split into.\na '*' means: the remaining characters.\na '-' "
                 "prefix means ignore these characters.\nFor example:\n '3,5,4' will create 3 columns with characters "
                 "1-3, 4-8 and 8-11.\n '-3,5,-4,*' will create 2 columns with characters 4-8 and 12 onward.\n '-*,3' "
                 "will create 1 column with the last 3 characters.\n '2,-*,2' will create 2 columns with the first 2 "
                 "and last 2 characters.\nOnly 1 '*' can be used."),
        Option::selection("Order", "Ordering", {"Current", "Alphabetic", "Reverse"})
            .activeWhen("Into", {"Columns", "Rows"})
            .tip("Choose how to order the values."),
        Option::flag("Keep_Empty", "keep empty")
            .tip("Check to keep empty values (consecutive delimiters).\nNB/ Values containing whitespace are not "
                 "considered empty."),
        Option::integer("Min_New_Cols", leastLabel, 0)
            .tip("The minimum number of columns/rows to split each value into."),
        Option::integer("Max_New_Cols", mostLabel, 100)
            .tip("The maximum number of columns/rows to split each value into. Ignored if less than the minimum."),
    };
}

Dataset TransformSplit::compute(const OptionValues &values, const Inputs &inputs)
{
    Task task(values, *inputs.first());
    if (values.integer("Max_New_Cols") < values.integer("Min_New_Cols")) {
        addWarning(QStringLiteral("'%1' is less than '%2'").arg(QLatin1String(mostLabel), QLatin1String(leastLabel)));
    }
    const bool cutsByFaultyLengths = task.into != OneHot && !task.splitter.faults().isEmpty();
    if (cutsByFaultyLengths) {
        addWarning(QStringLiteral("Badly formed '%1' string: %2")
                       .arg(QStringLiteral("Lengths"), task.splitter.faults().join(QStringLiteral(", "))));
    }
    const TextRegex *invalid = task.into == OneHot ? nullptr : task.splitter.invalidExpression();
    if (invalid) {
        addWarning(Messages::invalidExpression(values.text("Delimiter"), invalid->errorString()));
    }
    if (!task.source.isValid() || cutsByFaultyLengths) {
        setResultText(Messages::noChanges());
        return task.input;
    }
    switch (task.into) {
    case Columns:
        return splitIntoColumns(task);
    case Rows:
        return splitIntoRows(task);
    default:
        return splitIntoVectors(task);
    }
}

void TransformSplit::sort(QStringList &parts, Order order)
{
    if (order == Alphabetic) {
        parts.sort();
    } else if (order == Reverse) {
        std::reverse(parts.begin(), parts.end());
    }
}

/// Calls `take(row, bytes, spans)` with each row's parts, as many as the limits allow; a span past the end of the
/// parts is empty.
template<class Take>
void TransformSplit::forEachRow(Task &task, Take take)
{
    const CellColumn &cells = task.input.column(task.source);
    const int rowCount = task.input.rowCount();
    const bool byBytes = task.order == Current && task.splitter.canSplitBytes();
    std::vector<ValueSplitter::Span> spans;
    TextBuffer text;
    TextBuffer part;
    for (int row = 0; row < rowCount; ++row) {
        reportRow(row, rowCount);
        if (byBytes) {
            const Cell &cell = cells.at(row);
            task.splitter.splitBytes(cell.bytes(), cell.size(), spans);
            spans.resize(static_cast<size_t>(task.limits.apply(static_cast<int>(spans.size()))), {0, 0});
            take(row, cell.bytes(), spans);
            continue;
        }
        QStringList parts = task.partsOf(row);
        const int count = task.limits.apply(parts.size());
        while (parts.size() < count) {
            parts.append(QString());
        }
        parts = parts.mid(0, count);
        sort(parts, task.order);
        text.clear();
        spans.clear();
        for (const QString &value : qAsConst(parts)) {
            setText(part, value);
            spans.push_back({text.size(), text.size() + part.size()});
            text.append(part.constData(), part.size());
        }
        take(row, text.constData(), spans);
    }
    reportLimits(task.limits);
}

/// True, with a warning, when the table would become too large.
bool TransformSplit::refusesColumns(const Dataset &input, qint64 added)
{
    const qint64 columnCount = input.columnCount() + added;
    if (TableSize::isPossible(input.rowCount(), columnCount)) {
        return false;
    }
    addWarning(TableSize::warning(input.rowCount(), columnCount));
    setResultText(QStringLiteral("Too many columns"));
    return true;
}

void TransformSplit::reportLimits(const SplitLimits &limits)
{
    const auto report = [this](int rows, const char *how, const char *label, int value, const char *done) {
        if (rows > 0) {
            addInfo(QStringLiteral("%1 %2 split into %3 than '%4'=%5 value(s), so %6 to %5 value(s)")
                        .arg(Messages::count(rows), Messages::rows(rows), QLatin1String(how), QLatin1String(label),
                            Messages::count(value), QLatin1String(done)));
        }
    };
    report(limits.padded(), "less", leastLabel, limits.least(), "padded");
    report(limits.truncated(), "more", mostLabel, limits.most(), "truncated");
}

Dataset TransformSplit::splitIntoColumns(Task &task)
{
    const int rowCount = task.input.rowCount();
    if (refusesColumns(task.input, task.limits.least())) {
        return task.input;
    }
    std::vector<ColumnBuilder> columns;
    forEachRow(task, [&](int row, const char *bytes, const std::vector<ValueSplitter::Span> &spans) {
        while (columns.size() < spans.size()) {
            columns.emplace_back(rowCount);
            for (int earlier = 0; earlier < row; ++earlier) {
                columns.back().appendEmpty();
            }
        }
        for (size_t i = 0; i < columns.size(); ++i) {
            if (i < spans.size()) {
                columns[i].append(bytes + spans[i].begin, spans[i].end - spans[i].begin);
            } else {
                columns[i].appendEmpty();
            }
        }
    });
    Dataset result = task.input;
    const QString name = task.input.columnName(task.source);
    for (size_t i = 0; i < columns.size(); ++i) {
        result.addNamedColumn(columns[i].take(), QStringLiteral("%1%2").arg(name, QString::number(i + 1)));
    }
    setResultText(Messages::colsAdded(static_cast<qint64>(columns.size())));
    return result;
}

Dataset TransformSplit::splitIntoRows(Task &task)
{
    const qint64 leastRows = static_cast<qint64>(task.input.rowCount()) * qMax(1, task.limits.least());
    if (!TableSize::isPossible(leastRows, task.input.columnCount())) {
        addWarning(TableSize::warning(leastRows, task.input.columnCount()));
        setResultText(QStringLiteral("Too many rows"));
        return task.input;
    }
    QVector<int> rows;
    ColumnBuilder parts(task.input.rowCount());
    forEachRow(task, [&](int row, const char *bytes, const std::vector<ValueSplitter::Span> &spans) {
        for (const ValueSplitter::Span &span : spans) {
            rows.append(row);
            parts.append(bytes + span.begin, span.end - span.begin);
        }
    });
    Dataset result = task.input.withRows(rows);
    result.setColumn(task.source, parts.take());
    const int rowCount = task.input.rowCount();
    setResultText(QStringLiteral("%1 %2 split into %3")
                      .arg(Messages::count(rowCount), Messages::rows(rowCount), Messages::count(rows.size())));
    return result;
}

/// Takes the parts of all rows; progress up to the middle.
PartCounts TransformSplit::countParts(const Task &task)
{
    PartCounts counts;
    const int rowCount = task.input.rowCount();
    for (int row = 0; row < rowCount; ++row) {
        reportRow(row, rowCount, {0.0, 0.5});
        counts.addRow(task.partsOf(row));
    }
    return counts;
}

/// The parts that get a column; null texts stand for empty columns.
QStringList TransformSplit::limitedParts(Task &task, QStringList parts)
{
    const int found = parts.size();
    addInfo(QStringLiteral("%1 distinct value(s) found in column '%2'")
                .arg(Messages::count(found), task.input.columnName(task.source)));
    sort(parts, task.order);
    if (found > task.limits.most()) {
        addInfo(QStringLiteral("%1 value(s) found, so %2 value(s) omitted to keep to maximum of %3 added column(s)")
                    .arg(Messages::count(found), Messages::count(found - task.limits.most()),
                        Messages::count(task.limits.most())));
        parts = parts.mid(0, task.limits.most());
    } else if (found < task.limits.least()) {
        addInfo(QStringLiteral("%1 value(s) found, so %2 column(s) added to keep to minimum of %3 added column(s)")
                    .arg(Messages::count(found), Messages::count(task.limits.least() - found),
                        Messages::count(task.limits.least())));
    }
    return parts;
}

Dataset TransformSplit::splitIntoVectors(Task &task)
{
    const PartCounts counts = countParts(task);
    const int rowCount = task.input.rowCount();
    const int added = qBound(task.limits.least(), counts.distinct().size(), task.limits.most());
    if (refusesColumns(task.input, added)) {
        return task.input;
    }
    const QStringList parts = limitedParts(task, counts.distinct());
    std::vector<CellColumn> columns = counts.columns(parts, task.into != CountVectors, [&](int row) {
        reportRow(row, rowCount, {0.5, 1.0});
    });
    Dataset result = task.input;
    for (int i = 0; i < parts.size(); ++i) {
        const QString &part = parts.at(i);
        result.addNamedColumn(columns[static_cast<size_t>(i)], part.isEmpty() ? QStringLiteral("(empty)") : part);
        columns[static_cast<size_t>(i)] = CellColumn();
    }
    CellColumn empty;
    empty.cells.resize(rowCount);
    for (int i = parts.size(); i < added; ++i) {
        result.addNamedColumn(empty, QString());
    }
    setResultText(Messages::colsAdded(added));
    return result;
}

TRANSFORM_FACTORY(TransformSplit)
