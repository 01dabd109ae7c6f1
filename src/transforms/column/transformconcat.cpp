#include "data/columnbuilder.h"
#include "data/wtf8append.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Adds a column with the texts of several columns joined.
class TransformConcat final : public Transform
{
public:
    TransformConcat()
        : Transform("Concat", "Concatenate selected columns into a single new column.",
            "combine delimiters unite joins merges concatenates")
    {
    }

private:
    OptionTable options() const override
    {
        return AddedColumn::withNameOptions(
            {
                Option::columns("Columns"),
                Option::text("Delimiter", "Delimiter", ",")
                    .notRequired()
                    .tip("Choose the text to place between values concatenated in the new column (optional), e.g. a "
                         "Comma."),
                Option::flag("Keep_Empty", "keep empty values")
                    .activeWhen([](const OptionValues &values) { return !values.text("Delimiter").isEmpty(); })
                    .tip("Check to concatenate empty values. NB/ Values containing whitespace are not empty."),
            },
            displayName());
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        QStringList names;
        for (ColumnIndex column : columns) {
            names.append(input.columnName(column));
        }
        Dataset result = input;
        result.addNamedColumn(
            concatenated(values, input, columns), AddedColumn::name(values, names.join(QStringLiteral(" + "))));
        setResultText(columns.isEmpty() ? Messages::noChanges()
                                        : QStringLiteral("Concatenated %1 %2")
                                              .arg(Messages::count(columns.size()), Messages::cols(columns.size())));
        return result;
    }

    CellColumn concatenated(const OptionValues &values, const Dataset &input, const QVector<ColumnIndex> &columns)
    {
        TextBuffer delimiter;
        setText(delimiter, values.text("Delimiter"));
        const bool keepEmpty = values.flag("Keep_Empty");
        const int rowCount = input.rowCount();
        ColumnBuilder column(rowCount);
        TextBuffer text;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            text.clear();
            bool first = true;
            for (ColumnIndex source : columns) {
                const Cell &cell = input.cell(RowIndex(row), source);
                if (cell.isEmpty() && !keepEmpty) {
                    continue;
                }
                if (!first) {
                    appendWtf8(text, delimiter.constData(), delimiter.size());
                }
                first = false;
                appendWtf8(text, cell.bytes(), cell.size());
            }
            column.append(text);
        }
        return column.take();
    }
};

TRANSFORM_FACTORY(TransformConcat)
