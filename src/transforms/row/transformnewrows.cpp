#include "data/numberreader.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/termmatcher.h"

/// Adds a number of rows above or below rows: blank ones, copies or rows of one value.
class TransformNewRows final : public Transform
{
    enum NumberHow { SameForEvery, FromColumn };         // the choices of Number_How_Name
    enum As { Blank, Copied, UserDefined };              // of As_Name
    enum Location { Above, Below };                      // of Location_Name
    enum For { EveryRow, RowsWhere, FirstRow, LastRow }; // of For_Name

    static constexpr int blankRow = -1;

    /// How many new rows each row makes.
    struct Numbers
    {
        const CellColumn *column = nullptr; ///< null for the same number
        int same = 0;
        NumberReader reader{false, false};
        CappedList nonNumeric;
        CappedList negative;
    };

public:
    TransformNewRows()
        : Transform("New_Rows", "Add new rows.", "copy separators below above blank duplicate inserts")
    {
    }

private:
    OptionTable options() const override
    {
        const QString where = QStringLiteral("Rows where");
        return {
            Option::selection("Number_How_Name", "Number added", {"Same for every row", "Set from a column"})
                .tip("How to set the number of new rows to add per original row."),
            Option::column("Number_Col_Name", "Number column")
                .activeWhen("Number_How_Name", {"Set from a column"})
                .tip("Select the column to get the number of new rows to add per original row."),
            Option::integer("Number_Const_Name", "Number value")
                .activeWhen("Number_How_Name", {"Same for every row"})
                .tip("The number of new rows to add for each original row."),
            Option::selection("As_Name", "As", {"Blank row(s)", "Copied row(s)", "User defined row(s)"})
                .tip("Whether to add as blank rows, copied or user defined rows."),
            Option::text("User_Defined_Row_Value", "With value", "---")
                .activeWhen("As_Name", {"User defined row(s)"})
                .tip("The user defined value for each column of the new row."),
            Option::selection("Location_Name", "Location", {"Above each row", "Below each row"})
                .tip("Whether to add new rows above or below existing rows."),
            Option::selection("For_Name", "For", {"Every row", where, "First row", "Last row"})
                .tip("Which rows to create new rows from."),
            Option::column("Match_Column_Name", "Column")
                .preselect(false)
                .noneText("<Any>")
                .notRequired()
                .activeWhen("For_Name", {where})
                .tip("Select the column to match."),
            Option::selection(
                "Match_Type_Name", "Matches", MatchOperators::labels(), static_cast<int>(MatchOperator::EqualTo))
                .activeWhen("For_Name", {where})
                .tip("The match type."),
            Option::text("Match_Value_Name", "Value")
                .activeWhen("For_Name", {where})
                .activeWhen([](const OptionValues &values) {
                    return !MatchOperators::ignoresText(values.choice("Match_Type_Name"));
                })
                .tip("The match value."),
            Option::flag("Match_Case_Sensitive", "case sensitive")
                .activeWhen("For_Name", {where})
                .tip("Check for case sensitive text matching."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        Numbers numbers;
        const bool fromColumn = values.choice("Number_How_Name") == FromColumn;
        const ColumnIndex numberColumn = values.column("Number_Col_Name");
        if (fromColumn && numberColumn.isValid()) {
            numbers.column = &input.column(numberColumn);
        }
        numbers.same = fromColumn ? 0 : values.integer("Number_Const_Name");
        setResultText(Messages::noChanges());
        if (!numbers.column && numbers.same <= 0) {
            return input;
        }
        qint64 added = 0;
        const std::vector<int> counts = newRowCounts(values, input, numbers, added);
        if (numbers.column) {
            warnOf(numbers.nonNumeric, "non-numeric", input.columnName(numberColumn));
            warnOf(numbers.negative, "negative", input.columnName(numberColumn));
        }
        const qint64 rows = input.rowCount() + added;
        if (!TableSize::isPossible(rows, input.columnCount())) {
            addWarning(TableSize::warning(rows, input.columnCount()));
            setResultText(TableSize::resultText());
            return input;
        }
        if (added == 0) {
            return input;
        }
        setResultText(QStringLiteral("%1 new %2 added").arg(Messages::count(added), Messages::rows(added)));
        return widened(values, input, counts, static_cast<int>(rows));
    }

    /// How many new rows each row makes, and in all. Numbers beyond those of an int count as its largest.
    std::vector<int> newRowCounts(const OptionValues &values, const Dataset &input, Numbers &numbers, qint64 &added)
    {
        const int rowCount = input.rowCount();
        const int which = values.choice("For_Name");
        std::unique_ptr<TermMatcher> matcher;
        if (which == RowsWhere) {
            const FilterTerm term{parameter("Match_Column_Name")->toColumnId(), values.choice("Match_Type_Name"),
                values.text("Match_Value_Name")};
            matcher = std::make_unique<TermMatcher>(input, term,
                dateColumnFormats(input, TermMatcher::columns(input, {term})), values.flag("Match_Case_Sensitive"));
        }
        std::vector<int> counts(static_cast<size_t>(rowCount), 0);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            const bool makesRows = which == EveryRow || (which == FirstRow && row == 0)
                                   || (which == LastRow && row == rowCount - 1) || (matcher && matcher->holds(row));
            if (makesRows) {
                const int count = numbers.column ? numberOf(numbers, values, input, row) : numbers.same;
                counts[static_cast<size_t>(row)] = count;
                added += count;
            }
        }
        return counts;
    }

    static int numberOf(Numbers &numbers, const OptionValues &values, const Dataset &input, int row)
    {
        const Cell &cell = numbers.column->at(row);
        bool ok = false;
        const qlonglong number = numbers.reader.readLongLong(cell, &ok);
        if (ok && number >= 0) {
            return static_cast<int>(qMin<qlonglong>(number, INT_MAX));
        }
        CappedList &booked = ok ? numbers.negative : numbers.nonNumeric;
        booked.add([&] {
            return QStringLiteral("'%1' at column '%2' row %3")
                .arg(cell.text(), input.columnName(values.column("Number_Col_Name")), QString::number(row + 1));
        });
        return 0;
    }

    void warnOf(const CappedList &examples, const char *fault, const QString &column)
    {
        if (examples.count() > 0) {
            const QString heading = QStringLiteral("'%1' has %2 %3 %4:")
                                        .arg(column, Messages::count(examples.count()), QLatin1String(fault),
                                            Messages::word(examples.count(), "value", "values"));
            addWarning((QStringList{heading} + examples.lines()).join(QLatin1Char('\n')));
        }
    }

    static Dataset widened(const OptionValues &values, const Dataset &input, const std::vector<int> &counts, int rows)
    {
        const int as = values.choice("As_Name");
        const bool above = values.choice("Location_Name") == Above;
        QVector<int> sources;
        sources.reserve(rows);
        for (int row = 0; row < input.rowCount(); ++row) {
            const int source = as == Copied ? row : blankRow;
            if (!above) {
                sources.append(row);
            }
            sources.insert(sources.size(), counts[static_cast<size_t>(row)], source);
            if (above) {
                sources.append(row);
            }
        }
        Dataset result = input.withRows(sources);
        if (as == UserDefined) {
            setBlankRows(result, sources, values.text("User_Defined_Row_Value"));
        }
        return result;
    }

    static void setBlankRows(Dataset &result, const QVector<int> &sources, const QString &text)
    {
        const TextArenaPointer arena(new TextArena);
        const Cell value = arena->store(text);
        for (ColumnIndex at : result.allColumns()) {
            CellColumn column = result.column(at);
            column.keep(arena);
            Cell *cells = column.cells.data();
            for (int row = 0; row < sources.size(); ++row) {
                if (sources.at(row) == blankRow) {
                    cells[row] = value;
                }
            }
            result.setColumn(at, column);
        }
    }
};

TRANSFORM_FACTORY(TransformNewRows)
