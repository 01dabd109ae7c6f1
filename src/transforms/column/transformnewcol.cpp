#include "data/columnbuilder.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Adds a column that holds one text in every row.
class TransformNewCol final : public Transform
{
public:
    TransformNewCol()
        : Transform("New_Col", "Add a new column filled with a specified value.", "expand adds mutate creates inserts")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("New_Name", "New column name").tip("The name for the new column."),
            Option::text("New_Value", "New column value").tip("Value to populate the new column."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        result.addNamedColumn(
            ColumnBuilder::filled(values.text("New_Value"), result.rowCount()), values.text("New_Name"));
        setResultText(Messages::colsAdded(1));
        return result;
    }
};

TRANSFORM_FACTORY(TransformNewCol)
