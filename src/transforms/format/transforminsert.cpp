#include "data/variabletemplate.h"
#include "data/wtf8append.h"
#include "transforms/frame/celltransform.h"
#include "transforms/frame/messages.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Puts a text, in which values of the same row may be named, in front of the selected cells or behind them.
class TransformInsert final : public CellTransform
{
    enum Place { Start, End }; // the choices of With, in their order

public:
    TransformInsert()
        : CellTransform("Insert", "Append/prepend text in the selected column(s).", "inserts appends prepends text")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::text("Insert", "Insert")
                .tip("Text to insert.\nYou can use column variables. e.g. $(1) to reference the first column value.\n"
                     "See 'Column variables' in the help."),
            Option::selection("With", "At", {"Start", "End"}).tip("Where to insert text."),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &input) const override
    {
        const QString text = values.text("Insert");
        if (text.isEmpty()) {
            return {};
        }
        const VariableTemplate insertion(input, text);
        if (values.choice("With") == Start) {
            return CellRule::byRow([insertion, input](int row, const Cell &cell, TextBuffer &out) {
                insertion.write(input, RowIndex(row), out);
                appendWtf8(out, cell.bytes(), cell.size());
            });
        }
        return CellRule::byRow(
            [insertion, input, inserted = TextBuffer()](int row, const Cell &cell, TextBuffer &out) mutable {
                insertion.write(input, RowIndex(row), inserted);
                out.append(cell.bytes(), cell.size());
                appendWtf8(out, inserted.constData(), inserted.size());
            });
    }

    QString outcome(qint64 changed, qint64) const override { return Messages::changed(changed); }
};

TRANSFORM_FACTORY(TransformInsert)
