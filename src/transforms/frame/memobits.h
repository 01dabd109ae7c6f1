#pragma once

/// How many bits number the slots of a memo for a column of `rowCount` cells: enough for each cell to have its own, but
/// at most `most`. A memo of a size of its own would outweigh the cells of short columns, of which a table can have
/// many.
inline int memoBits(int rowCount, int most)
{
    int bits = 2;
    while (bits < most && (1 << bits) < rowCount) {
        ++bits;
    }
    return bits;
}
