#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/rowfilter.h"

/// Keeps or removes a run of rows that follow one another.
class TransformSlice final : public Transform
{
    enum KeepRemove { Keep, Remove };                                // the choices of Keep_Remove
    enum FromMode { Start, StartPlus, FirstRowWhere, LastRowWhere }; // of From_Mode
    enum ToMode { End, EndMinus, NextRowWhere, LastRowToWhere };     // of To_Mode

    static constexpr int none = -1; ///< no such row
    static constexpr ProgressSpan fromProgress{0.0, 0.33};
    static constexpr ProgressSpan toProgress{0.33, 0.67};

public:
    TransformSlice()
        : Transform("Slice", "Keep or remove a continuous section of rows.",
            "slices continuous section keeps removes from starts ends matching matches")
    {
    }

private:
    OptionTable options() const override
    {
        OptionTable table{
            Option::selection("Keep_Remove", "Mode", {"Keep", "Remove"})
                .tip("Choose to keep only the rows in the slice or remove only the rows in the slice."),
            Option::selection("From_Mode", "From", {"Start", "Start plus", "First row where", "Last row where"})
                .tip("Where to start the slice."),
        };
        addTerm(table, "From", isFromSearch);
        table.append(Option::integer("From_Plus", "Plus", 1)
                         .suffix(" row(s)")
                         .activeWhen("From_Mode", {"Start plus"})
                         .tip("The number of rows after the start row."));
        table.append(Option::flag("From_Include_First", "include 'From' row", true)
                         .tip("Check to include the 'From' row in the slice."));
        table.append(Option::selection("To_Mode", "To", {"End", "End minus", "Next row where", "Last row where"})
                         .tip("Where to end the slice. Note that the 'From' row and above are ignored for matching."));
        addTerm(table, "To", isToSearch);
        table.append(Option::integer("To_Minus", "Minus", 1)
                         .suffix(" row(s)")
                         .activeWhen("To_Mode", {"End minus"})
                         .tip("The number of rows before the end row."));
        table.append(Option::flag("To_Include_Last", "include 'To' row", true)
                         .tip("Check to include the 'To' row in the slice."));
        table.append(
            Option::flag("Case_Sensitive", "case sensitive", true)
                .activeWhen([](const OptionValues &values) { return isFromSearch(values) || isToSearch(values); })
                .tip("Check for case sensitive text matching."));
        return table;
    }

    static bool isFromSearch(const OptionValues &values) { return values.choice("From_Mode") >= FirstRowWhere; }
    static bool isToSearch(const OptionValues &values) { return values.choice("To_Mode") >= NextRowWhere; }

    /// Adds column, operator and value of the search for the row at one end.
    static void addTerm(OptionTable &table, const QString &end, const Option::Condition &isSearch)
    {
        const QString operation = end + "_Operation";
        table.append(Option::column(end + "_Column", "Column")
                         .preselect(false)
                         .noneText("<Any>")
                         .notRequired()
                         .activeWhen(isSearch)
                         .tip(QStringLiteral("The '%1' column to match.").arg(end)));
        table.append(Option::selection(operation, "Matches", MatchOperators::labels())
                         .activeWhen(isSearch)
                         .tip(QStringLiteral("The '%1' match operation.").arg(end)));
        table.append(Option::text(end + "_Value", "Value")
                         .activeWhen(isSearch)
                         .activeWhen([operation](const OptionValues &values) {
                             return !MatchOperators::ignoresText(values.choice(operation));
                         })
                         .tip(QStringLiteral("The '%1' value to match.\nYou can use column variables. e.g. $(1) to "
                                             "reference the first column value.\nSee 'Column variables' in the help.")
                                  .arg(end)));
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const int from = firstRow(values, input);
        const int to = from == none ? none : lastRow(values, input, from);
        const bool keep = values.choice("Keep_Remove") == Keep;
        Dataset result = input;
        if (to != none) {
            result = input.withRows(selected(input.rowCount(), from, to, keep));
        } else if (keep) {
            result = input.withoutRows();
        }
        setResultText(Messages::rowsRemoved(input.rowCount() - result.rowCount()));
        return result;
    }

    int firstRow(const OptionValues &values, const Dataset &input)
    {
        const int count = input.rowCount();
        int row = 0;
        switch (values.choice("From_Mode")) {
        case StartPlus:
            row = values.integer("From_Plus");
            break;
        case FirstRowWhere:
            row = search(values, input, "From", {0, count, fromProgress});
            break;
        case LastRowWhere:
            row = search(values, input, "From", {count - 1, -1, fromProgress});
            break;
        }
        if (row != none && !values.flag("From_Include_First")) {
            ++row;
        }
        return row < count ? row : none;
    }

    int lastRow(const OptionValues &values, const Dataset &input, int from)
    {
        const int count = input.rowCount();
        int row = count - 1;
        switch (values.choice("To_Mode")) {
        case EndMinus:
            row = qMax(0, count - 1 - values.integer("To_Minus"));
            break;
        case NextRowWhere:
            row = search(values, input, "To", {from + 1, count, toProgress});
            break;
        case LastRowToWhere:
            row = search(values, input, "To", {count - 1, from - 1, toProgress});
            break;
        }
        if (row != none && !values.flag("To_Include_Last")) {
            --row;
        }
        return row >= from ? row : none;
    }

    /// Rows that are looked through from `begin` to before `end`, up or down, and the step of the run that this is.
    struct Way
    {
        int begin;
        int end;
        ProgressSpan progress;
    };

    /// The first row on the way that matches the term of that end.
    int search(const OptionValues &values, const Dataset &input, const QString &which, const Way &way)
    {
        FilterRecord record;
        record.terms = {{parameter(which + "_Column")->toColumnId(), values.choice(which + "_Operation"),
            values.text(which + "_Value")}};
        RowFilter filter(input, record, values.flag("Case_Sensitive"));
        const int count = qAbs(way.end - way.begin);
        const int step = way.end < way.begin ? -1 : 1;
        for (int i = 0; i < count; ++i) {
            reportRow(i, count, way.progress);
            if (filter.keeps(way.begin + i * step)) {
                return way.begin + i * step;
            }
        }
        return none;
    }

    /// The rows within the slice or those outside.
    QVector<int> selected(int count, int from, int to, bool keep)
    {
        QVector<int> rows;
        rows.reserve(keep ? to - from + 1 : count - (to - from + 1));
        for (int row = 0; row < count; ++row) {
            reportRow(row, count, {toProgress.end, 1.0});
            if ((row >= from && row <= to) == keep) {
                rows.append(row);
            }
        }
        return rows;
    }
};

TRANSFORM_FACTORY(TransformSlice)
