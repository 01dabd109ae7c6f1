#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Moves the values of the selected columns a number of rows up or down.
class TransformOffset final : public Transform
{
    enum Direction { Up, Down }; // the choices of Offset_Direction

public:
    TransformOffset()
        : Transform("Offset", "Offset values up or down in the selected column(s).", "shuffle stagger offset")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::integer("Offset_Amount", "Offset")
                .nonZero()
                .tip("How many rows up or down to offset the selected column(s)."),
            Option::selection("Offset_Direction", "Direction", {"Up", "Down"}, Down).tip("The offset direction."),
            Option::flag("Wraparound", "wraparound").tip("Check to wraparound values pushed off the top or bottom."),
            Option::text("New_Value", "New value")
                .notRequired()
                .activeWhenFlag("Wraparound", false)
                .tip("The value to be set for any newly empty cells."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        const qint64 amount = values.integer("Offset_Amount");
        qint64 shift = values.choice("Offset_Direction") == Up ? amount : -amount;
        const bool wraparound = values.flag("Wraparound");
        if (wraparound && input.hasRows()) {
            shift = (shift % input.rowCount() + input.rowCount()) % input.rowCount();
        }
        const TextArenaPointer arena(new TextArena);
        const Cell newValue = arena->store(values.text("New_Value"));
        Dataset result = input;
        qint64 changed = 0;
        for (int i = 0; i < columns.size() && shift != 0 && input.hasRows(); ++i) {
            emit processed(static_cast<qreal>(i) / columns.size());
            CellColumn column = input.column(columns.at(i));
            const int moved = wraparound ? rotate(column, static_cast<int>(shift)) : move(column, shift, newValue);
            column.keep(arena);
            if (moved > 0) {
                result.setColumn(columns.at(i), column);
            }
            changed += moved;
        }
        const qint64 cells = static_cast<qint64>(input.rowCount()) * columns.size();
        setResultText(Messages::changed(changed, cells - changed));
        return result;
    }

    /// Gives each row the cell `shift` rows below it, round the end; `shift` is below the number of rows. Returns how
    /// many cells differ.
    static int rotate(CellColumn &column, int shift)
    {
        const CellColumn before = column;
        const Cell *in = before.cells.constData();
        Cell *out = column.cells.data();
        int changed = 0;
        int source = shift;
        for (int row = 0; row < before.size(); ++row) {
            out[row] = in[source];
            changed += !in[source].sameText(in[row]);
            source = source + 1 == before.size() ? 0 : source + 1;
        }
        return changed;
    }

    /// The same without the end's meeting the beginning: where no row is, `newValue` comes.
    static int move(CellColumn &column, qint64 shift, Cell newValue)
    {
        const CellColumn before = column;
        const Cell *in = before.cells.constData();
        Cell *out = column.cells.data();
        int changed = 0;
        for (int row = 0; row < before.size(); ++row) {
            const qint64 source = row + shift;
            out[row] = source < 0 || source >= before.size() ? newValue : in[source];
            changed += !out[row].sameText(in[row]);
        }
        return changed;
    }
};

TRANSFORM_FACTORY(TransformOffset)
