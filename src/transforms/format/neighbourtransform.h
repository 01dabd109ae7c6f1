#pragma once

#include "transforms/frame/transform.h"

/// What the kinds share that look from a cell to its neighbour in a direction: their options.
class NeighbourTransform : public Transform
{
protected:
    /// The choices of "Direction", in their order.
    enum Direction { Down, Right, Up, Left };
    struct Tips
    {
        const char *direction;
        const char *sameKey; ///< with %1 for the choice that compares keys
        const char *keyColumn;
    };

    NeighbourTransform(const char *typeName, const char *description, const char *keywords, const Tips &tips)
        : Transform(typeName, description, keywords)
        , m_tips(tips)
    {
    }

    OptionTable options() const override;

    static bool isVertical(Direction direction) { return direction == Down || direction == Up; }
    /// The key column's cells when they count, otherwise null.
    static const Cell *keyCells(const OptionValues &values, const Dataset &input);
    static bool haveSameKey(const Cell *keys, int row, int other) { return !keys || keys[row].sameText(keys[other]); }

private:
    Tips m_tips;
};
