#include "data/arenaunion.h"
#include "data/columnbuilder.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Turns rows into columns and columns into rows.
class TransformTranspose final : public Transform
{
public:
    TransformTranspose()
        : Transform("Transpose", "Swap rows and columns.", "into rotates transposes")
    {
    }

private:
    OptionTable options() const override
    {
        return {Option::flag("Header", "has header").tip("Check to make the new first row the header.")};
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        setResultText(QStringLiteral("Transposed"));
        Dataset copy = *inputs.first();
        if (copy.hasHeader() && copy.hasColumns()) {
            copy.setHasHeader(false);
        }
        if (!TableSize::isPossible(copy.columnCount(), copy.rowCount())) {
            addWarning(TableSize::warning(copy.columnCount(), copy.rowCount()));
            setResultText(TableSize::resultText());
            return Dataset();
        }
        Dataset result = turned(copy);
        if (values.flag("Header")) {
            result.setHasHeader(true);
        }
        return result;
    }

    Dataset turned(const Dataset &input)
    {
        // All cells of the result may come from any column, so all columns keep all texts.
        ArenaUnion texts;
        for (int i = 0; i < input.columnCount(); ++i) {
            texts.add(input.column(ColumnIndex(i)));
        }
        const TextArenaPointer arena = texts.arena();
        Dataset result;
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            CellColumn column;
            column.keep(arena);
            column.cells.reserve(input.columnCount());
            for (int i = 0; i < input.columnCount(); ++i) {
                column.cells.append(input.cell(RowIndex(row), ColumnIndex(i)));
            }
            result.appendColumn(column);
        }
        return result;
    }
};

TRANSFORM_FACTORY(TransformTranspose)
