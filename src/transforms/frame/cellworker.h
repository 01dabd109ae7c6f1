#pragma once

#include "data/textbuffer.h"
#include "transforms/frame/cellmemo.h"
#include "transforms/frame/celltransform.h"
#include "transforms/frame/columnedit.h"

/// Applies a cell rule to one column, some rows at a time. Results are remembered by the cell's bits, so that a text
/// that repeats costs a look-up.
class CellWorker
{
public:
    /// `rule` must outlive the worker.
    CellWorker(const CellRule &rule, const CellColumn &column);

    /// Rows from `first` to before `end`.
    void process(int first, int end);
    int changedCount() const { return m_changed; }
    bool isChanged() const { return m_edit.isChanged(); }
    CellColumn take() { return m_edit.take(); }

private:
    void processByText(int first, int end);
    void processByRow(int first, int end);
    Cell resultOf(const Cell &cell);
    Cell resultOfAscii(const Cell &cell);
    Cell stored(const Cell &before, const TextBuffer &bytes);

    const CellRule &m_rule;
    ColumnEdit m_edit;
    CellMemo<Cell> m_results;
    TextBuffer m_buffer;
    int m_changed = 0;
};
