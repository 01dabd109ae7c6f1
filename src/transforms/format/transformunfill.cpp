#include "transforms/format/neighbourcelltransform.h"

/// Empties cells that repeat their neighbour: of a run of like values only the first stays.
class TransformUnfill final : public NeighbourCellTransform
{
public:
    TransformUnfill()
        : NeighbourCellTransform("Unfill", "Set adjacent cells with identical values to empty in selected columns.",
            "across adjacent right left down repeat blank empty unfills",
            {"Direction to unfill to. E.g. '%1' means set identical values below each cell to empty.",
                "Use '%1' to unfill a cell only when it has the same value in the 'Key column' column as adjacent "
                "cell.",
                "Only unfill if the 2 adjacent rows have the same value in this column."})
    {
    }

private:
    // The column that cells are compared with must not have been emptied yet.
    bool walksBack(Direction direction) const override { return direction == Right; }

    int edit(CellColumn &column, const Neighbours &neighbours) const override
    {
        const CellColumn before = column;
        const Cell *in = before.cells.constData();
        const Cell *others = neighbours.column ? neighbours.column->cells.constData() : in;
        const int offset = neighbours.column ? 0 : neighbours.step;
        const Cell *keys = neighbours.column ? nullptr : neighbours.keys;
        Cell *out = nullptr;
        int changed = 0;
        for (int row = qMax(0, offset); row < column.size() + qMin(0, offset); ++row) {
            const int other = row - offset;
            if (!in[row].isEmpty() && in[row].sameText(others[other]) && haveSameKey(keys, row, other)) {
                if (!out) {
                    out = column.cells.data();
                }
                out[row] = Cell();
                ++changed;
            }
        }
        return changed;
    }
};

TRANSFORM_FACTORY(TransformUnfill)
