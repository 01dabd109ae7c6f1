#pragma once

#include <QStringList>
#include <QVector>
#include <vector>

struct CellColumn;

/// Where the rows of a table go when each names its own file.
struct MultiFileTargets
{
    static constexpr int maxWarnings = 1000;

    struct Target
    {
        QString file; ///< an absolute path
        QString sheet;
        QVector<int> rows;
    };

    /// In the order in which the rows first name them.
    std::vector<Target> targets;
    /// The warnings have come to their limit, so that not every fault is among them.
    bool warningsCapped = false;

    /// Reads a path, with an optional sheet in square brackets, from each cell of `files`. Relative paths begin in the
    /// folder of the document, whose path is empty while it isn't saved. Rows that name no file that can be written
    /// are left out with a warning.
    static MultiFileTargets of(const CellColumn &files, const QString &documentPath, QStringList &warnings);
};
