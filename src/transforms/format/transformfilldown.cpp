#include "transforms/format/neighbourcelltransform.h"

/// Fills empty cells from their neighbours, so that a value runs on through a stretch of empty cells.
class TransformFillDown final : public NeighbourCellTransform
{
public:
    TransformFillDown()
        : NeighbourCellTransform("Fill", "Fill empty cells in selected columns from adjacent cells.",
            "copies copy completes across empty adjacent right left down fills",
            {"Direction to fill to. E.g. '%1' means fill downward from non-empty cells.",
                "Use '%1' to fill a cell only when it has the same value in the 'Key column' column as adjacent cell.",
                "Only fill if the 2 adjacent rows have the same value in this column."})
    {
    }

private:
    bool walksBack(Direction direction) const override { return direction == Left; }

    int edit(CellColumn &column, const Neighbours &neighbours) const override
    {
        return neighbours.column ? fillFromColumn(column, *neighbours.column) : fillWithin(column, neighbours);
    }

    static int fillFromColumn(CellColumn &column, const CellColumn &source)
    {
        const Cell *in = column.cells.constData();
        const Cell *from = source.cells.constData();
        Cell *out = nullptr;
        int changed = 0;
        for (int row = 0; row < column.size(); ++row) {
            if (in[row].isEmpty() && !from[row].isEmpty()) {
                if (!out) {
                    out = column.cells.data();
                    in = out;
                }
                out[row] = from[row];
                ++changed;
            }
        }
        return changed;
    }

    static int fillWithin(CellColumn &column, const Neighbours &neighbours)
    {
        const Cell *in = column.cells.constData();
        Cell *out = nullptr;
        int changed = 0;
        int row = neighbours.step > 0 ? 1 : column.size() - 2;
        for (int i = 1; i < column.size(); ++i, row += neighbours.step) {
            const int source = row - neighbours.step;
            if (in[row].isEmpty() && !in[source].isEmpty() && haveSameKey(neighbours.keys, row, source)) {
                if (!out) {
                    out = column.cells.data();
                    in = out;
                }
                out[row] = in[source];
                ++changed;
            }
        }
        return changed;
    }
};

TRANSFORM_FACTORY(TransformFillDown)
