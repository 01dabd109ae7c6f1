#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Keeps the checked columns and removes the others.
class TransformRemoveCols final : public Transform
{
public:
    TransformRemoveCols()
        : Transform("Remove", "Uncheck the column(s) you wish to remove.", "drop choosecols deletes select pull remove")
    {
    }

private:
    OptionTable options() const override { return {Option::removeColumns("Columns", "Columns").selectAll()}; }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> kept = values.columns("Columns");
        const int removed = input.columnCount() - kept.size();
        Dataset result = input;
        if (input.hasHeader()) {
            result.setHeader(input.columnNames()); // names that stood for empty ones stay when columns before them go
        }
        if (removed > 0) {
            result = result.withColumns(kept);
        }
        setResultText(Messages::colsRemoved(removed));
        return result;
    }
};

TRANSFORM_FACTORY(TransformRemoveCols)
