#pragma once

#include "transforms/format/neighbourtransform.h"

/// Frame of the kinds that change single cells by their neighbours: the walk over the selected columns and the counts.
class NeighbourCellTransform : public NeighbourTransform
{
protected:
    /// Where the neighbour of a cell stands: in another column, or in the same one `step` rows before it.
    struct Neighbours
    {
        const CellColumn *column = nullptr;
        int step = 1;
        const Cell *keys = nullptr; ///< two rows of the same column must agree on these; null for no such rule
    };
    using NeighbourTransform::NeighbourTransform;

    Dataset compute(const OptionValues &values, const Inputs &inputs) override;

private:
    /// Whether the selected columns are walked from the last to the first.
    virtual bool walksBack(Direction direction) const = 0;
    /// Changes the cells of one column; returns how many. The frame keeps the texts of neighbours.
    virtual int edit(CellColumn &column, const Neighbours &neighbours) const = 0;
};
