#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Puts columns in another order; those that the option doesn't know come last.
class TransformReorder final : public Transform
{
public:
    TransformReorder()
        : Transform("Reorder", "Drag columns to reorder.", "relocate orders moves swaps rearranges reorders")
    {
    }

private:
    OptionTable options() const override { return {Option::reorderColumns("Columns", "Drag columns to reorder")}; }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        QVector<char> placed(input.columnCount(), 0);
        QVector<ColumnIndex> order;
        const auto place = [&](ColumnIndex column) {
            if (!placed.at(column.toInt())) {
                placed[column.toInt()] = 1;
                order.append(column);
            }
        };
        for (ColumnIndex column : values.orderedColumns("Columns")) {
            place(column);
        }
        int moved = 0;
        for (int i = 0; i < input.columnCount(); ++i) {
            place(ColumnIndex(i));
        }
        for (int i = 0; i < order.size(); ++i) {
            moved += order.at(i).toInt() != i;
        }
        setResultText(
            moved == 0 ? Messages::noChanges() : QStringLiteral("%1 cols reordered").arg(Messages::count(moved)));
        return moved == 0 ? input : input.withColumns(order);
    }
};

TRANSFORM_FACTORY(TransformReorder)
