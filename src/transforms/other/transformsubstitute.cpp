#include "data/columnbuilder.h"
#include "data/variabletemplate.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Adds a column with a text in which the values of the row stand in the place of variables.
class TransformSubstitute final : public Transform
{
public:
    TransformSubstitute()
        : Transform("Substitute", "Substitute column values into text.",
            "replaces text values into templates scripting combines concatenates")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("New_Name", "New column name", "Substitute").tip("The name for the new column."),
            Option::script("Script", "Substitution script", "First column value is $(1)"),
        };
    }

    using Tokens = QVector<QPair<QString, ColumnIndex>>;

    /// Names go before numbers, each in the order of the columns.
    static Tokens tokensOf(const Dataset &input)
    {
        Tokens tokens;
        const QList<ColumnIndex> columns = input.allColumns();
        for (ColumnIndex column : columns) {
            tokens.append({input.variableForName(input.columnName(column)), column});
        }
        for (ColumnIndex column : columns) {
            tokens.append({input.variableForColumn(column), column});
        }
        return tokens;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QString script = values.text("Script");
        const VariableTemplate text = VariableTemplate::inOrder(tokensOf(input), script);
        const int rowCount = input.rowCount();
        ColumnBuilder column(rowCount);
        TextBuffer buffer;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            text.write(input, RowIndex(row), buffer);
            column.append(buffer);
        }
        const QStringList ambiguous = ambiguousNames(input, script);
        if (!ambiguous.isEmpty()) {
            addWarning(QStringLiteral("Ambiguous column name(s): %1, first column with name used")
                           .arg(ambiguous.join(QStringLiteral(", "))));
        }
        Dataset result = input;
        result.addNamedColumn(column.take(), values.text("New_Name"));
        setResultText(QStringLiteral("%1 evaluated").arg(Messages::count(rowCount)));
        return result;
    }

    /// Names that the text of the first row uses and that several columns have.
    static QStringList ambiguousNames(const Dataset &input, QString text)
    {
        QStringList names;
        if (!input.hasRows()) {
            return names;
        }
        const QList<ColumnIndex> columns = input.allColumns();
        QHash<QString, int> uses;
        for (ColumnIndex column : columns) {
            ++uses[input.variableForName(input.columnName(column))];
        }
        for (ColumnIndex column : columns) {
            const QString name = input.columnName(column);
            const QString variable = input.variableForName(name);
            const bool hasLater = --uses[variable] > 0;
            if (text.contains(variable)) {
                text.replace(variable, input.value(RowIndex(0), column));
                if (hasLater && !names.contains(name)) {
                    names.append(name);
                }
            }
        }
        return names;
    }
};

TRANSFORM_FACTORY(TransformSubstitute)
