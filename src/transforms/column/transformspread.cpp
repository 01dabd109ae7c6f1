#include "data/columnbuilder.h"
#include "transforms/column/sizereport.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/rowgroups.h"
#include "transforms/keys/rowkeys.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Turns rows into columns: one for each text of a key column, filled with the values that stand beside it.
class TransformSpread final : public Transform
{
public:
    TransformSpread()
        : Transform("Spread", "Spread the selected key and value columns into multiple columns.",
            "denormalise denormalize pivot_wider unmelts pairs values keys unstack cast crosstabs pivots wider "
            "multiple spread")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::column("Key_Column", "Key column")
                .tip("The column whose values are to be come new column headers."),
            Option::column("Value_Column", "Value column").tip("The column whose values will be spread."),
            Option::text("Missing_Value", "Missing value")
                .notRequired()
                .tip("The value to set if no value found in the original dataset."),
            Option::integer("Min_New_Cols", "Min. new cols", 0).tip("The minimum number of new columns to create."),
            Option::integer("Max_New_Cols", "Max. new cols", 100)
                .tip("The maximum number of new columns to create. Ignored if less than minimum."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const ColumnIndex key = values.column("Key_Column");
        const ColumnIndex value = values.column("Value_Column");
        Dataset result;
        if (!input.hasRows() || !key.isValid() || !value.isValid()) {
            result = input;
        } else if (input.columnCount() >= leastColumns && !spread(values, input, key, value, result)) {
            setResultText(TableSize::resultText());
            return Dataset();
        }
        const QString report = sizeReport(input, result);
        if (!report.isEmpty()) {
            setResultText(report);
        } else {
            setResultText(areSame(input, result) ? Messages::noChanges() : QStringLiteral("Changed"));
        }
        return result;
    }

    /// False when the table would be too large.
    bool spread(const OptionValues &values, const Dataset &input, ColumnIndex key, ColumnIndex value, Dataset &result)
    {
        QVector<ColumnIndex> rest;
        for (ColumnIndex column : input.allColumns()) {
            if (column != key && column != value) {
                rest.append(column);
            }
        }
        RowKeys restKeys(input, rest);
        RowKeys names(input, {key});
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            restKeys.add(row);
            names.add(row);
        }
        const Widths widths = widthsFor(values, input.columnCount(), rest.size(), names.count());
        if (!TableSize::isPossible(restKeys.count(), widths.total)) {
            addWarning(TableSize::warning(restKeys.count(), widths.total));
            return false;
        }
        result = restOf(input, rest, restKeys);
        QStringList header;
        for (ColumnIndex column : qAsConst(rest)) {
            header.append(input.columnName(column));
        }
        for (int name = 0; name < widths.names; ++name) {
            header.append(input.value(RowIndex(names.firstRow(name)), key));
        }
        appendValues(result, input.column(value), restKeys, names, widths.names, values.text("Missing_Value"));
        CellColumn empty;
        empty.cells.resize(result.rowCount());
        while (result.columnCount() < widths.total) {
            result.appendColumn(empty);
            header.append(QString());
        }
        result.setHeader(header);
        return true;
    }

    /// How wide the result gets.
    struct Widths
    {
        int names = 0; ///< so many of the names get a column
        int total = 0; ///< with the columns that are kept and empty ones at the end
    };

    Widths widthsFor(const OptionValues &values, int inputWidth, int restWidth, int nameCount)
    {
        const int least = values.integer("Min_New_Cols");
        const int most = values.integer("Max_New_Cols");
        if (most < least) {
            addWarning(QStringLiteral("'%1' < '%2'")
                           .arg(parameter("Max_New_Cols")->label(), parameter("Min_New_Cols")->label()));
        }
        Widths widths;
        widths.names = qMin(nameCount, inputWidth + qMax(least, most) - restWidth);
        widths.total = qMax(restWidth + widths.names, inputWidth + least);
        return widths;
    }

    static Dataset restOf(const Dataset &input, const QVector<ColumnIndex> &rest, const RowKeys &keys)
    {
        QVector<int> firstRows;
        firstRows.reserve(keys.count());
        for (int key = 0; key < keys.count(); ++key) {
            firstRows.append(keys.firstRow(key));
        }
        return input.withColumns(rest).withRows(firstRows);
    }

    /// Adds a column for each of the first `nameCount` names.
    static void appendValues(Dataset &result, const CellColumn &values, const RowKeys &rest, const RowKeys &names,
        int nameCount, const QString &missing)
    {
        const RowGroups groups(names.numbers(), names.count());
        const TextArenaPointer arena(new TextArena);
        const Cell severalValues = arena->store(QStringLiteral("Error: multiple values"));
        CellColumn blank = ColumnBuilder::filled(missing, rest.count());
        blank.keepAllOf(values);
        blank.keep(arena);
        std::vector<int> nameOfValue(static_cast<size_t>(rest.count()), -1);
        for (int name = 0; name < nameCount; ++name) {
            CellColumn column = blank;
            Cell *cells = column.cells.data();
            for (int row : groups.rows(name)) {
                const int at = rest.numberOf(row);
                int &filledBy = nameOfValue[static_cast<size_t>(at)];
                cells[at] = filledBy == name ? severalValues : values.at(row);
                filledBy = name;
            }
            result.appendColumn(column);
        }
    }

    static bool areSame(const Dataset &a, const Dataset &b)
    {
        const QList<ColumnIndex> columns = a.allColumns();
        return a.columnNames() == b.columnNames() && std::all_of(columns.cbegin(), columns.cend(), [&](ColumnIndex i) {
            return a.columnEquals(i, &b, i);
        });
    }

    static constexpr int leastColumns = 3;
};

TRANSFORM_FACTORY(TransformSpread)
