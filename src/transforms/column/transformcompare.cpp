#include "data/matchoperator.h"
#include "data/values.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Adds a column that tells, row by row, whether a test of one column against another holds.
class TransformCompare final : public Transform
{
public:
    TransformCompare()
        : Transform("Compare_Cols", "Compare the values of two columns.",
            "not than greater less equals comparisons two compares")
    {
    }

protected:
    OptionTable options() const override
    {
        return AddedColumn::withNameOptions(
            {
                Option::column(QStringLiteral("Column1"), QStringLiteral("Column 1"))
                    .tip(QStringLiteral("Select the first column to compare.")),
                Option::selection(QStringLiteral("Comparison"), QStringLiteral("Comparison"), MatchOperators::labels(),
                    static_cast<int>(MatchOperator::EqualTo))
                    .tip(QStringLiteral("The comparison operator.")),
                Option::column(QStringLiteral("Column2"), QStringLiteral("Column 2"))
                    .tip(QStringLiteral("Select the second column to compare.")),
                Option::flag(QStringLiteral("Case_Sensitive"), QStringLiteral("case sensitive"), true)
                    .tip(QStringLiteral("Check for case sensitive text matching.")),
            },
            QString());
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const ColumnIndex first = values.column(QStringLiteral("Column1"));
        const ColumnIndex second = values.column(QStringLiteral("Column2"));
        if (!first.isValid() || !second.isValid()) {
            setResultText(Messages::noChanges());
            return input;
        }
        int held = 0;
        Dataset result = input;
        result.appendColumn(compared(values, input, first, second, held));
        const QString name = AddedColumn::name(
            values, QStringLiteral("%1 %2 %3")
                        .arg(input.columnName(first), values.choiceText(QStringLiteral("Comparison")),
                            input.columnName(second)));
        result.setHeaderValue(result.lastColumn(), name);
        setResultText(
            QStringLiteral("%1 true, %2 false").arg(Messages::count(held), Messages::count(input.rowCount() - held)));
        return result;
    }

private:
    CellColumn compared(
        const OptionValues &values, const Dataset &input, ColumnIndex first, ColumnIndex second, int &held)
    {
        const int op = values.choice(QStringLiteral("Comparison"));
        const bool caseSensitive = values.flag(QStringLiteral("Case_Sensitive"));
        const QHash<ColumnIndex, QString> formats = dateColumnFormats(input, {first, second});
        const QString firstFormat = formats.value(first);
        const QString secondFormat = formats.value(second);
        const CellColumn &left = input.column(first);
        const CellColumn &right = input.column(second);
        const Cell yes = Cell::inlined("true", 4);
        const Cell no = Cell::inlined("false", 5);
        CellColumn column;
        column.cells.resize(input.rowCount());
        Cell *cells = column.cells.data();
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            const bool holds = matchValue(
                op, left.at(row).text(), right.at(row).text(), firstFormat, secondFormat, caseSensitive);
            cells[row] = holds ? yes : no;
            held += holds;
        }
        clearValueCaches();
        return column;
    }
};

TRANSFORM_FACTORY(TransformCompare)
