#include "text/cappedlist.h"
#include "transforms/analysis/pivottable.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/twopasses.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Makes a cross table of the summed-up values of one column.
class TransformPivot final : public Transform
{
    enum NonCalculated { Zero, Empty };               // the choices of Non_Calc
    enum TotalType { RowsAndColumns, Rows, Columns }; // the choices of Total_Type

    static constexpr int shownFailures = 4;

public:
    TransformPivot()
        : Transform("Pivot", "Create a pivot table to summarize the selected columns.",
            "sumif distinct counts crosstabs deviation standard mode median mean averages maximum minimum totals "
            "tables summarises pivots")
    {
    }

private:
    // The columns that make the table's columns are stored as "Rows" and the other way round.
    OptionTable options() const override
    {
        return {
            Option::pivotColumns("Rows", "Pivot columns")
                .hideSortOrder()
                .tip("Column(s) in the input dataset that will be used to create columns in the pivot table."),
            Option::pivotColumns("Columns", "Pivot rows")
                .hideSortOrder()
                .tip("Column(s) in the input dataset that will be used to create rows in the pivot table."),
            Option::column("Sum", "Values")
                .tip("The column in the input dataset that will be used for values in the pivot table."),
            Option::selection("Summarize_As", "Summarize by",
                {"Sum", "Minimum", "Maximum", "Average", "Median", "Mode", "Standard deviation", "Count",
                    "Count distinct"})
                .tip("How to summarize values.\nClick the ? button for more details."),
            Option::selection("Non_Calc", "Set non-calculated", {"Zero", "Empty"})
                .tip("How to set values not calculated by the pivot."),
            Option::flag("Totals", "add totals", true).tip("Check to add row and/or column totals."),
            Option::selection("Total_Type", "Total by", {"Rows and columns", "Rows", "Columns"})
                .activeWhenFlag("Totals")
                .activeWhen([](const OptionValues &values) {
                    return !columnsOf(values, "Rows").isEmpty() && !columnsOf(values, "Columns").isEmpty();
                })
                .tip("Whether to total by rows, columns or both."),
            Option::text("Delimiter", "Delimiter", "/")
                .activeWhen([](const OptionValues &values) {
                    return columnsOf(values, "Rows").size() > 1 || columnsOf(values, "Columns").size() > 1;
                })
                .tip("Delimiter to separate column names."),
            Option::flag("Drilldown", "allow drilldown").tip("Allow double click to drilldown in the data table."),
        };
    }

    static QVector<ColumnIndex> columnsOf(const OptionValues &values, const QString &key)
    {
        QVector<ColumnIndex> columns;
        for (int number : values.sortNumbers(key)) {
            columns.append(toIndex(ColumnNumber(qAbs(number))));
        }
        return columns;
    }

    static PivotTable::Settings settingsOf(const OptionValues &values)
    {
        PivotTable::Settings settings;
        settings.rows = columnsOf(values, "Columns");
        settings.columns = columnsOf(values, "Rows");
        settings.value = values.column("Sum");
        settings.kind = values.choiceAs<SummaryKind>("Summarize_As");
        settings.totalName = QStringLiteral("Grand %1").arg(values.choiceText("Summarize_As"));
        settings.delimiter = values.text("Delimiter");
        settings.missing = values.choice("Non_Calc") == Zero ? QStringLiteral("0") : QString();
        settings.hasDrilldown = values.flag("Drilldown");
        const bool totals = values.flag("Totals");
        const int type = settings.rows.isEmpty() || settings.columns.isEmpty() ? int(RowsAndColumns)
                                                                               : values.choice("Total_Type");
        settings.hasTotalRow = totals && !settings.rows.isEmpty() && type != Rows;
        settings.hasTotalColumn = totals && !settings.columns.isEmpty() && type != Columns;
        return settings;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const PivotTable::Settings settings = settingsOf(values);
        setResultText(QStringLiteral("Pivot table created"));
        if (!settings.value.isValid() || (settings.rows.isEmpty() && settings.columns.isEmpty())) {
            return Dataset();
        }
        PivotTable table(input, settings);
        addRows(table, input, settings.value);
        if (!TableSize::isPossible(table.rowCount(), table.columnCount())) {
            addWarning(TableSize::warning(table.rowCount(), table.columnCount()));
            setResultText(TableSize::resultText());
            return Dataset();
        }
        return table.build([this](int row, int rowCount) { reportPass(*this, 1, row, rowCount); });
    }

    void addRows(PivotTable &table, const Dataset &input, ColumnIndex value)
    {
        const QString name = input.columnName(value);
        CappedList failures(shownFailures);
        for (int row = 0; row < input.rowCount(); ++row) {
            reportPass(*this, 0, row, input.rowCount());
            if (table.isFailure(row)) {
                failures.add([&] {
                    return QStringLiteral("'%1' is not a numerical value in column '%2' at row %3")
                        .arg(input.value(RowIndex(row), value), name, QString::number(row + 1));
                });
            }
            table.add(row);
        }
        warningList() += failures.lines();
    }
};

TRANSFORM_FACTORY(TransformPivot)
