#pragma once

#include "transforms/frame/transform.h"

/// Progress of a kind that walks twice, each walk being half of the work. Pass 0 is the first, 1 the second.
inline void reportPass(Transform &transform, int pass, int row, int rowCount)
{
    if (row % 1000 == 0) {
        emit transform.processed((pass + static_cast<qreal>(row) / rowCount) / 2);
    }
}
