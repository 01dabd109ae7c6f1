#include "data/preparedmatch.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/rowstacker.h"

#include <climits>
#include <memory>

/// Joins consecutive rows into longer ones.
class TransformConcatRows final : public Transform
{
    enum Mode { Fixed, Variable, ByKey };
    enum NewRowValue { Omit, AddToEnd, AddToStart };

public:
    TransformConcatRows()
        : Transform("Concat_Rows", "Concatenate multiple consecutive rows into a single row.",
            "consecutive joins merges concatenates")
    {
    }

private:
    OptionTable options() const override
    {
        const QString mode = QStringLiteral("Mode");
        return {
            Option::selection("Mode", "Mode", {"Fixed", "Variable", "By key"})
                .tip("Choose how to concatenate rows:\nFixed: Concatenate a fixed number of rows itno each new "
                     "row.\nVariable: Concatenate rows according to the values in each cell.\nBy key: Concatenate all "
                     "consecutive rows with the same key value.\nClick the ? button for details."),
            Option::integer("Rows", "Create 1 row from every", 2)
                .limits(2, 999999999)
                .activeWhen(mode, {"Fixed"})
                .tip("How many rows to concatenate into 1 new row."),
            Option::selection("While_Or_Until", "Concatenate", {"Until", "While"})
                .activeWhen(mode, {"Variable"})
                .tip("Whether to keep concatenating values until or while a condition is met."),
            Option::selection(
                "Matches", "Matches", MatchOperators::labelsWithText(), static_cast<int>(MatchOperator::EqualTo))
                .activeWhen(mode, {"Variable"})
                .tip("The comparison operator."),
            Option::text("Value", "Value").activeWhen(mode, {"Variable"}).tip("The value to match."),
            Option::column("Key_Column", "Key column")
                .activeWhen(mode, {"By key"})
                .tip("Select the column to use as a key. Consecutive rows with the same key value will be "
                     "concatenated."),
            Option::flag("Repeat_Key_Column", "repeat key column", true)
                .activeWhen(mode, {"By key"})
                .tip("Uncheck to keep only the first key column."),
            Option::flag("Case_Sensitive", "case sensitive", true)
                .activeWhen(mode, {"Variable", "By key"})
                .tip("Check for case sensitive text matching."),
            Option::selection("Concat_Value", "New row value", {"Omit", "Add to row end", "Add to row start"})
                .activeWhen(mode, {"Variable"})
                .tip("What to do with the value that denotes a new row."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const int mode = values.choice("Mode");
        RowStacker stacker(input);
        if ((input.isEmpty() && mode != Fixed) || (mode == ByKey && !values.column("Key_Column").isValid())) {
            setResultText(Messages::noChanges());
            return input;
        }
        if (mode == Fixed) {
            const qint64 joined = values.integer("Rows");
            const qint64 width = joined * input.columnCount();
            const qint64 height = (input.rowCount() + joined - 1) / joined;
            if (width > INT_MAX || !TableSize::isPossible(height, width)) {
                addWarning(TableSize::warning(height, width));
                setResultText(TableSize::resultText());
                return Dataset();
            }
            stacker.widenTo(static_cast<int>(width));
            stackFixed(values, input, stacker);
        } else if (mode == ByKey) {
            stackByKey(values, input, stacker);
        } else {
            stackVariable(values, input, stacker);
        }
        const Dataset result = stacker.table(mode == ByKey ? leftOutColumn(values) : -1);
        setResultText(haveSameCells(result, input)
                          ? Messages::noChanges()
                          : QStringLiteral("%1 rows concatenated into %2")
                                .arg(Messages::count(input.rowCount()), Messages::count(result.rowCount())));
        return result;
    }

    static bool haveSameCells(const Dataset &a, const Dataset &b)
    {
        bool same = a.rowCount() == b.rowCount() && a.columnCount() == b.columnCount();
        for (int i = 0; same && i < a.columnCount(); ++i) {
            same = a.columnEquals(ColumnIndex(i), &b, ColumnIndex(i));
        }
        return same;
    }

    /// The key column when it isn't repeated, otherwise -1.
    static int leftOutColumn(const OptionValues &values)
    {
        return values.flag("Repeat_Key_Column") ? -1 : values.column("Key_Column").toInt();
    }

    static void addRow(const Dataset &input, int row, int leftOut, RowStacker &stacker)
    {
        for (int column = 0; column < input.columnCount(); ++column) {
            if (column != leftOut) {
                stacker.add(RowIndex(row), ColumnIndex(column));
            }
        }
    }

    void stackFixed(const OptionValues &values, const Dataset &input, RowStacker &stacker)
    {
        const int size = values.integer("Rows");
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            addRow(input, row, -1, stacker);
            if (row % size == size - 1 || row == input.rowCount() - 1) {
                stacker.endRow();
            }
        }
    }

    void stackByKey(const OptionValues &values, const Dataset &input, RowStacker &stacker)
    {
        const ColumnIndex key = values.column("Key_Column");
        const bool caseSensitive = values.flag("Case_Sensitive");
        const int leftOut = leftOutColumn(values);
        const CellColumn &keys = input.column(key);
        const auto isSame = [&](const Cell &a, const Cell &b) {
            return a.sameText(b) || (!caseSensitive && a.text().compare(b.text(), Qt::CaseInsensitive) == 0);
        };
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            const bool goesOn = row > 0 && isSame(keys.at(row), keys.at(row - 1));
            if (row > 0 && !goesOn) {
                stacker.endRow();
            }
            addRow(input, row, goesOn ? leftOut : -1, stacker);
        }
        stacker.endRow();
    }

    void stackVariable(const OptionValues &values, const Dataset &input, RowStacker &stacker)
    {
        const bool until = values.choice("While_Or_Until") == 0;
        const int newRowValue = values.choice("Concat_Value");
        std::vector<std::unique_ptr<PreparedMatch>> tests = testsOf(values, input);
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            for (int i = 0; i < input.columnCount(); ++i) {
                const RowIndex at(row);
                const ColumnIndex column(i);
                const bool startsRow = tests[static_cast<size_t>(i)]->matches(input.cell(at, column)) == until;
                if (!startsRow || newRowValue == AddToEnd) {
                    stacker.add(at, column);
                }
                if (startsRow && !stacker.isRowEmpty()) {
                    stacker.endRow();
                }
                if (startsRow && newRowValue == AddToStart) {
                    stacker.add(at, column);
                }
            }
        }
        if (!stacker.isRowEmpty()) {
            stacker.endRow();
        }
    }

    static std::vector<std::unique_ptr<PreparedMatch>> testsOf(const OptionValues &values, const Dataset &input)
    {
        QVector<ColumnIndex> columns;
        for (int i = 0; i < input.columnCount(); ++i) {
            columns.append(ColumnIndex(i));
        }
        const QHash<ColumnIndex, QString> formats = dateColumnFormats(input, columns);
        std::vector<std::unique_ptr<PreparedMatch>> tests;
        for (ColumnIndex column : qAsConst(columns)) {
            const QString format = formats.value(column);
            tests.push_back(std::make_unique<PreparedMatch>(
                values.choice("Matches"), values.text("Value"), format, format, values.flag("Case_Sensitive")));
        }
        return tests;
    }
};

TRANSFORM_FACTORY(TransformConcatRows)
