#include "data/columnbuilder.h"
#include "data/textregex.h"
#include "transforms/column/listoperations.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionchecks.h"
#include "transforms/options/optionvalues.h"

/// Adds a column with the outcome of one operation on the lists in a column's cells.
class TransformList final : public Transform
{
    enum DelimiterType { TextDelimiter, RegexDelimiter };

public:
    TransformList()
        : Transform("List", "Perform list operations on a column to create a new column.",
            "product median mean average even elements tidy trim descending ascending sort reorder order empty remove "
            "last first count duplicates dedupe reverse lists")
    {
    }

private:
    OptionTable options() const override
    {
        return AddedColumn::withNameOptions(
            {
                Option::column("Column", "Column").tip("Select the column to perform a list operation on."),
                Option::selection("Delimiter_Type", "Using", {"Text delimiter", "Regex delimiter"})
                    .tip("Choose whether to delimit list elements using a text or regex delimiter."),
                Option::text("Delimiter", "Delimiter")
                    .check(&OptionChecks::expression,
                        [](const OptionValues &values) { return values.choice("Delimiter_Type") == RegexDelimiter; })
                    .tip(
                        "Choose the list delimiter.\nThis will often be a single character of text, such as a Comma or "
                        "Space."),
                Option::selection("Operation", "Operation", ListOperations::names(), ListOperations::Count)
                    .tip("The list operation to perform.\nClick the ? button for details."),
                Option::text("Output_Delimiter", "Output delimiter", ",")
                    .activeWhen("Delimiter_Type", {"Regex delimiter"})
                    .activeWhen([](const OptionValues &values) {
                        return ListOperations::givesList(values.choiceAs<ListOperations::Operation>("Operation"));
                    })
                    .tip("Choose the delimiter for the output list.\nThis will often be a single character of text, "
                         "such as "
                         "a Comma or Space."),
            },
            QString());
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const ColumnIndex source = values.column("Column");
        QString name = AddedColumn::name(values, QString());
        if (!source.isValid()) {
            result.appendEmptyColumn();
            setResultText(Messages::noChanges());
        } else {
            if (values.flag("Auto_New_Name")) {
                name = QStringLiteral("%1(%2)").arg(values.choiceText("Operation"), result.columnName(source));
            }
            result.appendColumn(outcomes(values, result.column(source)));
            setResultText(Messages::colsAdded(1));
        }
        if (!name.isEmpty()) {
            result.setHeaderValue(result.lastColumn(), name);
        }
        return result;
    }

    CellColumn outcomes(const OptionValues &values, const CellColumn &cells)
    {
        const bool regex = values.choice("Delimiter_Type") == RegexDelimiter;
        const QString delimiter = values.text("Delimiter");
        const TextRegex expression(regex ? delimiter : QString());
        if (!expression.isValid()) {
            addWarning(Messages::invalidExpression(delimiter, expression.errorString()));
        }
        const QString joiner = values.text(regex ? "Output_Delimiter" : "Delimiter");
        const auto operation = values.choiceAs<ListOperations::Operation>("Operation");
        const bool givesList = ListOperations::givesList(operation);
        const int rowCount = cells.size();
        ColumnBuilder column(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            const QStringList items = split(cells.at(row).text(), delimiter, regex ? &expression : nullptr);
            column.append(givesList ? ListOperations::list(operation, items).join(joiner)
                                    : ListOperations::value(operation, items));
        }
        return column.take();
    }

    /// One item when there is nothing to split at.
    static QStringList split(const QString &text, const QString &delimiter, const TextRegex *expression)
    {
        if (delimiter.isEmpty()) {
            return {text};
        }
        return expression ? expression->split(text, Qt::KeepEmptyParts) : text.split(delimiter);
    }
};

TRANSFORM_FACTORY(TransformList)
