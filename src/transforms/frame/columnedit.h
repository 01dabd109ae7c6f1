#pragma once

#include "data/cellcolumn.h"
#include "data/valuepool.h"

/// Rewrites one column of a table: its cells stay shared with the source until the first one changes, and equal new
/// texts share their bytes.
class ColumnEdit
{
public:
    explicit ColumnEdit(const CellColumn &source);

    /// The cells as they were.
    const Cell *source() const { return m_in; }
    int size() const { return m_source.size(); }
    /// A cell for this column with the stored text `bytes`.
    Cell store(const char *bytes, int size);
    Cell store(const QString &text);
    /// `cell` comes from store() or from the source.
    void set(int row, Cell cell)
    {
        if (Q_UNLIKELY(!m_out)) {
            m_out = m_column.cells.data();
        }
        m_out[row] = cell;
    }
    bool isChanged() const { return m_out != nullptr; }
    /// The column with its changes; texts of the source that no cell needs any more are let go.
    CellColumn take();

private:
    bool needsSourceTexts() const;

    CellColumn m_source;
    CellColumn m_column;
    const Cell *m_in;
    Cell *m_out = nullptr;
    TextArenaPointer m_arena;
    ValuePool m_pool;
};
