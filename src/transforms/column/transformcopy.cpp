#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Adds copies of columns at the right end.
class TransformCopy final : public Transform
{
public:
    TransformCopy()
        : Transform("Copy", "Copy selected columns.", "clones duplicates copies copy")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::integer("Copies", "Copies", 1)
                .nonZero()
                .tip("The number of copies to make of each selected column."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        const int copies = values.integer("Copies");
        const qint64 added = static_cast<qint64>(columns.size()) * copies;
        Dataset result = input;
        if (added <= 0) {
            setResultText(Messages::noChanges());
            return result;
        }
        if (added > mostColumns) {
            setResultText(QStringLiteral("Too many columns"));
            addWarning(TableSize::warning(input.rowCount(), input.columnCount() + added));
            return result;
        }
        for (int i = 0; i < columns.size(); ++i) {
            emit processed(static_cast<qreal>(i) / columns.size());
            const QString name = input.header().value(columns.at(i).toInt());
            for (int copy = 0; copy < copies; ++copy) {
                result.appendColumn(input.column(columns.at(i)), name);
            }
        }
        setResultText(Messages::colsAdded(added));
        return result;
    }

    static constexpr qint64 mostColumns = 1000000;
};

TRANSFORM_FACTORY(TransformCopy)
