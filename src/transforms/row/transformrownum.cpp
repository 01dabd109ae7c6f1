#include "data/columnbuilder.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <charconv>

/// Adds a column that numbers the rows.
class TransformRowNum final : public Transform
{
public:
    TransformRowNum()
        : Transform("Row_Num", "Add a new column with the row number.",
            "lines columns starting every increments numbering numbers")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("New_Name", "New column name", displayName()).tip("The name for the new column."),
            Option::integer("Start_At", "Start at", 1).limits(-999999999, 999999999).tip("Start numbering at."),
            Option::integer("Increment", "Increment", 1).limits(-999999, 999999).tip("How much to increment by."),
            Option::integer("Every", "Every", 1)
                .limits(1, 999999999)
                .tip("How often to increment (e.g. set to 5 to increment once every 5 rows."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const qint64 start = values.integer("Start_At");
        const qint64 increment = values.integer("Increment");
        const int every = values.integer("Every");
        const int rowCount = result.rowCount();
        ColumnBuilder numbers(rowCount);
        char digits[24];
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            const auto end = std::to_chars(digits, digits + sizeof digits, start + row / every * increment).ptr;
            numbers.append(digits, static_cast<int>(end - digits));
        }
        result.addNamedColumn(numbers.take(), values.text("New_Name"));
        setResultText(QStringLiteral("%1 %2 numbered").arg(Messages::count(rowCount), Messages::rows(rowCount)));
        return result;
    }
};

TRANSFORM_FACTORY(TransformRowNum)
