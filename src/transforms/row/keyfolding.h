#pragma once

#include "data/cellcolumn.h"

#include <QString>
#include <functional>

/// What two texts may differ in and still be the same key.
struct KeyFolding
{
    bool caseSensitive = true;
    bool ignoreSpaces = false;
    bool ignorePunctuation = false;

    bool changesNothing() const { return caseSensitive && !ignoreSpaces && !ignorePunctuation; }
    /// The text without these differences.
    QString folded(const QString &text) const;
    /// The same for all cells of a column; it shares the cells that stay as they are. Those below stay as they are too
    /// once it is stopped.
    CellColumn folded(const CellColumn &column, const std::function<bool()> &isStopped = {}) const;
};
