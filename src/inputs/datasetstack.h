#pragma once

#include "data/dataset.h"

#include <vector>

/// Puts tables one below the other by the positions of their columns; where their widths differ, the narrower ones get
/// empty columns.
class DatasetStack
{
public:
    /// With `keepLastColumn`, the last columns of all tables stay one below the other, and columns are added in front
    /// of them.
    explicit DatasetStack(bool keepLastColumn)
        : m_keepLastColumn(keepLastColumn)
    {
    }

    /// Adds a table below. The first gives header and names; columns that later ones add take their names from there.
    /// Throws std::bad_alloc when memory or row numbers end; the stack then has the rows that it had.
    void append(const Dataset &item);
    bool isEmpty() const { return m_isEmpty; }
    /// The column names of the first table.
    const QStringList &firstNames() const { return m_firstNames; }
    /// Everything stacked so far, which the stack then forgets.
    Dataset take();

private:
    void dropUnfinishedRows();
    void start(const Dataset &item);
    void widen(const Dataset &item);
    int sourceColumn(int column, int itemColumns) const;
    void appendColumn(int column, const Dataset &item);

    const bool m_keepLastColumn;
    bool m_isEmpty = true;
    bool m_hasHeader = false;
    QStringList m_firstNames;
    QStringList m_header;
    std::vector<CellColumn> m_columns;
    TextArenaPointer m_arena; // for texts of small tables
    int m_rowCount = 0;
};
