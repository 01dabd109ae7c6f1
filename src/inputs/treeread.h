#pragma once

/// How trees, from JSON or XML, become rows.
struct TreeReadOptions
{
    int arraysAsRows = 1; ///< 0 gives an array columns of its own, 1 rows; JSON takes only 1 as rows, XML all but 0
    bool trim = true;
    bool simplify = true;
    bool ignoreEmptyRows = true;
};
