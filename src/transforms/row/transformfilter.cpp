#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/rowfilter.h"

/// Keeps or removes the rows that match conditions on their cells.
class TransformFilter final : public Transform
{
public:
    TransformFilter()
        : Transform("Filter", "Filter rows by text, date or numeric values in selected columns.",
            "filters filtering matching matches keeps removes regular regex grep selects sumif countif")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::filter("Columns", "Filtering").activeWhenFlag("Disable", false),
            Option::flag("Case_Sensitive", "case sensitive", true)
                .activeWhenFlag("Disable", false)
                .tip("Check for case sensitive text matching."),
            Option::flag("Disable", "disable filtering")
                .highlightChecked()
                .tip("Check to disable filtering (which means that transform does nothing)."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const Dataset result = values.flag("Disable") ? input : filtered(values, input);
        if (values.flag("Disable")) {
            addWarning(QStringLiteral("Filtering is disabled"));
        }
        setResultText(Messages::rowsRemoved(input.rowCount() - result.rowCount()));
        return result;
    }

    Dataset filtered(const OptionValues &values, const Dataset &input)
    {
        const FilterRecord record = values.filter("Columns");
        if (record == FilterRecord()) {
            return input;
        }
        RowFilter filter(input, record, values.flag("Case_Sensitive"));
        QVector<int> kept;
        kept.reserve(input.rowCount());
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            if (filter.keeps(row)) {
                kept.append(row);
            }
        }
        return kept.size() == input.rowCount() ? input : input.withRows(kept);
    }
};

TRANSFORM_FACTORY(TransformFilter)
