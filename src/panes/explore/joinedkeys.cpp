#include "panes/explore/joinedkeys.h"

#include "data/dataset.h"

#include <algorithm>

Dataset joinedKeys(const CellColumn &top, const CellColumn &bottom)
{
    CellColumn joined;
    joined.keepAllOf(top);
    joined.keepAllOf(bottom);
    Cell *cells = joined.cells.extend(top.size() + bottom.size());
    cells = std::copy_n(top.cells.constData(), top.size(), cells);
    std::copy_n(bottom.cells.constData(), bottom.size(), cells);
    Dataset result;
    result.appendColumn(joined);
    return result;
}
