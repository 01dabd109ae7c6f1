#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/rollingstatistics.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/numberfailures.h"
#include "transforms/frame/transform.h"
#include "transforms/options/addedcolumn.h"

/// Adds a column with a statistic of a column's values in a window of rows that moves along with the row.
class TransformMoving final : public Transform
{
    enum Calculation { Average, Median, Sum, Minimum, Maximum, Range }; // the choices of Calculation
    enum Incomplete { SetEmpty, FromAvailable };                        // of Incomplete

    static constexpr int shownFailures = 4;
    static constexpr int mostRows = 999999;
    static constexpr double begunFigures = 0.5; ///< of the progress
    static constexpr double begunWriting = 0.75;

public:
    TransformMoving()
        : Transform("Moving", "Add a new column with a moving average/median/sum/min/max/range of the selected column.",
            "sma simple range maximum minimum sum median mean average cumulative window offset interval running "
            "rolling moving")
    {
    }

private:
    OptionTable options() const override
    {
        OptionTable table = AddedColumn::nameOptions(displayName());
        table.append(
            Option::column("Column", "Column").tip("Calculate a moving average/median/sum/min/max for this column."));
        table.append(
            Option::selection("Calculation", "Calculation", {"Average", "Median", "Sum", "Minimum", "Maximum", "Range"})
                .tip("Choose the statistic to be calculated."));
        table.append(Option::integer("Interval", "Interval", 7)
                         .limits(1, mostRows)
                         .tip("The number of rows to calculate the moving average/median/sum/min/max/range over.\n"
                              "Click the ? button for more details."));
        table.append(Option::integer("Offset", "Offset", 0)
                         .limits(-mostRows, mostRows)
                         .tip(QStringLiteral(
                             "The number of rows above (if negative) or below (if positive) the current row to end the "
                             "interval at.\n%1=7 and %2=0 means use values from 6 rows above to the current row.\n"
                             "%1=3 and %2=-1 means use values from the row above, the current row and the row below.\n"
                             "Click the ? button for more details.")
                                  .arg(QStringLiteral("Interval"), QStringLiteral("Offset"))));
        table.append(Option::selection("Incomplete", "Incomplete values", {"Set empty", "Calculate from available"})
                         .tip("Choose what to do for rows that do not have a full interval of data."));
        return table;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const ColumnIndex column = values.column("Column");
        qint64 calculated = 0;
        const CellColumn cells = column.isValid() ? figures(values, result.column(column), calculated)
                                                  : ColumnBuilder::filled(QString(), result.rowCount());
        const QString calculation = values.choiceText("Calculation");
        const QString automatic = column.isValid()
                                      ? QStringLiteral("Moving %1 %2").arg(calculation, result.columnName(column))
                                      : QStringLiteral("Moving %1").arg(calculation);
        AddedColumn::add(result, cells, AddedColumn::name(values, automatic));
        setResultText(QStringLiteral("%1 %2 calculated")
                          .arg(Messages::count(calculated), Messages::word(calculated, "value", "values")));
        return result;
    }

    CellColumn figures(const OptionValues &values, const CellColumn &column, qint64 &calculated)
    {
        std::vector<int> numbersBefore;
        const std::vector<double> numbers = readNumbers(column, numbersBefore);
        const RollingWindows windows = windowsOf(values, numbersBefore);
        const std::vector<double> figures = figuresOf(values.choice("Calculation"), numbers, windows);
        const RealWriter writer;
        ColumnBuilder out(column.size());
        TextBuffer text;
        for (int row = 0; row < column.size(); ++row) {
            reportRow(row, column.size(), {begunWriting, 1.0});
            if (windows.size(static_cast<size_t>(row)) == 0) {
                out.appendEmpty();
                continue;
            }
            writer.write(figures[static_cast<size_t>(row)], text);
            out.append(text);
            ++calculated;
        }
        return out.take();
    }

    /// The numbers of the column without gaps; `before` takes how many of them stand above each row, and in all.
    std::vector<double> readNumbers(const CellColumn &column, std::vector<int> &before)
    {
        const NumberReader reader(false, true);
        const Cell *cells = column.cells.constData();
        std::vector<double> numbers;
        NumberFailures failures(shownFailures);
        before.reserve(static_cast<size_t>(column.size()) + 1);
        for (int row = 0; row < column.size(); ++row) {
            reportRow(row, column.size(), {0.0, begunFigures});
            before.push_back(static_cast<int>(numbers.size()));
            bool ok = false;
            const double number = reader.read(cells[row], &ok);
            if (ok) {
                numbers.push_back(number);
            } else {
                failures.add(cells[row], row);
            }
        }
        before.push_back(static_cast<int>(numbers.size()));
        warningList() += failures.lines();
        return numbers;
    }

    /// Which numbers lie in each row's window; none for a window that is to stay empty.
    static RollingWindows windowsOf(const OptionValues &values, const std::vector<int> &numbersBefore)
    {
        const int rowCount = static_cast<int>(numbersBefore.size()) - 1;
        const int interval = values.integer("Interval");
        const int offset = values.integer("Offset");
        const bool incompleteToo = values.choice("Incomplete") == FromAvailable;
        RollingWindows windows;
        windows.begins.reserve(static_cast<size_t>(rowCount));
        windows.ends.reserve(static_cast<size_t>(rowCount));
        for (int row = 0; row < rowCount; ++row) {
            const qint64 end = qint64(row) + offset + 1;
            const qint64 begin = end - interval;
            const int first = numbersBefore[static_cast<size_t>(qBound<qint64>(0, begin, rowCount))];
            const int last = numbersBefore[static_cast<size_t>(qBound<qint64>(0, end, rowCount))];
            // An empty window stands where its bounds don't fall behind those of the row above.
            windows.add(begin < 0 || end <= rowCount || incompleteToo ? first : last,
                (begin >= 0 || incompleteToo) ? last : first);
        }
        return windows;
    }

    std::vector<double> figuresOf(int calculation, const std::vector<double> &numbers, const RollingWindows &windows)
    {
        switch (calculation) {
        case Median:
            return RollingStatistics::medians(numbers, windows);
        case Sum:
            return sums(numbers, windows);
        case Minimum:
            return RollingStatistics::minimums(numbers, windows);
        case Maximum:
            return RollingStatistics::maximums(numbers, windows);
        default:
            break;
        }
        if (calculation == Range) {
            std::vector<double> figures = RollingStatistics::maximums(numbers, windows);
            const std::vector<double> minimums = RollingStatistics::minimums(numbers, windows);
            for (size_t i = 0; i < figures.size(); ++i) {
                figures[i] -= minimums[i];
            }
            return figures;
        }
        std::vector<double> figures = sums(numbers, windows);
        for (size_t i = 0; i < figures.size(); ++i) {
            figures[i] /= qMax(1, windows.size(i));
        }
        return figures;
    }

    std::vector<double> sums(const std::vector<double> &numbers, const RollingWindows &windows)
    {
        return RollingStatistics::sums(numbers, windows,
            [this](double done) { emit processed(begunFigures + (begunWriting - begunFigures) * done); });
    }
};

TRANSFORM_FACTORY(TransformMoving)
