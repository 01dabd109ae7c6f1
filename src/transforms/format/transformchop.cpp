#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Removes a number of characters from one end of the selected cells.
class TransformChop final : public CellTransform
{
    enum End { Start, End }; // the choices of From, in their order

public:
    TransformChop()
        : CellTransform("Chop", "Remove a number of characters from the start or end of the selected column(s).",
            "chops removes characters lengths starts ends")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::integer("Length", "Length", 1).tip("The number of characters to remove."),
            Option::selection("From", "From", {"Start", "End"}).tip("Whether to remove from the start or end."),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        const int length = values.integer("Length");
        const bool fromStart = values.choice("From") == Start;
        if (length < 1) {
            return {};
        }
        return CellRule::inPlace([=](auto *text, int size) {
            const int keep = qMax(0, size - length);
            if (fromStart) {
                std::copy(text + size - keep, text + size, text);
            }
            return keep;
        });
    }
};

TRANSFORM_FACTORY(TransformChop)
