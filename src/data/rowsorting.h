#pragma once

#include "data/rowranks.h"

#include <QList>
#include <QStringList>

/// How the rows of a table are sorted.
struct RowSorting
{
    /// The 1-based numbers of the key columns in order of importance, negative for descending.
    QList<int> columns;
    QStringList dateFormats;
    /// Columns of dates under one of `dateFormats` and of numbers go by value where both cells have one.
    bool byValue = true;
    bool localeAware = false;
    bool caseSensitive = true;
    /// The last column takes the ranks.
    bool addRank = false;
    RowRanks::Type rankType = RowRanks::Minimum;
    /// Number of the column for each text of which ranks are counted on their own, 0 for none.
    int rankBy = 0;
};
