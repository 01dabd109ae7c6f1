#include "data/columnbuilder.h"
#include "data/descriptivestatistics.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/values.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/numberfailures.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Adds a row with one statistic of each selected column, a column with that of each row, or both.
class TransformStats final : public Transform
{
    enum Calculation { // the choices of Calculation
        Sum,
        Minimum,
        Maximum,
        Average,
        Median,
        Mode,
        StandardDeviation,
        Variance,
        LowerQuartile,
        UpperQuartile,
        InterquartileRange,
        Skew,
        InclusivePercentile,
        ExclusivePercentile
    };
    enum On { Columns, Rows, ColumnsAndRows }; // the choices of On

    static constexpr int shownFailures = 4;

    /// What one run needs everywhere.
    struct Work
    {
        Work(int calculation_, int percent_, const Dataset &input_, const QVector<ColumnIndex> &columns_)
            : calculation(calculation_)
            , percent(percent_)
            , input(input_)
            , columns(columns_)
        {
        }
        const int calculation;
        const int percent;
        const Dataset &input;
        const QVector<ColumnIndex> columns;
        const NumberReader reader{false, true};
        const RealWriter writer;
        DescriptiveStatistics figures;
        NumberFailures failures{shownFailures};
        int invalidColumns = 0;
        int invalidRows = 0;
    };

public:
    TransformStats()
        : Transform("Stats", "Calculate statistics from the selected column(s).",
            "exclusive inclusive percentile skewness skew pearson iqr inter quartiles q3 q1 variance deviation "
            "standard mode median mean averages maximum minimum sums statistics calculate stats")
    {
    }

private:
    OptionTable options() const override
    {
        const QString inclusive = QStringLiteral("Percentile (inclusive)");
        const QString exclusive = QStringLiteral("Percentile (exclusive)");
        return {
            Option::columns("Columns"),
            Option::selection("Calculation", "Calculation",
                {"Sum", "Minimum", "Maximum", "Average", "Median", "Mode", "Standard deviation", "Variance", "Q1", "Q3",
                    "IQR", "Skew", inclusive, exclusive})
                .tip("Choose the statistic to be calculated."),
            Option::integer("Percentile", "Percentile", 90)
                .limits(1, 99)
                .suffix("%")
                .activeWhen("Calculation", {inclusive, exclusive})
                .tip(QStringLiteral("Interpolated percentile value. E.g. if the 'Percentile' value is 90% then:\n"
                                    "%1: show the interpolated value that 90% of values are less than or equal to.\n"
                                    "%2: show the interpolated value that 90% of values are less than.")
                         .arg(inclusive, exclusive)),
            Option::selection("On", "On", {"Columns", "Rows", "Columns and rows"})
                .tip("Choose to calculate for columns, rows or both."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QString name = values.choiceText("Calculation");
        const int on = values.choice("On");
        Work work(values.choice("Calculation"), values.integer("Percentile"), input, values.columns("Columns"));
        const bool hasColumns = !work.columns.isEmpty();
        setResultText(Messages::noChanges());
        DescriptiveStatistics all;
        QStringList newRow;
        if (on != Rows && hasColumns) {
            newRow = columnFigures(work, name, on == ColumnsAndRows ? &all : nullptr);
            setResultText(QStringLiteral("%1 row added").arg(name));
        }
        Dataset result = input;
        if (on != Columns) {
            result.appendColumn(
                hasColumns ? rowFigures(work) : ColumnBuilder::filled(QString(), input.rowCount()), name);
            if (hasColumns) {
                setResultText(QStringLiteral("%1 col added").arg(name));
            }
        }
        if (!newRow.isEmpty()) {
            result.appendRow(newRow);
        }
        if (on == ColumnsAndRows && hasColumns) {
            setResultText(QStringLiteral("%1 col and row added").arg(name));
            if (all.count() > 0) {
                result.setValue(result.lastRow(), result.lastColumn(), text(work, all).first);
            }
        }
        report(work);
        return result;
    }

    /// The new row: a figure below each selected column. The numbers go to `all` too, which may be null.
    QStringList columnFigures(Work &work, const QString &name, DescriptiveStatistics *all)
    {
        const int columnCount = work.input.columnCount();
        QStringList row;
        for (int i = 0; i < columnCount; ++i) {
            emit processed(static_cast<qreal>(i) / columnCount);
            const ColumnIndex column(i);
            if (!work.columns.contains(column)) {
                row.append(i == 0 ? name : QString());
                continue;
            }
            gather(work, column, all);
            const auto [figure, isValid] = text(work, work.figures);
            work.invalidColumns += !isValid;
            row.append(figure);
        }
        return row;
    }

    static void gather(Work &work, ColumnIndex column, DescriptiveStatistics *all)
    {
        const Cell *cells = work.input.column(column).cells.constData();
        const QString name = work.input.columnName(column);
        work.figures.clear();
        for (int row = 0; row < work.input.rowCount(); ++row) {
            bool ok = false;
            const double number = work.reader.read(cells[row], &ok);
            if (!ok) {
                work.failures.add(cells[row], name, row);
                continue;
            }
            work.figures.add(number);
            if (all) {
                all->add(number);
            }
        }
    }

    CellColumn rowFigures(Work &work)
    {
        std::vector<const Cell *> cells;
        QStringList names;
        for (ColumnIndex column : work.columns) {
            cells.push_back(work.input.column(column).cells.constData());
            names.append(work.input.columnName(column));
        }
        const int rowCount = work.input.rowCount();
        ColumnBuilder out(rowCount);
        TextBuffer buffer;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            work.figures.clear();
            for (size_t i = 0; i < cells.size(); ++i) {
                bool ok = false;
                const double number = work.reader.read(cells[i][row], &ok);
                if (ok) {
                    work.figures.add(number);
                } else {
                    work.failures.add(cells[i][row], names.at(static_cast<int>(i)), row);
                }
            }
            work.invalidRows += !write(work, work.figures, buffer);
            out.append(buffer);
        }
        return out.take();
    }

    /// Writes the figure, or that there is none; returns whether there is one.
    static bool write(const Work &work, const DescriptiveStatistics &figures, TextBuffer &out)
    {
        if (work.calculation == Mode && figures.count() > 0) {
            const std::vector<double> modes = figures.modes();
            setText(out, formatRealList(QList<double>(modes.cbegin(), modes.cend())));
            return true;
        }
        const std::optional<double> value = figure(work, figures);
        if (!value) {
            setText(out, QStringLiteral("N/A"));
            return false;
        }
        work.writer.write(*value, out);
        return true;
    }

    static QPair<QString, bool> text(const Work &work, const DescriptiveStatistics &figures)
    {
        TextBuffer buffer;
        const bool isValid = write(work, figures, buffer);
        return {TextCoding::decode(buffer.constData(), buffer.size()), isValid};
    }

    static std::optional<double> figure(const Work &work, const DescriptiveStatistics &figures)
    {
        switch (work.calculation) {
        case Minimum:
            return figures.minimum();
        case Maximum:
            return figures.maximum();
        case Average:
            return figures.mean();
        case Median:
            return figures.median();
        case StandardDeviation:
            return figures.standardDeviation();
        case Variance:
            return figures.variance();
        case LowerQuartile:
            return figures.lowerQuartile();
        case UpperQuartile:
            return figures.upperQuartile();
        case InterquartileRange:
            return figures.interquartileRange();
        case Skew:
            return figures.skew();
        case InclusivePercentile:
            return figures.inclusivePercentile(work.percent);
        case ExclusivePercentile:
            return figures.exclusivePercentile(work.percent);
        case Mode:
            return std::nullopt;
        default:
            return figures.sum();
        }
    }

    void report(const Work &work)
    {
        warnOfInvalid(work.invalidColumns, "column", "columns");
        warnOfInvalid(work.invalidRows, "row", "rows");
        warningList() += work.failures.lines();
    }

    void warnOfInvalid(int count, const char *one, const char *many)
    {
        if (count > 0) {
            addWarning(QStringLiteral("Invalid results for %1 %2")
                           .arg(Messages::count(count), Messages::word(count, one, many)));
        }
    }
};

TRANSFORM_FACTORY(TransformStats)
